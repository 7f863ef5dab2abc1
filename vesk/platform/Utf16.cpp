#include "vesk/platform/Utf16.h"

#include <cstdint>
#include <cstring>

#if defined(__SSE2__) || defined(_M_X64) || (defined(_M_IX86_FP) && _M_IX86_FP >= 2)
#include <emmintrin.h>
#define VESK_SCAN_SSE2 1
#if defined(_MSC_VER) && !defined(__clang__)
#include <intrin.h>
#endif
#endif

#if defined(__clang__) || defined(__GNUC__)
#define VESK_NO_SANITIZE_ADDRESS __attribute__((no_sanitize_address))
#elif defined(_MSC_VER)
#define VESK_NO_SANITIZE_ADDRESS __declspec(no_sanitize_address)
#else
#define VESK_NO_SANITIZE_ADDRESS
#endif

#include "vesk/platform/CaseMapping.h"
#include "vesk/platform/Text.h"

namespace vesk {
namespace platform {

namespace {

inline bool IsHigh(unsigned int u) { return u >= 0xD800 && u <= 0xDBFF; }
inline bool IsLow(unsigned int u) { return u >= 0xDC00 && u <= 0xDFFF; }

const std::size_t kUnbounded = static_cast<std::size_t>(-1);

#if defined(VESK_SCAN_SSE2)
// The index of the lowest set bit of a mask that is not 0.
inline unsigned int FirstSetBit(unsigned int mask) {
#if defined(_MSC_VER) && !defined(__clang__)
  unsigned long index;
  _BitScanForward(&index, mask);
  return static_cast<unsigned int>(index);
#else
  return static_cast<unsigned int>(__builtin_ctz(mask));
#endif
}
#endif

// The index of the first zero unit of text, or maxUnits when none of the
// first maxUnits units is zero. Whole aligned 16-byte blocks are read: a
// block never spans two pages, so the units read beyond the zero unit or
// beyond maxUnits lie on a page that holds units of the text itself. The
// address checker would take those reads for overflows, so it skips this
// function.
VESK_NO_SANITIZE_ADDRESS std::size_t ScanToZero(const unsigned short* text, std::size_t maxUnits) {
  if (maxUnits == 0) return 0;
  std::uintptr_t address = reinterpret_cast<std::uintptr_t>(text);
#if defined(VESK_SCAN_SSE2)
  if ((address & 1) == 0) {
    const __m128i zero = _mm_setzero_si128();
    const unsigned short* block = reinterpret_cast<const unsigned short*>(address & ~std::uintptr_t(15));
    std::size_t skipped = static_cast<std::size_t>(text - block);
    unsigned int mask = static_cast<unsigned int>(_mm_movemask_epi8(
        _mm_cmpeq_epi16(_mm_load_si128(reinterpret_cast<const __m128i*>(block)), zero)));
    mask &= ~0u << (2 * skipped);
    // Units of text before block.
    std::size_t before = 0;
    while (mask == 0) {
      before += 8 - skipped;
      skipped = 0;
      if (before >= maxUnits) return maxUnits;
      block += 8;
      mask = static_cast<unsigned int>(_mm_movemask_epi8(
          _mm_cmpeq_epi16(_mm_load_si128(reinterpret_cast<const __m128i*>(block)), zero)));
    }
    std::size_t n = before + FirstSetBit(mask) / 2 - skipped;
    return n < maxUnits ? n : maxUnits;
  }
#endif
  std::size_t n = 0;
  while (n < maxUnits && text[n]) ++n;
  return n;
}

// Reads the code point at text[i] (i < n); returns the units it takes. An
// unpaired surrogate is returned as itself.
inline unsigned int NextCodePoint(const unsigned short* text, std::size_t i, std::size_t n,
                                  int* cp) {
  unsigned int u = text[i];
  if (IsHigh(u) && i + 1 < n && IsLow(text[i + 1])) {
    *cp = 0x10000 + ((static_cast<int>(u) - 0xD800) << 10) + (text[i + 1] - 0xDC00);
    return 2;
  }
  *cp = static_cast<int>(u);
  return 1;
}

// Walks a text and hands out the units of its case-folded form.
class CFoldedUnits {
 public:
  CFoldedUnits(const unsigned short* text, std::size_t length)
      : m_text(text), m_length(length), m_pos(0), m_pending(0) {}
  // Next folded unit; false at the end.
  bool Next(unsigned int* unit) {
    if (m_pending) {
      *unit = m_pending;
      m_pending = 0;
      return true;
    }
    if (m_pos >= m_length || (m_length == kUnbounded && m_text[m_pos] == 0)) return false;
    int cp;
    m_pos += NextCodePoint(m_text, m_pos, m_length, &cp);
    if (cp >= 0xD800 && cp <= 0xDFFF) {
      *unit = static_cast<unsigned int>(cp);  // unpaired surrogate: no case
      return true;
    }
    int folded = CaseFold(cp);
    if (folded >= 0x10000) {
      folded -= 0x10000;
      *unit = 0xD800 + (static_cast<unsigned int>(folded) >> 10);
      m_pending = 0xDC00 + (static_cast<unsigned int>(folded) & 0x3FF);
    } else {
      *unit = static_cast<unsigned int>(folded);
    }
    return true;
  }

