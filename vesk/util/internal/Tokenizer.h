// The tokenizer algorithm shared by CStringTokenizer (UTF-8, one character
// is a whole UTF-8 sequence) and CUnicodeStringTokenizer (one character is a
// 16-bit unit). Traits supply the character step and the delimiter test.
#ifndef VESK_UTIL_INTERNAL_TOKENIZER_H
#define VESK_UTIL_INTERNAL_TOKENIZER_H

#include <cstring>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/platform/Text.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"
#include "vesk/util/NoSuchElementException.h"

namespace vesk {
namespace util {
namespace internal {

/// Bit set of the ASCII delimiters, so the common case (ASCII delimiters
/// and text) never searches the delimiter set.
/// The tokenizers keep it as two words (unsigned long long[2]) of their own.
struct AsciiSet {
  unsigned long long* bits;

  void Clear() const { bits[0] = bits[1] = 0; }
  void Add(unsigned int c) const { bits[c >> 6] |= 1ULL << (c & 63); }
  bool Has(unsigned int c) const { return (bits[c >> 6] >> (c & 63)) & 1; }
};

struct NarrowTokenizerTraits {
  typedef char Ch;
  static constexpr const char* kSource = "vesk/util/StringTokenizer";

  static bool IsAscii(Ch c) { return static_cast<unsigned char>(c) < 0x80; }
  static unsigned int Unit(Ch c) { return static_cast<unsigned char>(c); }
  static unsigned int Length(const Ch* text) {
    return static_cast<unsigned int>(std::strlen(text));
  }
  /// Units of the character at text + pos (a NUL-terminated text).
  static unsigned int CharLength(const Ch* text, unsigned int pos) {
    return IsAscii(text[pos]) ? 1 : platform::TextCharLength(text + pos);
  }
  /// Whether the multi-unit (or non-ASCII) character at c, n units long,
  /// is one of the characters of set. A byte that does not form a whole
  /// character matches only that same stray byte in the set.
  static bool InSet(const Ch* set, const Ch* c, unsigned int n) {
    if (n == 1) return platform::TextFindChar(set, *c) != nullptr;
    char needle[5];
    std::memcpy(needle, c, n);
    needle[n] = 0;
    return platform::TextFindSubstring(set, needle, platform::kTextExactCase) != nullptr;
  }
};

struct WideTokenizerTraits {
  typedef unsigned short Ch;
  static constexpr const char* kSource = "vesk/util/UnicodeStringTokenizer";

  static bool IsAscii(Ch c) { return c < 0x80; }
  static unsigned int Unit(Ch c) { return c; }
  static unsigned int Length(const Ch* text) { return platform::Utf16Length(text); }
  static unsigned int CharLength(const Ch*, unsigned int) { return 1; }
  static bool InSet(const Ch* set, const Ch* c, unsigned int) {
    return platform::Utf16FindChar(set, *c) != nullptr;
  }
};

/// The tokenizer's state and rules over a text of Ch units; Str is the
/// string class that holds the text, the delimiters and the last token.
template <class Traits, class Str>
struct TokenizerBody {
  typedef typename Traits::Ch Ch;

  static void CheckDelimiters(const Ch* delimiters) {
    if (!delimiters || !*delimiters)
      VESK_THROW(Traits::kSource, base::CIllegalArgumentException, "Invalid delimiters.");
  }

  static void Init(const Ch* text, const Ch* delimiters, Str& source, unsigned int& length) {
    if (!text || !*text)
      VESK_THROW(Traits::kSource, base::CIllegalArgumentException, "Invalid source text.");
    CheckDelimiters(delimiters);
    source = text;
    length = source.GetLength();
  }

  static void SetDelimiters(const Ch* delimiters, Str& set, AsciiSet ascii) {
    CheckDelimiters(delimiters);
    set = delimiters;
    ascii.Clear();
    for (const Ch* p = delimiters; *p; ++p) {
      if (Traits::IsAscii(*p)) ascii.Add(Traits::Unit(*p));
    }
  }

  /// Units of the character at pos when it is a delimiter, else 0.
  static unsigned int DelimiterAt(const Ch* text, unsigned int pos, const Ch* set,
                                  AsciiSet ascii) {
    Ch c = text[pos];
    if (Traits::IsAscii(c)) return ascii.Has(Traits::Unit(c)) ? 1 : 0;
    unsigned int n = Traits::CharLength(text, pos);
    return Traits::InSet(set, text + pos, n) ? n : 0;
  }

  static unsigned int SkipDelimiters(const Ch* text, unsigned int pos, unsigned int length,
                                     const Ch* set, AsciiSet ascii) {
    while (pos < length) {
      unsigned int n = DelimiterAt(text, pos, set, ascii);
      if (n == 0) break;
      pos += n;
    }
    return pos;
  }

  static unsigned int SkipToken(const Ch* text, unsigned int pos, unsigned int length,
                                const Ch* set, AsciiSet ascii) {
    while (pos < length && DelimiterAt(text, pos, set, ascii) == 0)
      pos += Traits::CharLength(text, pos);
    return pos;
  }

  static bool HasMore(const Ch* text, unsigned int& pos, unsigned int length, const Ch* set,
                      AsciiSet ascii, bool returnDelimiters) {
    if (!returnDelimiters) pos = SkipDelimiters(text, pos, length, set, ascii);
    return pos < length;
  }

  static void Next(const Ch* text, unsigned int& pos, unsigned int length, const Ch* set,
                   AsciiSet ascii, bool returnDelimiters, Str& token) {
    if (returnDelimiters) {
      // With the flag every call steps one character and yields the empty
      // range just after the old position: callers rely on that count.
      if (pos >= length) VESK_THROW(Traits::kSource, CNoSuchElementException);
      pos += Traits::CharLength(text, pos);
      token.Empty();
      return;
    }
    pos = SkipDelimiters(text, pos, length, set, ascii);
    if (pos >= length) VESK_THROW(Traits::kSource, CNoSuchElementException);
    unsigned int start = pos;
    pos = SkipToken(text, pos, length, set, ascii);
    token.Set(text + start, pos - start);
  }

  static unsigned int Count(const Ch* text, unsigned int pos, unsigned int length, const Ch* set,
                            AsciiSet ascii, bool returnDelimiters) {
    unsigned int count = 0;
    while (pos < length) {
      unsigned int n = DelimiterAt(text, pos, set, ascii);
      if (n != 0) {
        if (returnDelimiters) ++count;
        pos += n;
        continue;
      }
      ++count;
      pos = SkipToken(text, pos, length, set, ascii);
    }
    return count;
  }
};

}  // namespace internal
}  // namespace util
}  // namespace vesk

#endif
