/// \file
/// CXMLCDATAToken: a CDATA token.
#ifndef VESK_IO_XMLCDATATOKEN_H
#define VESK_IO_XMLCDATATOKEN_H

#include "vesk/io/IXMLCDATAToken.h"
#include "vesk/io/XMLToken.h"

namespace vesk {
namespace io {

/// A CDATA section (kind XMLCDATA): its content without the delimiters.
class VESK_API CXMLCDATAToken : public CXMLToken, public virtual IXMLCDATAToken {
  VESK_DECLARE_CLASS(CXMLCDATAToken);

  /// A token holding text.
  explicit CXMLCDATAToken(const vesk::base::CUnicodeString& text)
      : CXMLToken(XMLCDATA), m_text(text) {}
  /// Releases the token's strings.
  ~CXMLCDATAToken() override;

  vesk::base::CUnicodeString GetValue() const override { return m_text; }
  const vesk::base::CUnicodeString& GetText() const override { return m_text; }

 private:
  vesk::base::CUnicodeString m_text;
};

}  // namespace io
}  // namespace vesk

#endif
