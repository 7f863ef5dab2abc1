/// \file
/// IXMLElementToken: the names of a start or end element.
#ifndef VESK_IO_IXMLELEMENTTOKEN_H
#define VESK_IO_IXMLELEMENTTOKEN_H

#include "vesk/io/IXMLToken.h"

namespace vesk {
namespace io {

/// The names of a start or end element.
class VESK_API IXMLElementToken : public virtual IXMLToken {
 public:
  /// Nothing to set up.
  IXMLElementToken() {}
  /// Virtual through IXMLToken: tokens are deleted through any of their
  /// interfaces.
  ~IXMLElementToken() override {}
  /// Whether the element has a namespace (its namespace URI is not empty).
  virtual bool HasNamespace() const = 0;
  /// The name as written, with its prefix if any.
  virtual const vesk::base::CUnicodeString& GetQualifiedName() const = 0;
  /// The name without prefix; empty for a token built without namespace
  /// information (its qualified name is not split).
  virtual const vesk::base::CUnicodeString& GetLocalName() const = 0;
  /// The namespace URI; empty when there is none or no namespace
  /// information.
  virtual const vesk::base::CUnicodeString& GetNamespaceURI() const = 0;
};

}  // namespace io
}  // namespace vesk

#endif
