#include "vesk/base/BinaryData.h"

#include <cstdint>
#include <cstring>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/NumberFormatException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace base {

namespace {

const char kSource[] = "vesk/base/BinaryData";
constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char kHexDigits[] = "0123456789ABCDEF";

// Lookup tables, computed at compile time.
//  - encode12: the two Base64 characters of a 12-bit value, first one in the
//    low byte (so a little-endian 16-bit store writes them in order);
//  - decode0..3: the alphabet value of a character, pre-shifted to its place
//    in a 24-bit group, or kBad for a character outside the alphabet. ORing
//    the four lookups of a group gives the group and, in the top byte, a
//    verdict for all four characters at once;
//  - hexPair: the two binhex digits of a byte;
//  - hexValue: the value of an upper-case hex digit, or 0xFF.
constexpr std::uint32_t kBad = 0x01000000u;

struct Tables {
  std::uint16_t encode12[4096];
  std::uint32_t decode[4][256];
  std::uint16_t hexPair[256];
  std::uint8_t hexValue[256];

  constexpr Tables() : encode12{}, decode{}, hexPair{}, hexValue{} {
    for (unsigned v = 0; v < 4096; ++v) {
      encode12[v] =
          static_cast<std::uint16_t>(static_cast<unsigned char>(kAlphabet[v >> 6]) |
                                     (static_cast<unsigned char>(kAlphabet[v & 63]) << 8));
    }
    for (unsigned c = 0; c < 256; ++c) {
      for (int k = 0; k < 4; ++k) decode[k][c] = kBad;
      hexValue[c] = 0xFF;
    }
    for (unsigned i = 0; i < 64; ++i) {
      unsigned char c = static_cast<unsigned char>(kAlphabet[i]);
      decode[0][c] = i << 18;
      decode[1][c] = i << 12;
      decode[2][c] = i << 6;
      decode[3][c] = i;
    }
    for (unsigned b = 0; b < 256; ++b) {
      hexPair[b] =
          static_cast<std::uint16_t>(static_cast<unsigned char>(kHexDigits[b >> 4]) |
                                     (static_cast<unsigned char>(kHexDigits[b & 15]) << 8));
    }
    for (unsigned i = 0; i < 16; ++i) hexValue[static_cast<unsigned char>(kHexDigits[i])] = i;
  }
};

constexpr Tables kTables;

// --- units ------------------------------------------------------------------
// The codecs are written once over the text unit: char for narrow text,
// unsigned short for 16-bit text. Index() maps a unit to a table index, with
// every 16-bit unit of 256 or more mapped to a byte outside all the
// alphabets (0x80), so it fails like any other foreign character.

inline unsigned Index(char c) { return static_cast<unsigned char>(c); }
inline unsigned Index(unsigned short c) { return c < 256 ? c : 0x80u; }

inline void PutPair(char* out, std::uint16_t pair) { std::memcpy(out, &pair, 2); }
inline void PutPair(unsigned short* out, std::uint16_t pair) {
  out[0] = static_cast<unsigned short>(pair & 0xFF);
  out[1] = static_cast<unsigned short>(pair >> 8);
}

// --- Base64 -----------------------------------------------------------------

/// Encoded length of n bytes (n > 0).
inline std::size_t Base64Length(std::size_t n) { return (n - 1) / 3 * 4 + 4; }

template <typename Unit>
void EncodeBase64(const unsigned char* in, std::size_t n, Unit* out) {
  const std::uint16_t* enc = kTables.encode12;
  std::size_t whole = n / 3;
  std::size_t i = 0;
  // Two groups per 8-byte load (six bytes used), four loads per round:
  // 24 bytes in, 32 units out. The load reads two bytes past the groups,
  // so the round stops while at least eight bytes remain.
  for (; (i + 8) * 3 + 2 <= n; i += 8, in += 24, out += 32) {
    for (int g = 0; g < 4; ++g) {
      std::uint64_t w;
      std::memcpy(&w, in + 6 * g, 8);
      w = __builtin_bswap64(w);  // bytes 0..5 now in bits 63..16
      std::uint32_t a = static_cast<std::uint32_t>(w >> 40);
      std::uint32_t b = static_cast<std::uint32_t>(w >> 16) & 0xFFFFFF;
      Unit* o = out + 8 * g;
      PutPair(o, enc[a >> 12]);
      PutPair(o + 2, enc[a & 0xFFF]);
      PutPair(o + 4, enc[b >> 12]);
      PutPair(o + 6, enc[b & 0xFFF]);
    }
  }
  for (; i < whole; ++i, in += 3, out += 4) {
    std::uint32_t v = (std::uint32_t(in[0]) << 16) | (std::uint32_t(in[1]) << 8) | in[2];
    PutPair(out, enc[v >> 12]);
    PutPair(out + 2, enc[v & 0xFFF]);
  }
  switch (n % 3) {
    case 1:
      out[0] = static_cast<Unit>(kAlphabet[in[0] >> 2]);
      out[1] = static_cast<Unit>(kAlphabet[(in[0] & 3) << 4]);
      out[2] = out[3] = static_cast<Unit>('=');
      break;
    case 2:
      out[0] = static_cast<Unit>(kAlphabet[in[0] >> 2]);
      out[1] = static_cast<Unit>(kAlphabet[((in[0] & 3) << 4) + (in[1] >> 4)]);
      out[2] = static_cast<Unit>(kAlphabet[(in[1] & 15) << 2]);
      out[3] = static_cast<Unit>('=');
      break;
  }
}

/// Decodes groups text[0 .. 4 * groups) into out. Returns the number of
/// bytes written, or -1 at the first bad group.
template <typename Unit>
long long DecodeBase64(const Unit* text, std::size_t groups, unsigned char* out) {
  const std::uint32_t(*dec)[256] = kTables.decode;
  unsigned char* start = out;
  for (std::size_t g = 0; g < groups; ++g, text += 4) {
    if (text[3] != static_cast<Unit>('=')) {
      std::uint32_t v = dec[0][Index(text[0])] | dec[1][Index(text[1])] | dec[2][Index(text[2])] |
                        dec[3][Index(text[3])];
      if (v & kBad) return -1;
      out[0] = static_cast<unsigned char>(v >> 16);
      out[1] = static_cast<unsigned char>(v >> 8);
      out[2] = static_cast<unsigned char>(v);
      out += 3;
    } else if (text[2] == static_cast<Unit>('=')) {
      std::uint32_t v = dec[0][Index(text[0])] | dec[1][Index(text[1])];
      if (v & kBad) return -1;
      *out++ = static_cast<unsigned char>(v >> 16);
    } else {
      std::uint32_t v = dec[0][Index(text[0])] | dec[1][Index(text[1])] | dec[2][Index(text[2])];
      if (v & kBad) return -1;
      out[0] = static_cast<unsigned char>(v >> 16);
      out[1] = static_cast<unsigned char>(v >> 8);
      out += 2;
    }
  }
  return out - start;
}

template <typename Unit>
void ParseBase64(const Unit* text, unsigned int textLength, char*& data, unsigned int& length) {
  data = nullptr;
  length = 0;
  if (textLength % 4 != 0) {
    VESK_THROW(kSource, CNumberFormatException, "Invalid base64 encoded binary data.");
  }
  // An empty text decodes to nothing; no block is handed out for it.
  if (textLength == 0) return;
  std::size_t groups = textLength / 4;
  char* block = static_cast<char*>(platform::Alloc(groups * 3));
  if (!block) VESK_THROW(kSource, CMemoryException);
  data = block;
  // The reported length is the number of groups, set before decoding and
  // left as it is afterwards: callers rely on that figure.
  length = static_cast<unsigned int>(groups);
  if (DecodeBase64(text, groups, reinterpret_cast<unsigned char*>(block)) < 0) {
    platform::Free(block);
    data = nullptr;
    length = 0;
    VESK_THROW(kSource, CNumberFormatException, "Invalid base 64 char found.");
  }
}

// --- binhex -----------------------------------------------------------------

template <typename Unit>
void EncodeBinHex(const unsigned char* in, std::size_t n, Unit* out) {
  for (std::size_t i = 0; i < n; ++i, out += 2) PutPair(out, kTables.hexPair[in[i]]);
}

/// Decodes textLength (even) units into out; false at the first bad digit.
template <typename Unit>
bool DecodeBinHex(const Unit* text, std::size_t textLength, unsigned char* out) {
  const std::uint8_t* val = kTables.hexValue;
  for (std::size_t i = 0; i < textLength; i += 2) {
    unsigned hi = val[Index(text[i])];
    unsigned lo = val[Index(text[i + 1])];
    if ((hi | lo) & 0xF0) return false;
    *out++ = static_cast<unsigned char>((hi << 4) | lo);
  }
  return true;
}

template <typename Unit>
void ParseBinHex(const Unit* text, unsigned int textLength, char*& data, unsigned int& length) {
  data = nullptr;
  length = 0;
  if (textLength % 2 != 0) {
    VESK_THROW(kSource, CNumberFormatException, "Invalid binhex encoded binary data.");
  }
  if (textLength == 0) return;
  unsigned int n = textLength / 2;
  char* block = static_cast<char*>(platform::Alloc(n));
  if (!block) VESK_THROW(kSource, CMemoryException);
  data = block;
  length = n;
  if (!DecodeBinHex(text, textLength, reinterpret_cast<unsigned char*>(block))) {
    platform::Free(block);
    data = nullptr;
    length = 0;
    VESK_THROW(kSource, CNumberFormatException, "Invalid binhex digit.");
  }
}

// --- building the output text -------------------------------------------------

/// Encoded texts longer than a string can hold cannot be built.
void CheckTextLength(std::size_t units) {
  if (units >= 0xFFFFFFFFu) VESK_THROW(kSource, CMemoryException);
}

inline void CheckData(const char* data) {
  if (!data) VESK_THROW(kSource, CIllegalArgumentException, "Illegal data pointer.");
}

/// The two text encodings: Units(n) is the text length of n bytes, and
/// kInPerChunk bytes encode to kChunkUnits units at the most.
constexpr std::size_t kChunkUnits = 16384;

struct Base64Codec {
  static constexpr std::size_t kInPerChunk = kChunkUnits / 4 * 3;
  static std::size_t Units(std::size_t n) { return Base64Length(n); }
  template <typename Unit>
  static void Encode(const unsigned char* in, std::size_t n, Unit* out) {
    EncodeBase64(in, n, out);
  }
};

struct BinHexCodec {
  static constexpr std::size_t kInPerChunk = kChunkUnits / 2;
  static std::size_t Units(std::size_t n) { return n * 2; }
  template <typename Unit>
  static void Encode(const unsigned char* in, std::size_t n, Unit* out) {
    EncodeBinHex(in, n, out);
  }
};

/// Encodes length bytes at data into out (Str holds Unit). Zero bytes give
/// the empty text (the size formula has nothing to round up from). The text
/// is sized once, then filled from a small stack block a chunk at a time,
/// so it is written once into memory the string already owns; out is
/// replaced only when the whole text is built.
template <typename Codec, typename Str, typename Unit>
void EncodeText(const char* data, unsigned int length, Str& out) {
  CheckData(data);
  if (length == 0) {
    out.Empty();
    return;
  }
  std::size_t units = Codec::Units(length);
  CheckTextLength(units);
  Str text;
  text.EnsureCapacity(static_cast<unsigned int>(units));
  Unit chunk[kChunkUnits + 1];
  const unsigned char* in = reinterpret_cast<const unsigned char*>(data);
  std::size_t left = length;
  while (left > 0) {
    std::size_t n = left < Codec::kInPerChunk ? left : Codec::kInPerChunk;
    Codec::Encode(in, n, chunk);
    chunk[Codec::Units(n)] = 0;
    text += chunk;
    in += n;
    left -= n;
  }
  out = text;
}

inline unsigned int TextLength(const char* text) {
  return static_cast<unsigned int>(std::strlen(text));
}
inline unsigned int TextLength(const unsigned short* text) { return platform::Utf16Length(text); }

/// Binhex text handed over as a pointer, zero-terminated or (textLength not
/// null) of an explicit length that may not be 0.
template <typename Unit>
void ParseBinHexPointer(const Unit* text, const unsigned int* textLength, char*& data,
                        unsigned int& length) {
  data = nullptr;
  length = 0;
  if (!text) VESK_THROW(kSource, CIllegalArgumentException, "Invalid value buffer.");
  if (textLength && *textLength == 0) {
    VESK_THROW(kSource, CIllegalArgumentException, "Invalid value buffer length.");
  }
  ParseBinHex(text, textLength ? *textLength : TextLength(text), data, length);
}

/// A new block holding a copy of length (> 0) bytes at data.
char* CopyBlock(const char* data, unsigned int length) {
  char* block = static_cast<char*>(platform::Alloc(length));
  if (!block) VESK_THROW(kSource, CMemoryException);
  std::memcpy(block, data, length);
  return block;
}

}  // namespace

