#include "vesk/base/UnicodeString.h"

#include <climits>
#include <cstdint>
#include <cstring>

#include "vesk/base/MemoryException.h"
#include "vesk/base/String.h"
#include "vesk/base/UnicodeStringBuffer.h"
#include "vesk/base/internal/StringBody.h"
#include "vesk/base/internal/UnicodeStringAccess.h"
#include "vesk/platform/Format16.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Text.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace base {

namespace {

const char kSource[] = "vesk/base/UnicodeString";
const unsigned short kEmptyText[1] = {0};
typedef internal::CStringBody<unsigned short> Body;
const unsigned int kMaximumUnits = Body::Traits::kMaximumUnits;

inline bool IsHigh(unsigned int u) { return u >= 0xD800 && u <= 0xDBFF; }
inline bool IsLow(unsigned int u) { return u >= 0xDC00 && u <= 0xDFFF; }

// The 16-bit form of a narrow argument, in a scratch buffer released with
// this object. Null stays null; a text that converts to nothing becomes the
// constant empty text.
class CNarrowArgument {
 public:
  explicit CNarrowArgument(const char* text) : m_scratch(32), m_text(nullptr) {
    if (!text) return;
    if (*text) m_scratch = text;
    m_text = m_scratch.IsEmpty() ? kEmptyText : static_cast<const unsigned short*>(m_scratch);
  }
  operator const unsigned short*() const { return m_text; }

