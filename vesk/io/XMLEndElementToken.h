/// \file
/// CXMLEndElementToken: an end-element token.
#ifndef VESK_IO_XMLENDELEMENTTOKEN_H
#define VESK_IO_XMLENDELEMENTTOKEN_H

#include "vesk/io/IXMLEndElementToken.h"
#include "vesk/io/XMLElementToken.h"

namespace vesk {
namespace io {

/// An end element (kind XMLEndElement): the names only.
class VESK_API CXMLEndElementToken : public CXMLElementToken, public virtual IXMLEndElementToken {
  VESK_DECLARE_CLASS(CXMLEndElementToken);

  /// The raw name only (local name and namespace URI stay empty).
  explicit CXMLEndElementToken(const vesk::base::CUnicodeString& qualifiedName)
      : CXMLElementToken(XMLEndElement, qualifiedName) {}
  /// The name as written, its local part and its namespace URI (empty for
  /// none).
  CXMLEndElementToken(const vesk::base::CUnicodeString& qualifiedName,
                      const vesk::base::CUnicodeString& localName,
                      const vesk::base::CUnicodeString& namespaceURI)
      : CXMLElementToken(XMLEndElement, qualifiedName, localName, namespaceURI) {}
  /// Releases the token's strings.
  ~CXMLEndElementToken() override;
};

}  // namespace io
}  // namespace vesk

#endif
