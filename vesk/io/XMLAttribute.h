/// \file
/// CXMLAttribute: one attribute of a start element.
#ifndef VESK_IO_XMLATTRIBUTE_H
#define VESK_IO_XMLATTRIBUTE_H

#include "vesk/base/Base.h"
#include "vesk/base/UnicodeString.h"

namespace vesk {
namespace io {

/// An attribute record: qualified name (as written, with its prefix), local
/// name, namespace URI (empty for an attribute without prefix) and value
/// (normalised by the parser). Records are filled once and never changed.
class VESK_API CXMLAttribute : public vesk::base::CBase {
 public:
  /// Null arguments are stored as empty strings.
  CXMLAttribute(const vesk::base::CUnicodeString& qualifiedName,
                const vesk::base::CUnicodeString& localName,
                const vesk::base::CUnicodeString& namespaceURI,
                const vesk::base::CUnicodeString& value)
      : m_qualifiedName(qualifiedName),
        m_localName(localName),
        m_namespaceURI(namespaceURI),
        m_value(value) {}

  /// The name as written, with its prefix.
  const vesk::base::CUnicodeString& GetQualifiedName() const { return m_qualifiedName; }
  /// The name without its prefix.
  const vesk::base::CUnicodeString& GetLocalName() const { return m_localName; }
  /// The namespace URI; empty for an attribute without prefix.
  const vesk::base::CUnicodeString& GetNamespaceURI() const { return m_namespaceURI; }
  /// The value, as normalised by the parser.
  const vesk::base::CUnicodeString& GetValue() const { return m_value; }

 private:
  vesk::base::CUnicodeString m_qualifiedName;
  vesk::base::CUnicodeString m_localName;
  vesk::base::CUnicodeString m_namespaceURI;
  vesk::base::CUnicodeString m_value;
};

}  // namespace io
}  // namespace vesk

#endif
