#include "vesk/platform/Text.h"

#include <cctype>
#include <cstdint>
#include <cstring>

#include "vesk/platform/CaseMapping.h"

namespace vesk {
namespace platform {

namespace {

const std::size_t kUnbounded = static_cast<std::size_t>(-1);

inline bool IsContinuation(unsigned char b) { return (b & 0xC0) == 0x80; }

// Key of the next character for a case-insensitive comparison: the folded
// code point, or a value above every code point for a malformed byte so that
// such bytes keep their relative order and never equal a character.
inline int FoldKey(int codePoint, unsigned char byte) {
  if (codePoint < 0) return 0x110000 + byte;
  return CaseFold(codePoint);
}

// Whether the character of length bytes at p is one of the characters of set.
bool SetContains(const char* set, std::size_t setLength, const char* p, unsigned int length) {
  std::size_t i = 0;
  while (i < setLength) {
    int cp;
    unsigned int k = Utf8Decode(set + i, setLength - i, &cp);
    if (k == length && std::memcmp(set + i, p, length) == 0) return true;
    i += k;
  }
  return false;
}

// Matches needle at text ignoring case; both NUL-terminated.
bool MatchIgnoreCase(const char* text, const char* needle) {
  while (*needle) {
    if (!*text) return false;
    int a, b;
    unsigned int ka = Utf8Decode(text, kUnbounded, &a);
    unsigned int kb = Utf8Decode(needle, kUnbounded, &b);
    if (FoldKey(a, static_cast<unsigned char>(*text)) !=
        FoldKey(b, static_cast<unsigned char>(*needle)))
      return false;
    text += ka;
    needle += kb;
  }
  return true;
}

}  // namespace

unsigned int Utf8Decode(const char* text, std::size_t available, int* codePoint) {
  if (available == 0) {
    *codePoint = -1;
    return 0;
  }
  const unsigned char* s = reinterpret_cast<const unsigned char*>(text);
  unsigned char b0 = s[0];
  if (b0 < 0x80) {
    *codePoint = b0;
    return 1;
  }
  unsigned int need;
  unsigned char low = 0x80, high = 0xBF;  // allowed range of the second byte
  int cp;
  if (b0 >= 0xC2 && b0 <= 0xDF) {
    need = 1;
    cp = b0 & 0x1F;
  } else if (b0 >= 0xE0 && b0 <= 0xEF) {
    need = 2;
    cp = b0 & 0x0F;
    if (b0 == 0xE0)
      low = 0xA0;  // overlong
    else if (b0 == 0xED)
      high = 0x9F;  // surrogates
  } else if (b0 >= 0xF0 && b0 <= 0xF4) {
    need = 3;
    cp = b0 & 0x07;
    if (b0 == 0xF0)
      low = 0x90;  // overlong
    else if (b0 == 0xF4)
      high = 0x8F;  // above U+10FFFF
  } else {
    *codePoint = -1;
    return 1;
  }
  if (available <= need) {
    // Too few bytes given: only well-formed if they are all there.
    *codePoint = -1;
    return 1;
  }
  unsigned char b1 = s[1];
  if (b1 < low || b1 > high) {
    *codePoint = -1;
    return 1;
  }
  cp = (cp << 6) | (b1 & 0x3F);
  for (unsigned int i = 2; i <= need; ++i) {
    if (!IsContinuation(s[i])) {
      *codePoint = -1;
      return 1;
    }
    cp = (cp << 6) | (s[i] & 0x3F);
  }
  *codePoint = cp;
  return need + 1;
}

unsigned int Utf8Encode(int cp, char* out) {
  unsigned char* o = reinterpret_cast<unsigned char*>(out);
  if (cp < 0) return 0;
  if (cp < 0x80) {
    o[0] = static_cast<unsigned char>(cp);
    return 1;
  }
  if (cp < 0x800) {
    o[0] = static_cast<unsigned char>(0xC0 | (cp >> 6));
    o[1] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
    return 2;
  }
  if (cp < 0x10000) {
    if (cp >= 0xD800 && cp <= 0xDFFF) return 0;
    o[0] = static_cast<unsigned char>(0xE0 | (cp >> 12));
    o[1] = static_cast<unsigned char>(0x80 | ((cp >> 6) & 0x3F));
    o[2] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
    return 3;
  }
  if (cp > 0x10FFFF) return 0;
  o[0] = static_cast<unsigned char>(0xF0 | (cp >> 18));
  o[1] = static_cast<unsigned char>(0x80 | ((cp >> 12) & 0x3F));
  o[2] = static_cast<unsigned char>(0x80 | ((cp >> 6) & 0x3F));
  o[3] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
  return 4;
}

unsigned int TextCharLength(const char* text) {
  // A NUL is never a continuation byte, so decoding stops at the terminator.
  int cp;
  return Utf8Decode(text, kUnbounded, &cp);
}

const char* TextNextChar(const char* text) {
  if (!*text) return text;
  return text + TextCharLength(text);
}

int TextCompare(const char* a, int lengthA, const char* b, int lengthB, int caseType) {
  if (!a) a = "";
  if (!b) b = "";
  std::size_t na = lengthA < 0 ? std::strlen(a) : static_cast<std::size_t>(lengthA);
  std::size_t nb = lengthB < 0 ? std::strlen(b) : static_cast<std::size_t>(lengthB);
  if (caseType != kTextIgnoreCase) {
    std::size_t n = na < nb ? na : nb;
    int r = std::memcmp(a, b, n);
    if (r != 0) return r < 0 ? -1 : 1;
    return na < nb ? -1 : (na > nb ? 1 : 0);
  }
  std::size_t i = 0, j = 0;
  while (i < na && j < nb) {
    int ca, cb;
    unsigned int ka = Utf8Decode(a + i, na - i, &ca);
    unsigned int kb = Utf8Decode(b + j, nb - j, &cb);
    int fa = FoldKey(ca, static_cast<unsigned char>(a[i]));
    int fb = FoldKey(cb, static_cast<unsigned char>(b[j]));
    if (fa != fb) return fa < fb ? -1 : 1;
    i += ka;
    j += kb;
  }
  if (i < na) return 1;
  if (j < nb) return -1;
  return 0;
}

const char* TextFindChar(const char* text, char c) {
  if (!text || c == '\0') return nullptr;
  // An ASCII byte never occurs inside a multi-byte character.
  if (static_cast<unsigned char>(c) < 0x80) return std::strchr(text, c);
  for (const char* p = text; *p; p = TextNextChar(p)) {
    if (*p == c && TextCharLength(p) == 1) return p;
  }
  return nullptr;
}

const char* TextFindCharRight(const char* text, char c) {
  if (!text || c == '\0') return nullptr;
  if (static_cast<unsigned char>(c) < 0x80) return std::strrchr(text, c);
  const char* found = nullptr;
  for (const char* p = text; *p; p = TextNextChar(p)) {
    if (*p == c && TextCharLength(p) == 1) found = p;
  }
  return found;
}

const char* TextFindSubstring(const char* text, const char* needle, int caseType) {
  if (!text || !needle) return nullptr;
  if (!*needle) return text;
  if (caseType != kTextIgnoreCase) {
    // A needle that starts with a byte other than a continuation byte can
    // only match where a character starts.
    if (!IsContinuation(static_cast<unsigned char>(*needle))) return std::strstr(text, needle);
    std::size_t n = std::strlen(needle);
    for (const char* p = text; *p; p = TextNextChar(p)) {
      if (std::strncmp(p, needle, n) == 0) return p;
    }
    return nullptr;
  }
  for (const char* p = text; *p; p = TextNextChar(p)) {
    if (MatchIgnoreCase(p, needle)) return p;
  }
  return nullptr;
}

bool TextIsSpace(const char* text) {
  unsigned char b = static_cast<unsigned char>(*text);
  return b != 0 && b < 0x80 && std::isspace(b);
}

const char* TextSkipSpace(const char* text) {
  while (TextIsSpace(text)) ++text;
  return text;
}

const char* TextTrailingSpace(const char* text) {
  const char* run = nullptr;  // start of the current run of white space
  const char* p = text;
  for (; *p; p = TextNextChar(p)) {
    if (TextIsSpace(p)) {
      if (!run) run = p;
    } else {
      run = nullptr;
    }
  }
  return run ? run : p;
}

const char* TextSkipSet(const char* text, const char* set, std::size_t setLength) {
  while (*text) {
    unsigned int k = TextCharLength(text);
    if (!SetContains(set, setLength, text, k)) break;
    text += k;
  }
  return text;
}

const char* TextTrailingSet(const char* text, const char* set, std::size_t setLength) {
  const char* run = nullptr;
  const char* p = text;
  while (*p) {
    unsigned int k = TextCharLength(p);
    if (SetContains(set, setLength, p, k)) {
      if (!run) run = p;
    } else {
      run = nullptr;
    }
    p += k;
  }
  return run ? run : p;
}

void TextMapCase(char* text, std::size_t length, bool upper) {
  std::size_t i = 0;
  while (i < length) {
    int cp;
    unsigned int k = Utf8Decode(text + i, length - i, &cp);
    if (cp >= 0) {
      int mapped = upper ? CaseUpper(cp) : CaseLower(cp);
      if (mapped != cp) {
        char encoded[4];
        // A mapping that changes the byte length would move the rest of the
        // text; such characters keep their original form.
        if (Utf8Encode(mapped, encoded) == k) std::memcpy(text + i, encoded, k);
      }
    }
    i += k;
  }
}

void TextReverse(char* text, std::size_t length) {
  // Reverse the bytes of every multi-byte character first, then the whole
  // text: each character then reads forwards again.
  std::size_t i = 0;
  while (i < length) {
    int cp;
    unsigned int k = Utf8Decode(text + i, length - i, &cp);
    for (std::size_t lo = i, hi = i + k - 1; lo < hi; ++lo, --hi) {
      char t = text[lo];
      text[lo] = text[hi];
      text[hi] = t;
    }
    i += k;
  }
  if (length < 2) return;
  for (std::size_t lo = 0, hi = length - 1; lo < hi; ++lo, --hi) {
    char t = text[lo];
    text[lo] = text[hi];
    text[hi] = t;
  }
}

}  // namespace platform
}  // namespace vesk
