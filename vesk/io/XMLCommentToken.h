/// \file
/// CXMLCommentToken: a comment token.
#ifndef VESK_IO_XMLCOMMENTTOKEN_H
#define VESK_IO_XMLCOMMENTTOKEN_H

#include "vesk/io/IXMLCommentToken.h"
#include "vesk/io/XMLToken.h"

namespace vesk {
namespace io {

/// A comment (kind XMLComment): its text without "<!--" and "-->".
class VESK_API CXMLCommentToken : public CXMLToken, public virtual IXMLCommentToken {
  VESK_DECLARE_CLASS(CXMLCommentToken);

  /// A token holding text.
  explicit CXMLCommentToken(const vesk::base::CUnicodeString& text)
      : CXMLToken(XMLComment), m_text(text) {}
  /// Releases the token's strings.
  ~CXMLCommentToken() override;

  vesk::base::CUnicodeString GetValue() const override { return m_text; }
  const vesk::base::CUnicodeString& GetText() const override { return m_text; }

 private:
  vesk::base::CUnicodeString m_text;
};

}  // namespace io
}  // namespace vesk

#endif