// --- CBinaryData ----------------------------------------------------------------

CBinaryData::CBinaryData() : m_data(nullptr), m_length(0) {}

CBinaryData::CBinaryData(unsigned int length) : m_data(nullptr), m_length(0) {
  if (length == 0) return;
  m_data = static_cast<char*>(platform::Alloc(length));
  if (!m_data) VESK_THROW(kSource, CMemoryException);
  std::memset(m_data, 0, length);
  m_length = length;
}

CBinaryData::CBinaryData(const char* data, unsigned int length) : m_data(nullptr), m_length(0) {
  if (!data) VESK_THROW(kSource, CIllegalArgumentException, "Invalid binary data.");
  if (length == 0) return;
  m_data = CopyBlock(data, length);
  m_length = length;
}

CBinaryData::CBinaryData(const CBinaryData& other) : CBase(other), m_data(nullptr), m_length(0) {
  if (other.m_length == 0) return;
  m_data = CopyBlock(other.m_data, other.m_length);
  m_length = other.m_length;
}

CBinaryData& CBinaryData::operator=(const CBinaryData& other) {
  if (this == &other) return *this;
  char* fresh = other.m_length != 0 ? CopyBlock(other.m_data, other.m_length) : nullptr;
  platform::Free(m_data);
  m_data = fresh;
  m_length = other.m_length;
  return *this;
}