 private:
  const unsigned short* m_text;
  std::size_t m_length;  // kUnbounded: up to the zero unit
  std::size_t m_pos;
  unsigned int m_pending;
};

// Matches needle at text ignoring case (both zero-terminated).
bool MatchIgnoreCase(const unsigned short* text, const unsigned short* needle) {
  CFoldedUnits t(text, kUnbounded), n(needle, kUnbounded);
  unsigned int a, b;
  while (n.Next(&b)) {
    if (!t.Next(&a) || a != b) return false;
  }
  return true;
}

}  // namespace

unsigned int Utf16Length(const unsigned short* text) {
  if (!text) return 0;
  return static_cast<unsigned int>(ScanToZero(text, kUnbounded));
}

unsigned int Utf16LengthBounded(const unsigned short* text, unsigned int maxUnits) {
  if (!text) return 0;
  return static_cast<unsigned int>(ScanToZero(text, maxUnits));
}

int Utf16CompareTexts(const unsigned short* a, int lengthA, const unsigned short* b, int lengthB,
                      int caseType) {
  static const unsigned short kEmpty[1] = {0};
  if (!a) a = kEmpty;
  if (!b) b = kEmpty;
  std::size_t na = lengthA < 0 ? Utf16Length(a) : static_cast<std::size_t>(lengthA);
  std::size_t nb = lengthB < 0 ? Utf16Length(b) : static_cast<std::size_t>(lengthB);
  if (caseType != kTextIgnoreCase) {
    std::size_t n = na < nb ? na : nb;
    for (std::size_t i = 0; i < n; ++i) {
      if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
    }
    return na < nb ? -1 : (na > nb ? 1 : 0);
  }
  CFoldedUnits fa(a, na), fb(b, nb);
  for (;;) {
    unsigned int ua, ub;
    bool hasA = fa.Next(&ua);
    bool hasB = fb.Next(&ub);
    if (!hasA) return hasB ? -1 : 0;
    if (!hasB) return 1;
    if (ua != ub) return ua < ub ? -1 : 1;
  }
}

int Utf16Compare(const unsigned short* a, const unsigned short* b) {
  return Utf16CompareTexts(a, -1, b, -1, kTextExactCase);
}

int Utf16CompareIgnoreCase(const unsigned short* a, const unsigned short* b) {
  return Utf16CompareTexts(a, -1, b, -1, kTextIgnoreCase);
}

const unsigned short* Utf16FindChar(const unsigned short* text, unsigned short c) {
  if (!text || c == 0) return nullptr;
  for (; *text; ++text) {
    if (*text == c) return text;
  }
  return nullptr;
}

const unsigned short* Utf16FindCharRight(const unsigned short* text, unsigned short c) {
  if (!text || c == 0) return nullptr;
  const unsigned short* found = nullptr;
  for (; *text; ++text) {
    if (*text == c) found = text;
  }
  return found;
}

const unsigned short* Utf16FindSubstring(const unsigned short* text, const unsigned short* needle,
                                         int caseType) {
  if (!text || !needle) return nullptr;
  if (!*needle) return text;
  if (caseType != kTextIgnoreCase) {
    for (; *text; ++text) {
      const unsigned short* t = text;
      const unsigned short* n = needle;
      while (*n && *t == *n) {
        ++t;
        ++n;
      }
      if (!*n) return text;
    }
    return nullptr;
  }
  while (*text) {
    if (MatchIgnoreCase(text, needle)) return text;
    text += (IsHigh(text[0]) && IsLow(text[1])) ? 2 : 1;
  }
  return nullptr;
}

bool Utf16IsSpace(unsigned short c) {
  if (c < 0x80) return (c >= 0x09 && c <= 0x0D) || (c >= 0x1C && c <= 0x20);
  // The next-line control, the space separators (Zs) beyond ASCII, then the
  // line (Zl) and paragraph (Zp) separators: a closed set, the same on every
  // host.
  return c == 0x0085 || c == 0x00A0 || c == 0x1680 || (c >= 0x2000 && c <= 0x200A) || c == 0x202F ||
         c == 0x205F || c == 0x3000 || c == 0x2028 || c == 0x2029;
}

void Utf16MapCase(unsigned short* text, std::size_t length, bool upper) {
  std::size_t i = 0;
  while (i < length) {
    int cp;
    unsigned int k = NextCodePoint(text, i, length, &cp);
    if (!(cp >= 0xD800 && cp <= 0xDFFF)) {
      int mapped = upper ? CaseUpper(cp) : CaseLower(cp);
      unsigned int units = mapped >= 0x10000 ? 2 : 1;
      // Only mappings of the same size are applied: the text keeps its length.
      if (mapped != cp && units == k) {
        if (units == 1) {
          text[i] = static_cast<unsigned short>(mapped);
        } else {
          int v = mapped - 0x10000;
          text[i] = static_cast<unsigned short>(0xD800 + (v >> 10));
          text[i + 1] = static_cast<unsigned short>(0xDC00 + (v & 0x3FF));
        }
      }
    }
    i += k;
  }
}

std::size_t Utf16ToUtf8(const unsigned short* src, int srcUnits, char* target,
                        std::size_t targetSize) {
  if (!src) return 0;
  std::size_t n = srcUnits < 0 ? Utf16Length(src) : static_cast<std::size_t>(srcUnits);
  std::size_t out = 0;
  std::size_t i = 0;
  while (i < n) {
    int cp;
    unsigned int k = NextCodePoint(src, i, n, &cp);
    char bytes[4];
    unsigned int len = Utf8Encode(cp, bytes);
    if (len == 0) {  // unpaired surrogate
      bytes[0] = '?';
      len = 1;
    }
    if (target) {
      if (targetSize - out < len) break;
      std::memcpy(target + out, bytes, len);
    }
    out += len;
    i += k;
  }
  return out;
}

std::size_t Utf8ToUtf16(const char* src, int srcBytes, unsigned short* target,
                        std::size_t targetSize) {
  if (!src) return 0;
  std::size_t n = srcBytes < 0 ? std::strlen(src) : static_cast<std::size_t>(srcBytes);
  std::size_t out = 0;
  std::size_t i = 0;
  while (i < n) {
    int cp;
    unsigned int k = Utf8Decode(src + i, n - i, &cp);
    unsigned short units[2];
    unsigned int len = 1;
    if (cp < 0) {
      units[0] = '?';
    } else if (cp >= 0x10000) {
      units[0] = static_cast<unsigned short>(0xD800 + ((cp - 0x10000) >> 10));
      units[1] = static_cast<unsigned short>(0xDC00 + ((cp - 0x10000) & 0x3FF));
      len = 2;
    } else {
      units[0] = static_cast<unsigned short>(cp);
    }
    if (target) {
      if (targetSize - out < len) break;
      target[out] = units[0];
      if (len == 2) target[out + 1] = units[1];
    }
    out += len;
    i += k;
  }
  return out;
}

}  // namespace platform
}  // namespace vesk