 private:
  CUnicodeStringBuffer m_scratch;
  const unsigned short* m_text;
};

// The unit a narrow character stands for ('?' for a byte that is not a
// whole character).
unsigned short NarrowUnit(char c) {
  unsigned short unit = '?';
  platform::NarrowToUtf16(&c, 1, &unit, 1);
  return unit;
}

// --- UTF-8 forms -------------------------------------------------------------

const std::uint64_t kOnes16 = 0x0001000100010001ull;
const std::uint64_t kHigh16 = 0x8000800080008000ull;
const std::uint64_t kLow15 = 0x7FFF7FFF7FFF7FFFull;
const std::uint64_t kMask80 = 0xFF80FF80FF80FF80ull;
const std::uint64_t kMask800 = 0xF800F800F800F800ull;
const std::uint64_t kMaskFC00 = 0xFC00FC00FC00FC00ull;
const std::uint64_t kSurrogates = 0xD800D800D800D800ull;
const std::uint64_t kHighSurrogates = 0xD800D800D800D800ull;
const std::uint64_t kLowSurrogates = 0xDC00DC00DC00DC00ull;
const std::uint64_t kHighBits8 = 0x8080808080808080ull;
const std::uint64_t kOnes8 = 0x0101010101010101ull;

inline std::uint64_t Load64(const void* p) {
  std::uint64_t w;
  std::memcpy(&w, p, sizeof w);
  return w;
}

// Bytes one unit of the UTF-8 form takes, with the units it consumes: a
// valid pair is 4 bytes for 2 units; a high surrogate followed by any other
// unit is one byte for both; a high surrogate at the end one byte; every
// other unit above 0x7FF, lone low surrogates included, 3 bytes.
inline std::size_t CountOne(const unsigned short* s, std::size_t i, std::size_t n,
                            std::size_t* consumed) {
  unsigned int u = s[i];
  *consumed = 1;
  if (u < 0x80) return 1;
  if (u < 0x800) return 2;
  if (IsHigh(u)) {
    if (i + 1 < n) {
      *consumed = 2;
      return IsLow(s[i + 1]) ? 4 : 1;
    }
    return 1;
  }
  return 3;
}

// Per 16-bit lane of x, 1 when the lane is not zero, else 0. Bit 0 of every
// lane of x must be clear (true of every mask used here).
inline std::uint64_t NonZeroLanes(std::uint64_t x) { return (((x >> 1) + kLow15) & kHigh16) >> 15; }

// Sum of the four 16-bit lanes.
inline std::size_t SumLanes(std::uint64_t x) {
  return static_cast<std::size_t>((x * kOnes16) >> 48);
}

// Length of the UTF-8 form of n units by the rules of CountOne.
std::size_t Utf8Count(const unsigned short* s, std::size_t n) {
  // Well-formed text first, four units at a time: every unit weighs 1, one
  // more from 0x80, one more from 0x800 and one less for a surrogate (so a
  // pair weighs 4). That holds when a unit is a high surrogate exactly when
  // the next one is a low surrogate, the first is no low and the last no
  // high surrogate; otherwise the units are counted again one by one.
  std::size_t count = 0;
  std::uint64_t odd = n > 0 && (IsLow(s[0]) || IsHigh(s[n - 1]));
  std::size_t i = 0;
  for (; i + 5 <= n; i += 4) {
    std::uint64_t w = Load64(s + i);
    if ((w & kMask80) == 0) {  // four ASCII units
      count += 4;
      odd |= IsLow(s[i + 4]);
      continue;
    }
    std::uint64_t next = Load64(s + i + 1);
    std::uint64_t notHigh = NonZeroLanes((w & kMaskFC00) ^ kHighSurrogates);
    std::uint64_t notLow = NonZeroLanes((next & kMaskFC00) ^ kLowSurrogates);
    odd |= notHigh ^ notLow;
    count += SumLanes(NonZeroLanes(w & kMask80) + NonZeroLanes(w & kMask800) +
                      NonZeroLanes((w & kMask800) ^ kSurrogates));
  }
  for (; i < n; ++i) {
    unsigned int u = s[i];
    count += 1 + (u >= 0x80) + (u >= 0x800) - (IsHigh(u) || IsLow(u));
    if (i + 1 < n) odd |= IsHigh(u) != IsLow(s[i + 1]);
  }
  if (!odd) return count;
  count = 0;
  for (i = 0; i < n;) {
    std::size_t k;
    count += CountOne(s, i, n, &k);
    i += k;
  }
  return count;
}

// Writes the UTF-8 form of n units (no terminator) to target, which ends at
// end and has room for all of it; returns the bytes written.
std::size_t Utf8Write(const unsigned short* s, std::size_t n, char* target, const char* end) {
  unsigned char* out = reinterpret_cast<unsigned char*>(target);
  const unsigned char* last = reinterpret_cast<const unsigned char*>(end);
  std::size_t i = 0;
  while (i < n) {
    if (i + 4 <= n && (Load64(s + i) & kMask80) == 0) {
      out[0] = static_cast<unsigned char>(s[i]);
      out[1] = static_cast<unsigned char>(s[i + 1]);
      out[2] = static_cast<unsigned char>(s[i + 2]);
      out[3] = static_cast<unsigned char>(s[i + 3]);
      out += 4;
      i += 4;
      continue;
    }
    unsigned int u = s[i];
    if ((u & 0xF800) != 0xD800 && i + 1 < n && last - out >= 3) {
      // One, two or three bytes without a branch: three are stored, and
      // the ones beyond the character are overwritten by what follows (a
      // unit follows, and then the terminator), never left past the end.
      unsigned int two = u >= 0x80;
      unsigned int three = u >= 0x800;
      out[0] = static_cast<unsigned char>(three ? 0xE0 | (u >> 12) : two ? 0xC0 | (u >> 6) : u);
      out[1] = static_cast<unsigned char>(0x80 | ((three ? u >> 6 : u) & 0x3F));
      out[2] = static_cast<unsigned char>(0x80 | (u & 0x3F));
      out += 1 + two + three;
      ++i;
    } else if (u < 0x80) {
      *out++ = static_cast<unsigned char>(u);
      ++i;
    } else if (u < 0x800) {
      out[0] = static_cast<unsigned char>(0xC0 | (u >> 6));
      out[1] = static_cast<unsigned char>(0x80 | (u & 0x3F));
      out += 2;
      ++i;
    } else if (IsHigh(u)) {
      if (i + 1 < n && IsLow(s[i + 1])) {
        unsigned int cp = 0x10000 + ((u - 0xD800) << 10) + (s[i + 1] - 0xDC00u);
        out[0] = static_cast<unsigned char>(0xF0 | (cp >> 18));
        out[1] = static_cast<unsigned char>(0x80 | ((cp >> 12) & 0x3F));
        out[2] = static_cast<unsigned char>(0x80 | ((cp >> 6) & 0x3F));
        out[3] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
        out += 4;
        i += 2;
      } else {
        // A high surrogate without its low half: one '?', and the unit
        // after it goes with it (the count above assumes so).
        *out++ = '?';
        i += (i + 1 < n) ? 2 : 1;
      }
    } else {
      out[0] = static_cast<unsigned char>(0xE0 | (u >> 12));
      out[1] = static_cast<unsigned char>(0x80 | ((u >> 6) & 0x3F));
      out[2] = static_cast<unsigned char>(0x80 | (u & 0x3F));
      out += 3;
      ++i;
    }
  }
  return static_cast<std::size_t>(out - reinterpret_cast<unsigned char*>(target));
}

// Byte count of the sequence each byte leads; 0 for a byte that cannot lead
// one (NUL, continuation bytes, C0, C1, F5 to FF).
struct CLeadTable {
  unsigned char length[256];
  constexpr CLeadTable() : length() {
    for (int b = 0; b < 256; ++b) {
      length[b] = b == 0     ? 0
                  : b < 0x80 ? 1
                  : b < 0xC2 ? 0
                  : b < 0xE0 ? 2
                  : b < 0xF0 ? 3
                  : b < 0xF5 ? 4
                             : 0;
    }
  }
};
constexpr CLeadTable kLeads;
// By sequence length: the lead's payload bits, the shift that aligns the
// assembled bits, the smallest value that is not overlong, and the high
// bits of the continuation bytes in a little-endian 32-bit word.
const unsigned int kLeadMask[5] = {0, 0x7F, 0x1F, 0x0F, 0x07};
const unsigned int kShift[5] = {0, 18, 12, 6, 0};
const unsigned int kMinimum[5] = {0, 1, 0x80, 0x800, 0x10000};
const std::uint32_t kFollowMask[5] = {0, 0, 0xC000, 0xC0C000, 0xC0C0C000};
const std::uint32_t kFollowBits[5] = {0, 0, 0x8000, 0x808000, 0x80808000};

// Decodes UTF-8 up to the first byte that cannot continue the text (see
// FromUTF8); returns the units and sets *consumed to the bytes decoded.
// With Write set the units are stored at out, which has room for them and
// one more unit (the terminator's place, which may be scribbled on).
template <bool Write>
std::size_t Utf8Decode(const unsigned char* s, std::size_t n, unsigned short* out,
                       std::size_t* consumed) {
  std::size_t i = 0;
  std::size_t units = 0;
  // While four bytes can be read: eight ASCII bytes at a time, else one
  // character with few branches.
  while (i + 4 <= n) {
    if (i + 8 <= n) {
      std::uint64_t w = Load64(s + i);
      if ((w & kHighBits8) == 0 && ((w - kOnes8) & ~w & kHighBits8) == 0) {
        if (Write) {
          for (int k = 0; k < 8; ++k) out[units + k] = s[i + k];
        }
        units += 8;
        i += 8;
        continue;
      }
    }
    unsigned int b = s[i];
    unsigned int length = kLeads.length[b];
    std::uint32_t word = b | (static_cast<std::uint32_t>(s[i + 1]) << 8) |
                         (static_cast<std::uint32_t>(s[i + 2]) << 16) |
                         (static_cast<std::uint32_t>(s[i + 3]) << 24);
    if (length == 0 || (word & kFollowMask[length]) != kFollowBits[length]) {
      *consumed = i;
      return units;
    }
    unsigned int cp = (((b & kLeadMask[length]) << 18) | ((s[i + 1] & 0x3Fu) << 12) |
                       ((s[i + 2] & 0x3Fu) << 6) | (s[i + 3] & 0x3Fu)) >>
                      kShift[length];
    // Overlong, or beyond U+10FFFF (no pair can hold it).
    if (cp < kMinimum[length] || cp > 0x10FFFF) {
      *consumed = i;
      return units;
    }
    unsigned int pair = cp >= 0x10000;
    if (Write) {
      unsigned int v = cp - 0x10000;
      out[units] = static_cast<unsigned short>(pair ? 0xD800 + (v >> 10) : cp);
      out[units + 1] = static_cast<unsigned short>(0xDC00 + (v & 0x3FF));
    }
    units += 1 + pair;
    i += length;
  }
  // The last bytes, one character at a time.
  while (i < n) {
    unsigned int b = s[i];
    unsigned int length = kLeads.length[b];
    if (length == 0 || i + length > n) break;
    unsigned int cp = b & kLeadMask[length];
    std::size_t k = 1;
    for (; k < length && (s[i + k] & 0xC0) == 0x80; ++k) cp = (cp << 6) | (s[i + k] & 0x3F);
    if (k < length || cp < kMinimum[length] || cp > 0x10FFFF) break;
    if (cp >= 0x10000) {
      if (Write) {
        out[units] = static_cast<unsigned short>(0xD800 + ((cp - 0x10000) >> 10));
        out[units + 1] = static_cast<unsigned short>(0xDC00 + ((cp - 0x10000) & 0x3FF));
      }
      units += 2;
    } else {
      if (Write) out[units] = static_cast<unsigned short>(cp);
      ++units;
    }
    i += length;
  }
  *consumed = i;
  return units;
}

}  // namespace

