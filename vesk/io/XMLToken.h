/// \file
/// CXMLToken: the shared implementation of the XML tokens.
#ifndef VESK_IO_XMLTOKEN_H
#define VESK_IO_XMLTOKEN_H

#include "vesk/base/Object.h"
#include "vesk/io/IXMLToken.h"

namespace vesk {
namespace io {

/// The base of the concrete tokens: it holds the kind, fixed at construction,
/// and answers GetType. Concrete tokens derive from it and from their
/// interface; both reach IXMLToken virtually, so there is one IXMLToken.
class VESK_API CXMLToken : public vesk::base::CObject, public virtual IXMLToken {
  VESK_DECLARE_CLASS(CXMLToken);

  /// A token of kind type.
  explicit CXMLToken(XMLTokenType type) : m_type(static_cast<unsigned int>(type)) {}
  /// Nothing to release: the kind is all a CXMLToken holds.
  ~CXMLToken() override;

  XMLTokenType GetType() const override { return static_cast<XMLTokenType>(m_type); }
  /// The empty string; the text tokens answer their text.
  vesk::base::CUnicodeString GetValue() const override;

 private:
  unsigned int m_type;
};

}  // namespace io
}  // namespace vesk

#endif