CBinaryData::~CBinaryData() { platform::Free(m_data); }

void CBinaryData::Truncate(unsigned int length) {
  if (length > m_length) VESK_THROW(kSource, CIllegalArgumentException, "Invalid new data length.");
  if (length == 0) {
    platform::Free(m_data);
    m_data = nullptr;
  }
  m_length = length;
}

bool CBinaryData::operator==(const CBinaryData& other) const {
  if (this == &other) return true;
  if (m_length != other.m_length) return false;
  return m_length == 0 || std::memcmp(m_data, other.m_data, m_length) == 0;
}

int CBinaryData::Compare(const CBinaryData& other) const {
  if (m_length != other.m_length) return m_length < other.m_length ? -1 : 1;
  if (m_length == 0) return 0;
  return std::memcmp(m_data, other.m_data, m_length);
}

void CBinaryData::FromBinHexString(const char* text) {
  Truncate(0);
  ParseBinHexString(text, m_data, m_length);
}

void CBinaryData::FromBinHexString(const char* text, unsigned int length) {
  Truncate(0);
  ParseBinHexString(text, length, m_data, m_length);
}

void CBinaryData::FromBinHexUnicodeString(const unsigned short* text) {
  Truncate(0);
  ParseBinHexUnicodeString(text, m_data, m_length);
}

