/// \file
/// CXMLTextToken: a character-data token.
#ifndef VESK_IO_XMLTEXTTOKEN_H
#define VESK_IO_XMLTEXTTOKEN_H

#include "vesk/io/IXMLTextToken.h"
#include "vesk/io/XMLToken.h"

namespace vesk {
namespace io {

namespace internal {
class CXMLTextTokenizer;
}

/// Character data (kind XMLText), entities expanded.
class VESK_API CXMLTextToken : public CXMLToken, public virtual IXMLTextToken {
  VESK_DECLARE_CLASS(CXMLTextToken);

  /// A token holding text.
  explicit CXMLTextToken(const vesk::base::CUnicodeString& text)
      : CXMLToken(XMLText), m_text(text) {}
  /// Releases the token's strings.
  ~CXMLTextToken() override;

  vesk::base::CUnicodeString GetValue() const override { return m_text; }
  const vesk::base::CUnicodeString& GetText() const override { return m_text; }

 private:
  /// The XML reader fills a token again that nobody else holds any more.
  friend class internal::CXMLTextTokenizer;

  vesk::base::CUnicodeString m_text;
};

}  // namespace io
}  // namespace vesk

#endif