// --- buffer management -------------------------------------------------------

void CUnicodeString::AllocBuffer(unsigned int n) { Body::Alloc(m_pszData, n); }

void CUnicodeString::AllocCopy(const unsigned short* text, int count) {
  Body::AllocCopy(m_pszData, 0, text, count);
}

void CUnicodeString::AllocCopy(unsigned int minCapacity, const unsigned short* text, int count) {
  Body::AllocCopy(m_pszData, minCapacity, text, count);
}

void CUnicodeString::EnsureBufferCapacity(unsigned int n) { Body::EnsureCapacity(m_pszData, n); }

void CUnicodeString::EnsureCapacity(unsigned int n) {
  if (n >= kMaximumUnits) VESK_THROW(kSource, CMemoryException);
  EnsureBufferCapacity(n + 1);
}

void CUnicodeString::CopyRefBeforeModify() { Body::CopyBeforeModify(m_pszData); }

void CUnicodeString::ReleaseBuffer() { Body::Release(m_pszData); }

// --- construction and assignment ---------------------------------------------

CUnicodeString::CUnicodeString(const char* text) : m_pszData(nullptr) {
  if (text && *text) AssignNarrow(text, static_cast<unsigned int>(-1));
}

CUnicodeString::CUnicodeString(const char* text, unsigned int count) : m_pszData(nullptr) {
  if (text && count > 0) AssignNarrow(text, count);
}

CUnicodeString::CUnicodeString(const unsigned short* text) : m_pszData(nullptr) {
  if (text && *text) AllocCopy(text, -1);
}

CUnicodeString::CUnicodeString(const unsigned short* text, unsigned int count)
    : m_pszData(nullptr) {
  if (text && count > 0) {
    if (count > kMaximumUnits) count = platform::Utf16LengthBounded(text, count);
    AllocCopy(text, static_cast<int>(count));
  }
}

CUnicodeString::CUnicodeString(const CUnicodeString& other) : m_pszData(nullptr) {
  Body::Share(m_pszData, other.m_pszData);
}

