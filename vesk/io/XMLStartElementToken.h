/// \file
/// CXMLStartElementToken: a start-element token.
#ifndef VESK_IO_XMLSTARTELEMENTTOKEN_H
#define VESK_IO_XMLSTARTELEMENTTOKEN_H

#include "vesk/io/IXMLStartElementToken.h"
#include "vesk/io/XMLAttributeList.h"
#include "vesk/io/XMLElementToken.h"

namespace vesk {
namespace io {

/// A start element (kind XMLStartElement): the names and a copy of the
/// attribute list it was made with.
class VESK_API CXMLStartElementToken : public CXMLElementToken,
                                       public virtual IXMLStartElementToken {
  VESK_DECLARE_CLASS(CXMLStartElementToken);

  /// The raw name only (local name and namespace URI stay empty).
  CXMLStartElementToken(const vesk::base::CUnicodeString& qualifiedName,
                        const CXMLAttributeList& attributes)
      : CXMLElementToken(XMLStartElement, qualifiedName), m_attributes(attributes) {}
  /// The name as written, its local part, its namespace URI (empty for none)
  /// and a copy of attributes.
  CXMLStartElementToken(const vesk::base::CUnicodeString& qualifiedName,
                        const vesk::base::CUnicodeString& localName,
                        const vesk::base::CUnicodeString& namespaceURI,
                        const CXMLAttributeList& attributes)
      : CXMLElementToken(XMLStartElement, qualifiedName, localName, namespaceURI),
        m_attributes(attributes) {}
  /// Releases the names and the copy of the attribute list.
  ~CXMLStartElementToken() override;

  const CXMLAttributeList& GetAttributes() const override { return m_attributes; }

 private:
  CXMLAttributeList m_attributes;
};

}  // namespace io
}  // namespace vesk

#endif
