#include "vesk/util/UnicodeStringTokenizer.h"

#include "vesk/util/internal/Tokenizer.h"

namespace vesk {
namespace util {

namespace {
typedef internal::TokenizerBody<internal::WideTokenizerTraits, vesk::base::CUnicodeString> Body;
}  // namespace

CUnicodeStringTokenizer::CUnicodeStringTokenizer(const unsigned short* text, const unsigned short* delimiters, bool returnDelimiters)
    : m_returnDelimiters(returnDelimiters), m_length(0), m_position(0) {
  Body::Init(text, delimiters, m_source, m_length);
  Body::SetDelimiters(delimiters, m_delimiters, internal::AsciiSet{m_asciiDelimiters});
}

unsigned int CUnicodeStringTokenizer::GetTokenCount() const {
  return Body::Count(m_source, m_position, m_length, m_delimiters,
                     internal::AsciiSet{const_cast<unsigned long long*>(m_asciiDelimiters)},
                     m_returnDelimiters);
}

bool CUnicodeStringTokenizer::HasMoreTokens() const {
  return Body::HasMore(m_source, m_position, m_length, m_delimiters,
                       internal::AsciiSet{const_cast<unsigned long long*>(m_asciiDelimiters)},
                       m_returnDelimiters);
}

const vesk::base::CUnicodeString& CUnicodeStringTokenizer::GetNextToken() {
  Body::Next(m_source, m_position, m_length, m_delimiters, internal::AsciiSet{m_asciiDelimiters},
             m_returnDelimiters, m_token);
  return m_token;
}

const vesk::base::CUnicodeString& CUnicodeStringTokenizer::GetNextToken(const unsigned short* delimiters) {
  Body::SetDelimiters(delimiters, m_delimiters, internal::AsciiSet{m_asciiDelimiters});
  return GetNextToken();
}

}  // namespace util
}  // namespace vesk