CUnicodeString::~CUnicodeString() { ReleaseBuffer(); }

CUnicodeString& CUnicodeString::operator=(const CUnicodeString& other) {
  if (this == &other || m_pszData == other.m_pszData) return *this;
  ReleaseBuffer();
  Body::Share(m_pszData, other.m_pszData);
  return *this;
}

CUnicodeString& CUnicodeString::operator=(const char* text) {
  AssignNarrow(text, static_cast<unsigned int>(-1));
  return *this;
}

CUnicodeString& CUnicodeString::operator=(const unsigned short* text) {
  if (!text || !*text) {
    Empty();
  } else {
    AllocCopy(text, -1);
  }
  return *this;
}

void CUnicodeString::AssignNarrow(const char* text, unsigned int count) {
  std::size_t bytes = 0;
  if (text)
    bytes = count == static_cast<unsigned int>(-1) ? std::strlen(text) : strnlen(text, count);
  if (bytes == 0) {
    Empty();
    return;
  }
  if (bytes > static_cast<std::size_t>(INT_MAX)) VESK_THROW(kSource, CMemoryException);
  std::size_t units = platform::NarrowToUtf16(text, static_cast<int>(bytes), nullptr, 0);
  if (units >= kMaximumUnits) VESK_THROW(kSource, CMemoryException);
  AllocBuffer(static_cast<unsigned int>(units + 1));
  platform::NarrowToUtf16(text, static_cast<int>(bytes), m_pszData, units);
  m_pszData[units] = 0;
  GetData()->length = static_cast<unsigned int>(units);
}

void CUnicodeString::Append(const unsigned short* text, unsigned int count) {
  Body::Append(m_pszData, text, count);
}

CUnicodeString& CUnicodeString::operator+=(const CUnicodeString& other) {
  Append(other.m_pszData, other.GetLength());
  return *this;
}

CUnicodeString& CUnicodeString::operator+=(const char* text) {
  if (!text || !*text) return *this;
  std::size_t bytes = std::strlen(text);
  if (bytes > static_cast<std::size_t>(INT_MAX)) VESK_THROW(kSource, CMemoryException);
  std::size_t units = platform::NarrowToUtf16(text, static_cast<int>(bytes), nullptr, 0);
  unsigned int length = GetLength();
  if (length + static_cast<unsigned long long>(units) + 1 > kMaximumUnits) {
    VESK_THROW(kSource, CMemoryException);
  }
  EnsureBufferCapacity(static_cast<unsigned int>(length + units + 1));
  platform::NarrowToUtf16(text, static_cast<int>(bytes), m_pszData + length, units);
  m_pszData[length + units] = 0;
  GetData()->length = static_cast<unsigned int>(length + units);
  return *this;
}

CUnicodeString& CUnicodeString::operator+=(const unsigned short* text) {
  if (text) Append(text, platform::Utf16Length(text));
  return *this;
}

void CUnicodeString::Set(const unsigned short* text, unsigned int count) {
  if (text && count > kMaximumUnits) count = platform::Utf16LengthBounded(text, count);
  AllocCopy(text, static_cast<int>(count));
}

void internal::CUnicodeStringAccess::SetUnits(CUnicodeString& s, const unsigned short* text, unsigned int count) {
  if (!text || count == 0) {
    s.Empty();
    return;
  }
  Body::CopyUnits(s.m_pszData, 0, text, count, count);
}

// --- access ------------------------------------------------------------------

unsigned short CUnicodeString::GetAt(unsigned int index) const {
  return index < GetLength() ? m_pszData[index] : 0;
}

void CUnicodeString::SetAt(unsigned int index, unsigned short c) {
  if (index >= GetLength()) return;
  CopyRefBeforeModify();
  m_pszData[index] = c;
}

CUnicodeString::operator const unsigned short*() const {
  return m_pszData ? m_pszData : kEmptyText;
}

void CUnicodeString::CopyTo(unsigned short* target, unsigned int size) const {
  if (!target || size == 0) return;
  unsigned int n = GetLength();
  if (n > size - 1) n = size - 1;
  if (n > 0) std::memcpy(target, m_pszData, static_cast<std::size_t>(n) * 2);
  target[n] = 0;
}

// --- comparison --------------------------------------------------------------

int CUnicodeString::CompareText(const unsigned short* text, int caseType) const {
  // Unlike the narrow string, an empty string equals "" as well as null.
  if (IsEmpty()) return (text && *text) ? -1 : 0;
  if (!text || !*text) return 1;
  return platform::Utf16CompareTexts(m_pszData, static_cast<int>(GetLength()), text, -1, caseType);
}

int CUnicodeString::Compare(const unsigned short* text) const {
  return CompareText(text, platform::kTextExactCase);
}

int CUnicodeString::Compare(const char* text) const {
  CNarrowArgument wide(text);
  return CompareText(wide, platform::kTextExactCase);
}

int CUnicodeString::CompareIgnoreCase(const unsigned short* text) const {
  return CompareText(text, platform::kTextIgnoreCase);
}

int CUnicodeString::CompareIgnoreCase(const char* text) const {
  CNarrowArgument wide(text);
  return CompareText(wide, platform::kTextIgnoreCase);
}

