/// \file
/// IXMLToken: the root of the XML token interfaces.
#ifndef VESK_IO_IXMLTOKEN_H
#define VESK_IO_IXMLTOKEN_H

#include "vesk/base/Export.h"
#include "vesk/base/UnicodeString.h"

namespace vesk {
namespace io {

/// The kind of an XML token. 0 is never a token's kind: callers may use it
/// for "no token".
enum XMLTokenType {
  XMLComment = 1,
  XMLProcessingInstruction,
  XMLText,
  XMLCDATA,
  XMLStartElement,
  XMLEndElement
};

/// One markup item of a document as a reader hands it out (as
/// CRef<IXMLToken>). Every token interface derives from this one virtually,
/// so a concrete token holds exactly one IXMLToken whatever path reaches it.
class VESK_API IXMLToken {
 public:
  /// Nothing to set up.
  IXMLToken() {}
  /// Virtual: tokens are deleted through their interfaces.
  virtual ~IXMLToken() {}
  /// The kind, fixed when the token was made.
  virtual XMLTokenType GetType() const = 0;
  /// The text of a text, CDATA or comment token; empty for the other kinds.
  virtual vesk::base::CUnicodeString GetValue() const = 0;
};

}  // namespace io
}  // namespace vesk

#endif
