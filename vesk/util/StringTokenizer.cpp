#include "vesk/util/StringTokenizer.h"

#include "vesk/util/internal/Tokenizer.h"

namespace vesk {
namespace util {

namespace {
typedef internal::TokenizerBody<internal::NarrowTokenizerTraits, vesk::base::CString> Body;
}  // namespace

CStringTokenizer::CStringTokenizer(const char* text, const char* delimiters, bool returnDelimiters)
    : m_returnDelimiters(returnDelimiters), m_length(0), m_position(0) {
  Body::Init(text, delimiters, m_source, m_length);
  Body::SetDelimiters(delimiters, m_delimiters, internal::AsciiSet{m_asciiDelimiters});
}

unsigned int CStringTokenizer::GetTokenCount() const {
  return Body::Count(m_source, m_position, m_length, m_delimiters,
                     internal::AsciiSet{const_cast<unsigned long long*>(m_asciiDelimiters)},
                     m_returnDelimiters);
}

bool CStringTokenizer::HasMoreTokens() const {
  return Body::HasMore(m_source, m_position, m_length, m_delimiters,
                       internal::AsciiSet{const_cast<unsigned long long*>(m_asciiDelimiters)},
                       m_returnDelimiters);
}

const vesk::base::CString& CStringTokenizer::GetNextToken() {
  Body::Next(m_source, m_position, m_length, m_delimiters, internal::AsciiSet{m_asciiDelimiters},
             m_returnDelimiters, m_token);
  return m_token;
}

const vesk::base::CString& CStringTokenizer::GetNextToken(const char* delimiters) {
  Body::SetDelimiters(delimiters, m_delimiters, internal::AsciiSet{m_asciiDelimiters});
  return GetNextToken();
}

}  // namespace util
}  // namespace vesk