// --- search ------------------------------------------------------------------

int CUnicodeString::Find(unsigned short c, unsigned int start) const {
  if (start >= GetLength()) return -1;
  const unsigned short* p = platform::Utf16FindChar(m_pszData + start, c);
  return p ? static_cast<int>(p - m_pszData) : -1;
}

int CUnicodeString::Find(char c, unsigned int start) const { return Find(NarrowUnit(c), start); }

int CUnicodeString::FindText(const unsigned short* text, unsigned int start, int caseType) const {
  return Body::Find(m_pszData, text, start, caseType);
}

int CUnicodeString::Find(const unsigned short* text, unsigned int start) const {
  return FindText(text, start, platform::kTextExactCase);
}

int CUnicodeString::Find(const char* text, unsigned int start) const {
  if (start >= GetLength() || !text || !*text) return -1;
  CNarrowArgument wide(text);
  return FindText(wide, start, platform::kTextExactCase);
}

int CUnicodeString::FindIgnoreCase(const unsigned short* text, unsigned int start) const {
  return FindText(text, start, platform::kTextIgnoreCase);
}

int CUnicodeString::FindIgnoreCase(const char* text, unsigned int start) const {
  if (start >= GetLength() || !text || !*text) return -1;
  CNarrowArgument wide(text);
  return FindText(wide, start, platform::kTextIgnoreCase);
}

int CUnicodeString::ReverseFind(unsigned short c, unsigned int start) const {
  if (start >= GetLength()) return -1;
  const unsigned short* p = platform::Utf16FindCharRight(m_pszData + start, c);
  return p ? static_cast<int>(p - m_pszData) : -1;
}

int CUnicodeString::ReverseFind(char c, unsigned int start) const {
  return ReverseFind(NarrowUnit(c), start);
}

int CUnicodeString::ReverseFindText(const unsigned short* text, unsigned int start,
                                    int caseType) const {
  return Body::ReverseFind(m_pszData, text, start, caseType);
}

int CUnicodeString::ReverseFind(const unsigned short* text, unsigned int start) const {
  return ReverseFindText(text, start, platform::kTextExactCase);
}

int CUnicodeString::ReverseFind(const char* text, unsigned int start) const {
  if (IsEmpty() || !text || !*text) return -1;
  CNarrowArgument wide(text);
  return ReverseFindText(wide, start, platform::kTextExactCase);
}

int CUnicodeString::ReverseFindIgnoreCase(const unsigned short* text, unsigned int start) const {
  return ReverseFindText(text, start, platform::kTextIgnoreCase);
}

int CUnicodeString::ReverseFindIgnoreCase(const char* text, unsigned int start) const {
  if (IsEmpty() || !text || !*text) return -1;
  CNarrowArgument wide(text);
  return ReverseFindText(wide, start, platform::kTextIgnoreCase);
}

bool CUnicodeString::StartsWithText(const unsigned short* text, int caseType) const {
  return Body::HasAffix(m_pszData, text, false, caseType);
}

bool CUnicodeString::EndsWithText(const unsigned short* text, int caseType) const {
  return Body::HasAffix(m_pszData, text, true, caseType);
}

bool CUnicodeString::StartsWith(const unsigned short* text) const {
  return StartsWithText(text, platform::kTextExactCase);
}
bool CUnicodeString::StartsWith(const char* text) const {
  return StartsWithText(CNarrowArgument(text), platform::kTextExactCase);
}
bool CUnicodeString::EndsWith(const unsigned short* text) const {
  return EndsWithText(text, platform::kTextExactCase);
}
bool CUnicodeString::EndsWith(const char* text) const {
  return EndsWithText(CNarrowArgument(text), platform::kTextExactCase);
}
bool CUnicodeString::StartsWithIgnoreCase(const unsigned short* text) const {
  return StartsWithText(text, platform::kTextIgnoreCase);
}
bool CUnicodeString::StartsWithIgnoreCase(const char* text) const {
  return StartsWithText(CNarrowArgument(text), platform::kTextIgnoreCase);
}
bool CUnicodeString::EndsWithIgnoreCase(const unsigned short* text) const {
  return EndsWithText(text, platform::kTextIgnoreCase);
}
bool CUnicodeString::EndsWithIgnoreCase(const char* text) const {
  return EndsWithText(CNarrowArgument(text), platform::kTextIgnoreCase);
}

// --- extraction --------------------------------------------------------------

CUnicodeString CUnicodeString::SubString(unsigned int begin) const {
  return SubString(begin, GetLength());
}

CUnicodeString CUnicodeString::SubString(unsigned int begin, unsigned int end) const {
  CUnicodeString result;
  Body::CopyRange(result.m_pszData, m_pszData, begin, end);
  return result;
}

CUnicodeString CUnicodeString::Mid(unsigned int start) const { return SubString(start); }

CUnicodeString CUnicodeString::Mid(unsigned int start, int count) const {
  return internal::CStringExtraction<CUnicodeString>::Mid(*this, start, count);
}

CUnicodeString CUnicodeString::Left(unsigned int n) const {
  return internal::CStringExtraction<CUnicodeString>::Left(*this, n);
}