void CBinaryData::FromBinHexUnicodeString(const unsigned short* text, unsigned int length) {
  Truncate(0);
  ParseBinHexUnicodeString(text, length, m_data, m_length);
}

// An empty object has no block to point at; its text is the empty text.
void CBinaryData::ToBinHexString(CString& out) const {
  if (m_length == 0) {
    out.Empty();
    return;
  }
  ToBinHexString(m_data, m_length, out);
}

CString CBinaryData::ToBinHexString() const {
  CString out;
  ToBinHexString(out);
  return out;
}

void CBinaryData::ToBinHexUnicodeString(CUnicodeString& out) const {
  if (m_length == 0) {
    out.Empty();
    return;
  }
  ToBinHexUnicodeString(m_data, m_length, out);
}

CUnicodeString CBinaryData::ToBinHexUnicodeString() const {
  CUnicodeString out;
  ToBinHexUnicodeString(out);
  return out;
}

// --- static conversions ------------------------------------------------------------

void CBinaryData::ToBase64String(const char* data, unsigned int length, CString& out) {
  EncodeText<Base64Codec, CString, char>(data, length, out);
}

CString CBinaryData::ToBase64String(const char* data, unsigned int length) {
  CString out;
  ToBase64String(data, length, out);
  return out;
}

void CBinaryData::ToBase64UnicodeString(const char* data, unsigned int length,
                                        CUnicodeString& out) {
  EncodeText<Base64Codec, CUnicodeString, unsigned short>(data, length, out);
}

