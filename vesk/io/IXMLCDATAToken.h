/// \file
/// IXMLCDATAToken: a CDATA section, without its delimiters.
#ifndef VESK_IO_IXMLCDATATOKEN_H
#define VESK_IO_IXMLCDATATOKEN_H

#include "vesk/io/IXMLToken.h"

namespace vesk {
namespace io {

/// A CDATA section, without its delimiters.
class VESK_API IXMLCDATAToken : public virtual IXMLToken {
 public:
  /// Nothing to set up.
  IXMLCDATAToken() {}
  /// Virtual through IXMLToken: tokens are deleted through any of their
  /// interfaces.
  ~IXMLCDATAToken() override {}
  /// The section content.
  virtual const vesk::base::CUnicodeString& GetText() const = 0;
};

}  // namespace io
}  // namespace vesk

#endif