CUnicodeString CUnicodeString::Right(unsigned int n) const {
  return internal::CStringExtraction<CUnicodeString>::Right(*this, n);
}

// --- editing -----------------------------------------------------------------

void CUnicodeString::Empty() { Body::Empty(m_pszData); }

void CUnicodeString::MakeUpper() {
  if (IsEmpty()) return;
  CopyRefBeforeModify();
  platform::Utf16MapCase(m_pszData, GetLength(), true);
}

void CUnicodeString::MakeLower() {
  if (IsEmpty()) return;
  CopyRefBeforeModify();
  platform::Utf16MapCase(m_pszData, GetLength(), false);
}

void CUnicodeString::MakeReverse() {
  if (IsEmpty()) return;
  CopyRefBeforeModify();
  unsigned int length = GetLength();
  unsigned short* p = m_pszData;
  for (unsigned int i = 0, j = length - 1; i < j; ++i, --j) {
    unsigned short t = p[i];
    p[i] = p[j];
    p[j] = t;
  }
  // Every pair now reads low, high: put its halves back in order.
  for (unsigned int i = 0; i + 1 < length; ++i) {
    if (IsLow(p[i]) && IsHigh(p[i + 1])) {
      unsigned short t = p[i];
      p[i] = p[i + 1];
      p[i + 1] = t;
      ++i;
    }
  }
}

void CUnicodeString::TrimLeft() {
  if (IsEmpty()) return;
  CopyRefBeforeModify();
  unsigned int length = GetLength();
  unsigned int skipped = 0;
  while (skipped < length && platform::Utf16IsSpace(m_pszData[skipped])) ++skipped;
  Body::DropFront(m_pszData, skipped);
}

void CUnicodeString::TrimRight() {
  if (IsEmpty()) return;
  CopyRefBeforeModify();
  unsigned int length = GetLength();
  while (length > 0 && platform::Utf16IsSpace(m_pszData[length - 1])) --length;
  Body::CutAt(m_pszData, length);
}

namespace {
inline bool InSet(unsigned short c, const unsigned short* set, unsigned int setLength) {
  for (unsigned int i = 0; i < setLength; ++i) {
    if (set[i] == c) return true;
  }
  return false;
}
}  // namespace

void CUnicodeString::TrimLeftSet(const unsigned short* set, unsigned int setLength) {
  if (IsEmpty() || setLength == 0) return;
  CopyRefBeforeModify();
  unsigned int length = GetLength();
  unsigned int skipped = 0;
  while (skipped < length && InSet(m_pszData[skipped], set, setLength)) ++skipped;
  Body::DropFront(m_pszData, skipped);
}

void CUnicodeString::TrimRightSet(const unsigned short* set, unsigned int setLength) {
  if (IsEmpty() || setLength == 0) return;
  CopyRefBeforeModify();
  unsigned int length = GetLength();
  while (length > 0 && InSet(m_pszData[length - 1], set, setLength)) --length;
  Body::CutAt(m_pszData, length);
}

void CUnicodeString::TrimLeft(unsigned short c) {
  if (c != 0) TrimLeftSet(&c, 1);
}

void CUnicodeString::TrimLeft(char c) { TrimLeft(NarrowUnit(c)); }

void CUnicodeString::TrimLeft(const unsigned short* set) {
  if (!set || IsEmpty()) return;
  // The set may be this string's own text: trim with a copy of it.
  CUnicodeString copy(set);
  TrimLeftSet(copy.m_pszData, copy.GetLength());
}

void CUnicodeString::TrimLeft(const char* set) {
  if (!set || !*set || IsEmpty()) return;
  CNarrowArgument wide(set);
  TrimLeftSet(wide, platform::Utf16Length(wide));
}

void CUnicodeString::TrimRight(unsigned short c) {
  if (c != 0) TrimRightSet(&c, 1);
}

void CUnicodeString::TrimRight(char c) { TrimRight(NarrowUnit(c)); }

void CUnicodeString::TrimRight(const unsigned short* set) {
  if (!set || IsEmpty()) return;
  CUnicodeString copy(set);
  TrimRightSet(copy.m_pszData, copy.GetLength());
}

void CUnicodeString::TrimRight(const char* set) {
  if (!set || !*set || IsEmpty()) return;
  CNarrowArgument wide(set);
  TrimRightSet(wide, platform::Utf16Length(wide));
}

int CUnicodeString::Replace(unsigned short a, unsigned short b) {
  if (a == b || IsEmpty()) return 0;
  CopyRefBeforeModify();
  int count = 0;
  unsigned int length = GetLength();
  for (unsigned int i = 0; i < length; ++i) {
    if (m_pszData[i] == a) {
      m_pszData[i] = b;
      ++count;
    }
  }
  return count;
}

int CUnicodeString::Replace(char a, char b) { return Replace(NarrowUnit(a), NarrowUnit(b)); }

int CUnicodeString::Replace(const unsigned short* oldText, const unsigned short* newText) {
  return Body::Replace(m_pszData, oldText, newText);
}