CUnicodeString CBinaryData::ToBase64UnicodeString(const char* data, unsigned int length) {
  CUnicodeString out;
  ToBase64UnicodeString(data, length, out);
  return out;
}

void CBinaryData::ParseBase64String(const CString& text, char*& data, unsigned int& length) {
  ParseBase64(static_cast<const char*>(text), text.GetLength(), data, length);
}

void CBinaryData::ParseBase64UnicodeString(const CUnicodeString& text, char*& data,
                                           unsigned int& length) {
  ParseBase64(static_cast<const unsigned short*>(text), text.GetLength(), data, length);
}

void CBinaryData::ToBinHexString(const char* data, unsigned int length, CString& out) {
  EncodeText<BinHexCodec, CString, char>(data, length, out);
}

CString CBinaryData::ToBinHexString(const char* data, unsigned int length) {
  CString out;
  ToBinHexString(data, length, out);
  return out;
}

void CBinaryData::ToBinHexUnicodeString(const char* data, unsigned int length,
                                        CUnicodeString& out) {
  EncodeText<BinHexCodec, CUnicodeString, unsigned short>(data, length, out);
}

CUnicodeString CBinaryData::ToBinHexUnicodeString(const char* data, unsigned int length) {
  CUnicodeString out;
  ToBinHexUnicodeString(data, length, out);
  return out;
}

void CBinaryData::ParseBinHexString(const CString& text, char*& data, unsigned int& length) {
  ParseBinHex(static_cast<const char*>(text), text.GetLength(), data, length);
}

void CBinaryData::ParseBinHexString(const char* text, char*& data, unsigned int& length) {
  ParseBinHexPointer(text, nullptr, data, length);
}

void CBinaryData::ParseBinHexString(const char* text, unsigned int textLength, char*& data,
                                    unsigned int& length) {
  ParseBinHexPointer(text, &textLength, data, length);
}

void CBinaryData::ParseBinHexUnicodeString(const CUnicodeString& text, char*& data,
                                           unsigned int& length) {
  ParseBinHex(static_cast<const unsigned short*>(text), text.GetLength(), data, length);
}

void CBinaryData::ParseBinHexUnicodeString(const unsigned short* text, char*& data,
                                           unsigned int& length) {
  ParseBinHexPointer(text, nullptr, data, length);
}

void CBinaryData::ParseBinHexUnicodeString(const unsigned short* text, unsigned int textLength,
                                           char*& data, unsigned int& length) {
  ParseBinHexPointer(text, &textLength, data, length);
}

}  // namespace base
}  // namespace vesk
