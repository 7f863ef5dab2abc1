/// \file
/// CStringTokenizer: the tokenizer of narrow (UTF-8) text.
#ifndef VESK_UTIL_STRINGTOKENIZER_H
#define VESK_UTIL_STRINGTOKENIZER_H

#include "vesk/base/Base.h"
#include "vesk/base/String.h"

namespace vesk {
namespace util {

/// Splits a text into tokens separated by any character of a delimiter set,
/// one token at a time. Positions and lengths count bytes, and a character is a whole UTF-8 sequence: a multi-byte character is a delimiter when the delimiter set holds that same character.
///
/// Without the delimiter flag, runs of delimiters separate tokens and are
/// never returned. With the flag set, every GetNextToken steps exactly one
/// character and returns an empty token, and GetTokenCount counts every
/// delimiter character besides the runs of other characters; existing
/// callers depend on this, so it stays as it is.
///
/// Copies share the text and the delimiters. A tokenizer and its copies
/// belong to one thread at a time.
class VESK_API CStringTokenizer : public vesk::base::CBase {
 public:
  /// Throws CIllegalArgumentException: "Invalid source text." for a null or
  /// empty text (checked first), "Invalid delimiters." for a null or empty
  /// delimiter set.
  CStringTokenizer(const char* text, const char* delimiters, bool returnDelimiters);
  /// A copy with other's text, delimiters and position.
  CStringTokenizer(const CStringTokenizer& other) = default;
  /// Takes other's text, delimiters and position.
  CStringTokenizer& operator=(const CStringTokenizer& other) = default;
  /// Releases the copies of text and delimiters.
  ~CStringTokenizer() = default;

  /// Tokens from the current position to the end; the position stays.
  unsigned int GetTokenCount() const;
  /// Whether another token exists. Without the delimiter flag this moves the
  /// position past the delimiters ahead, although the call is const.
  bool HasMoreTokens() const;
  /// The next token; CNoSuchElementException at the end. The reference is
  /// valid until the next call.
  const vesk::base::CString& GetNextToken();
  /// Replaces the delimiter set for this and every later call, then returns
  /// the next token. The position is not moved first: a character it rests on
  /// that the new set does not hold begins the token. Null or empty
  /// delimiters throw CIllegalArgumentException ("Invalid delimiters.").
  const vesk::base::CString& GetNextToken(const char* delimiters);

 private:
  vesk::base::CString m_source;
  vesk::base::CString m_delimiters;
  bool m_returnDelimiters;
  unsigned int m_length;
  mutable unsigned int m_position;
  vesk::base::CString m_token;
  // The ASCII characters of the delimiter set, one bit each.
  unsigned long long m_asciiDelimiters[2];
};

}  // namespace util
}  // namespace vesk

#endif