int CUnicodeString::Replace(const char* oldText, const char* newText) {
  if (IsEmpty() || !oldText || !*oldText) return 0;
  CNarrowArgument wideOld(oldText);
  CNarrowArgument wideNew(newText);
  return Replace(static_cast<const unsigned short*>(wideOld),
                 static_cast<const unsigned short*>(wideNew));
}

int CUnicodeString::Remove(unsigned short c) {
  if (IsEmpty() || c == 0) return 0;
  CopyRefBeforeModify();
  unsigned int length = GetLength();
  unsigned int write = 0;
  for (unsigned int read = 0; read < length; ++read) {
    if (m_pszData[read] != c) m_pszData[write++] = m_pszData[read];
  }
  m_pszData[write] = 0;
  GetData()->length = write;
  return static_cast<int>(length - write);
}

int CUnicodeString::Remove(char c) { return Remove(NarrowUnit(c)); }

int CUnicodeString::Insert(unsigned int index, unsigned short c) {
  return Body::InsertUnit(m_pszData, index, c);
}

int CUnicodeString::Insert(unsigned int index, char c) { return Insert(index, NarrowUnit(c)); }

int CUnicodeString::Insert(unsigned int index, const unsigned short* text) {
  return Body::Insert(m_pszData, index, text);
}

int CUnicodeString::Insert(unsigned int index, const char* text) {
  if (!text || !*text) return static_cast<int>(GetLength());
  CNarrowArgument wide(text);
  return Insert(index, static_cast<const unsigned short*>(wide));
}

int CUnicodeString::Delete(unsigned int index, unsigned int count) {
  return Body::Delete(m_pszData, index, count);
}

// --- UTF-8 -------------------------------------------------------------------

int CUnicodeString::ToUTF8(char* buffer, int size) const {
  // An empty string writes nothing at all, not even a terminator.
  std::size_t n = GetLength();
  if (n == 0) return 0;
  // No unit takes more than three bytes: a buffer that large is filled
  // without measuring first (the result is the same).
  if (buffer && size > 0 && static_cast<unsigned long long>(size) >= 3ull * n + 1) {
    std::size_t written = Utf8Write(m_pszData, n, buffer, buffer + size);
    buffer[written] = '\0';
    return static_cast<int>(written);
  }
  std::size_t count = Utf8Count(m_pszData, n);
  if (count >= static_cast<std::size_t>(INT_MAX)) return -1;  // not expressible
  if (size == -1) return static_cast<int>(count + 1);
  if (!buffer || size < static_cast<int>(count + 1)) return -1;
  Utf8Write(m_pszData, n, buffer, buffer + size);
  buffer[count] = '\0';
  return static_cast<int>(count);
}

CString CUnicodeString::ToUTF8() const {
  CString result;
  std::size_t n = GetLength();
  if (n == 0) return result;
  std::size_t count = Utf8Count(m_pszData, n);
  if (count >= static_cast<std::size_t>(INT_MAX)) VESK_THROW(kSource, CMemoryException);
  char local[512];
  char* scratch = local;
  if (count >= sizeof local) {
    scratch = static_cast<char*>(platform::Alloc(count + 1));
    if (!scratch) VESK_THROW(kSource, CMemoryException);
  }
  Utf8Write(m_pszData, n, scratch, scratch + count + 1);
  scratch[count] = '\0';
  try {
    result.Set(scratch, static_cast<unsigned int>(count));
  } catch (...) {
    if (scratch != local) platform::Free(scratch);
    throw;
  }
  if (scratch != local) platform::Free(scratch);
  return result;
}

void CUnicodeString::FromUTF8(const char* text, int length) {
  if (!text || length == 0) {
    Empty();
    return;
  }
  const unsigned char* bytes = reinterpret_cast<const unsigned char*>(text);
  std::size_t n = length < 0 ? std::strlen(text) : static_cast<std::size_t>(length);
  std::size_t consumed;
  // Each unit takes at least one byte: an owned buffer with room for a unit
  // per byte is decoded into at once, without counting first.
  CUnicodeStringData* data = GetData();
  if (data && data->refCount < 2 && data->capacity > n) {
    std::size_t units = Utf8Decode<true>(bytes, n, m_pszData, &consumed);
    m_pszData[units] = 0;
    data->length = static_cast<unsigned int>(units);
    return;
  }
  std::size_t units = Utf8Decode<false>(bytes, n, nullptr, &consumed);
  if (units == 0) {
    Empty();
    return;
  }
  if (units >= kMaximumUnits) VESK_THROW(kSource, CMemoryException);
  AllocBuffer(static_cast<unsigned int>(units + 1));
  Utf8Decode<true>(bytes, consumed, m_pszData, &consumed);
  m_pszData[units] = 0;
  GetData()->length = static_cast<unsigned int>(units);
}

// --- formatting --------------------------------------------------------------

void CUnicodeString::Format(const unsigned short* format, ...) {
  va_list args;
  va_start(args, format);
  try {
    FormatV(format, args);
  } catch (...) {
    va_end(args);
    throw;
  }
  va_end(args);
}

void CUnicodeString::FormatV(const unsigned short* format, va_list args) {
  if (!format) {
    Empty();
    return;
  }
  bool formatted = Body::Format(m_pszData, [&](unsigned short* scratch, std::size_t size) {
    va_list copy;
    va_copy(copy, args);
    int written = platform::Utf16VFormat(scratch, size, format, copy);
    va_end(copy);
    return written;
  });
  // The formatter fails only when it cannot get its own scratch block.
  if (!formatted) VESK_THROW(kSource, CMemoryException);
}

