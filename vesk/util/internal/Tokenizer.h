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

// The walks sit on every token's path: inlined into the calls that use them.
#if defined(__GNUC__)
#define VESK_TOKENIZER_INLINE __attribute__((always_inline)) inline
#else
#define VESK_TOKENIZER_INLINE inline
#endif

namespace vesk {
namespace util {
namespace internal {

/// Bit set of the ASCII delimiters, so the common case (ASCII delimiters
/// and text) never searches the delimiter set.
/// The tokenizers keep it as two words (unsigned long long[2]) of their own.
/// Bit 0 (NUL, which ends a set and so is never in one) records instead
/// whether the set holds characters beyond ASCII.
struct AsciiSet {
  unsigned long long* bits;

  void Clear() const { bits[0] = bits[1] = 0; }
  void Add(unsigned int c) const { bits[c >> 6] |= 1ULL << (c & 63); }
  void MarkBeyondAscii() const { bits[0] |= 1; }
  bool Has(unsigned int c) const { return (bits[c >> 6] >> (c & 63)) & 1; }
  /// Whether every delimiter is ASCII. No unit of a UTF-8 or UTF-16
  /// character beyond ASCII is below 0x80, so the text can then be walked
  /// unit by unit.
  bool AsciiOnly() const { return (bits[0] & 1) == 0; }
};

/// The set's two words held in registers while a loop walks the text (a
/// char text may alias the words, so the compiler would reload them at
/// every character).
struct AsciiLookup {
  explicit AsciiLookup(AsciiSet set) : low(set.bits[0]), high(set.bits[1]) {}
  bool Has(unsigned int c) const { return ((c < 64 ? low >> c : high >> (c - 64)) & 1) != 0; }
  /// The delimiter when the set holds exactly one (the usual case, walked
  /// with a plain compare); -1 otherwise.
  int Single() const {
    if (high == 0 && low != 0 && (low & (low - 1)) == 0) return __builtin_ctzll(low);
    if (low == 0 && high != 0 && (high & (high - 1)) == 0) return 64 + __builtin_ctzll(high);
    return -1;
  }
  unsigned long long low;
  unsigned long long high;
};

struct NarrowTokenizerTraits {
  typedef char Ch;
  static constexpr const char* kSource = "vesk/util/StringTokenizer";

  static bool IsAscii(Ch c) { return static_cast<unsigned char>(c) < 0x80; }
  static unsigned int Unit(Ch c) { return static_cast<unsigned char>(c); }
  static unsigned int Length(const Ch* text) {
    return static_cast<unsigned int>(std::strlen(text));
  }
  /// First unit c at or after pos, else length.
  static unsigned int FindUnit(const Ch* text, unsigned int pos, unsigned int length, Ch c) {
    const void* hit = std::memchr(text + pos, c, length - pos);
    return hit ? static_cast<unsigned int>(static_cast<const Ch*>(hit) - text) : length;
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
  static unsigned int FindUnit(const Ch* text, unsigned int pos, unsigned int length, Ch c) {
    while (pos < length && text[pos] != c) ++pos;
    return pos;
  }
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
      if (Traits::IsAscii(*p)) {
        ascii.Add(Traits::Unit(*p));
      } else {
        ascii.MarkBeyondAscii();
      }
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

  VESK_TOKENIZER_INLINE static unsigned int SkipDelimiters(const Ch* text, unsigned int pos, unsigned int length,
                                     const Ch* set, AsciiSet ascii) {
    if (ascii.AsciiOnly()) {
      AsciiLookup lookup(ascii);
      int single = lookup.Single();
      if (single >= 0) {
        while (pos < length && text[pos] == static_cast<Ch>(single)) ++pos;
        return pos;
      }
      while (pos < length && Traits::IsAscii(text[pos]) && lookup.Has(Traits::Unit(text[pos])))
        ++pos;
      return pos;
    }
    while (pos < length) {
      unsigned int n = DelimiterAt(text, pos, set, ascii);
      if (n == 0) break;
      pos += n;
    }
    return pos;
  }

  VESK_TOKENIZER_INLINE static unsigned int SkipToken(const Ch* text, unsigned int pos, unsigned int length,
                                const Ch* set, AsciiSet ascii) {
    if (ascii.AsciiOnly()) {
      AsciiLookup lookup(ascii);
      int single = lookup.Single();
      if (single >= 0) return Traits::FindUnit(text, pos, length, static_cast<Ch>(single));
      while (pos < length && !(Traits::IsAscii(text[pos]) && lookup.Has(Traits::Unit(text[pos]))))
        ++pos;
      return pos;
    }
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
