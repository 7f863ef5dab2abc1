/// \file
/// CXMLElementToken: the names of a start or end element token.
#ifndef VESK_IO_XMLELEMENTTOKEN_H
#define VESK_IO_XMLELEMENTTOKEN_H

#include "vesk/io/IXMLElementToken.h"
#include "vesk/io/XMLToken.h"

namespace vesk {
namespace io {

namespace internal {
class CXMLTextTokenizer;
}

/// The element names shared by the start and end element tokens: qualified
/// name, local name and namespace URI. A token made from the raw name alone
/// keeps only its qualified name (the name is deliberately not split), so
/// its local name and namespace URI are empty.
class VESK_API CXMLElementToken : public CXMLToken, public virtual IXMLElementToken {
  VESK_DECLARE_CLASS(CXMLElementToken);

  /// type is XMLStartElement or XMLEndElement; the name without namespace
  /// information.
  CXMLElementToken(XMLTokenType type, const vesk::base::CUnicodeString& qualifiedName)
      : CXMLToken(type), m_qualifiedName(qualifiedName) {}
  /// type is XMLStartElement or XMLEndElement; the name as written, its local
  /// part and its namespace URI (empty for none).
  CXMLElementToken(XMLTokenType type, const vesk::base::CUnicodeString& qualifiedName,
                   const vesk::base::CUnicodeString& localName,
                   const vesk::base::CUnicodeString& namespaceURI)
      : CXMLToken(type),
        m_qualifiedName(qualifiedName),
        m_localName(localName),
        m_namespaceURI(namespaceURI) {}
  /// Releases the token's strings.
  ~CXMLElementToken() override;

  bool HasNamespace() const override { return !m_namespaceURI.IsEmpty(); }
  const vesk::base::CUnicodeString& GetQualifiedName() const override { return m_qualifiedName; }
  const vesk::base::CUnicodeString& GetLocalName() const override { return m_localName; }
  const vesk::base::CUnicodeString& GetNamespaceURI() const override { return m_namespaceURI; }

 private:
  /// The XML reader fills a token again that nobody else holds any more.
  friend class internal::CXMLTextTokenizer;

  vesk::base::CUnicodeString m_qualifiedName;
  vesk::base::CUnicodeString m_localName;
  vesk::base::CUnicodeString m_namespaceURI;
};

}  // namespace io
}  // namespace vesk

#endif