// --- free operators ----------------------------------------------------------

namespace {
inline const unsigned short* TextOf(const unsigned short* text) { return text ? text : kEmptyText; }

int OrderTexts(const unsigned short* a, const unsigned short* b) {
  // The empty text orders below every other, as the unit comparison gives.
  return platform::Utf16CompareTexts(a, -1, b, -1, platform::kTextExactCase);
}
}  // namespace

bool operator==(const CUnicodeString& a, const CUnicodeString& b) {
  unsigned int length = a.GetLength();
  if (length != b.GetLength()) return false;
  return length == 0 ||
         std::memcmp(static_cast<const unsigned short*>(a), static_cast<const unsigned short*>(b),
                     static_cast<std::size_t>(length) * 2) == 0;
}

bool operator==(const CUnicodeString& a, const unsigned short* b) {
  return platform::Utf16Compare(a, TextOf(b)) == 0;
}

bool operator==(const unsigned short* a, const CUnicodeString& b) { return b == a; }

bool operator==(const CUnicodeString& a, const char* b) {
  CNarrowArgument wide(b);
  return a == static_cast<const unsigned short*>(wide);
}

bool operator==(const char* a, const CUnicodeString& b) { return b == a; }
bool operator!=(const CUnicodeString& a, const CUnicodeString& b) { return !(a == b); }
bool operator!=(const CUnicodeString& a, const unsigned short* b) { return !(a == b); }
bool operator!=(const unsigned short* a, const CUnicodeString& b) { return !(b == a); }
bool operator!=(const CUnicodeString& a, const char* b) { return !(a == b); }
bool operator!=(const char* a, const CUnicodeString& b) { return !(b == a); }

bool operator<(const CUnicodeString& a, const CUnicodeString& b) { return OrderTexts(a, b) < 0; }
bool operator<(const CUnicodeString& a, const unsigned short* b) { return OrderTexts(a, b) < 0; }
bool operator<(const unsigned short* a, const CUnicodeString& b) { return OrderTexts(a, b) < 0; }
bool operator<(const CUnicodeString& a, const char* b) {
  return OrderTexts(a, CNarrowArgument(b)) < 0;
}
bool operator<(const char* a, const CUnicodeString& b) {
  return OrderTexts(CNarrowArgument(a), b) < 0;
}
bool operator<=(const CUnicodeString& a, const CUnicodeString& b) { return OrderTexts(a, b) <= 0; }
bool operator<=(const CUnicodeString& a, const unsigned short* b) { return OrderTexts(a, b) <= 0; }
bool operator<=(const unsigned short* a, const CUnicodeString& b) { return OrderTexts(a, b) <= 0; }
bool operator<=(const CUnicodeString& a, const char* b) {
  return OrderTexts(a, CNarrowArgument(b)) <= 0;
}
bool operator<=(const char* a, const CUnicodeString& b) {
  return OrderTexts(CNarrowArgument(a), b) <= 0;
}
bool operator>(const CUnicodeString& a, const CUnicodeString& b) { return OrderTexts(a, b) > 0; }
bool operator>(const CUnicodeString& a, const unsigned short* b) { return OrderTexts(a, b) > 0; }
bool operator>(const unsigned short* a, const CUnicodeString& b) { return OrderTexts(a, b) > 0; }
bool operator>(const CUnicodeString& a, const char* b) {
  return OrderTexts(a, CNarrowArgument(b)) > 0;
}
bool operator>(const char* a, const CUnicodeString& b) {
  return OrderTexts(CNarrowArgument(a), b) > 0;
}
bool operator>=(const CUnicodeString& a, const CUnicodeString& b) { return OrderTexts(a, b) >= 0; }
bool operator>=(const CUnicodeString& a, const unsigned short* b) { return OrderTexts(a, b) >= 0; }
bool operator>=(const unsigned short* a, const CUnicodeString& b) { return OrderTexts(a, b) >= 0; }
bool operator>=(const CUnicodeString& a, const char* b) {
  return OrderTexts(a, CNarrowArgument(b)) >= 0;
}
bool operator>=(const char* a, const CUnicodeString& b) {
  return OrderTexts(CNarrowArgument(a), b) >= 0;
}

CUnicodeString operator+(const CUnicodeString& a, const CUnicodeString& b) {
  CUnicodeString result(a);
  result += b;
  return result;
}

CUnicodeString operator+(const CUnicodeString& a, const unsigned short* b) {
  CUnicodeString result(a);
  result += b;
  return result;
}

CUnicodeString operator+(const unsigned short* a, const CUnicodeString& b) {
  CUnicodeString result(a);
  result += b;
  return result;
}

CUnicodeString operator+(const CUnicodeString& a, const char* b) {
  CUnicodeString result(a);
  result += b;
  return result;
}

CUnicodeString operator+(const char* a, const CUnicodeString& b) {
  CUnicodeString result(a);
  result += b;
  return result;
}

}  // namespace base
}  // namespace vesk
