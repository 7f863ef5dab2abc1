#include "vesk/io/WCharToCharUTF8.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "vesk/io/ConcreteWCharToCharConverterFactory.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CWCharToCharUTF8, CWCharToCharUTF8, "vesk::io::CWCharToCharUTF8",
                     "vesk::io::CWCharToCharConverter")

namespace {

// Makes "UTF-8" available from load to unload.
CConcreteWCharToCharConverterFactory<CWCharToCharUTF8> s_utf8Factory("UTF-8");

inline bool IsHighSurrogate(unsigned int c) { return c >= 0xD800 && c <= 0xDBFF; }
inline bool IsLowSurrogate(unsigned int c) { return c >= 0xDC00 && c <= 0xDFFF; }

}  // namespace

const unsigned short CWCharToCharUTF8::kNoPendingSurrogate;

CWCharToCharUTF8::CWCharToCharUTF8()
    : CWCharToCharConverter("UTF-8"), m_pendingHighSurrogate(kNoPendingSurrogate) {}

CWCharToCharUTF8::CWCharToCharUTF8(const CWCharToCharUTF8& other)
    : CWCharToCharConverter(other), m_pendingHighSurrogate(other.m_pendingHighSurrogate) {}

CWCharToCharUTF8& CWCharToCharUTF8::operator=(const CWCharToCharUTF8& other) {
  CWCharToCharConverter::operator=(other);
  m_pendingHighSurrogate = other.m_pendingHighSurrogate;
  return *this;
}

CWCharToCharUTF8::~CWCharToCharUTF8() {}

int CWCharToCharUTF8::Convert(const unsigned short* units, unsigned int offset, unsigned int length,
                              char* bytes, unsigned int byteOffset, unsigned int byteLength) {
  const unsigned short* in = units + offset;
  const unsigned short* const inEnd = in + length;
  unsigned char* const start = reinterpret_cast<unsigned char*>(bytes) + byteOffset;
  unsigned char* out = start;
  unsigned char* const outEnd = start + byteLength;

  // With no input there is nothing to pair a pending unit with yet: it
  // stays pending.
  if (m_pendingHighSurrogate != kNoPendingSurrogate && in < inEnd) {
    if (IsLowSurrogate(*in)) {
      if (outEnd - out < 4) return -1;
      unsigned int cp = 0x10000 + ((m_pendingHighSurrogate - 0xD800u) << 10) + (*in - 0xDC00u);
      out[0] = static_cast<unsigned char>(0xF0 | (cp >> 18));
      out[1] = static_cast<unsigned char>(0x80 | ((cp >> 12) & 0x3F));
      out[2] = static_cast<unsigned char>(0x80 | ((cp >> 6) & 0x3F));
      out[3] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
      out += 4;
      ++in;
    } else {
      if (out >= outEnd) return -1;
      *out++ = '?';  // the orphan is dropped; the current unit is encoded below
    }
    m_pendingHighSurrogate = kNoPendingSurrogate;
  }

  // No early refusal: when the room runs out, the bytes of every unit
  // before the one that did not fit stay written (uncounted) in the output
  // area, and -1 is returned at that unit.
  while (in < inEnd) {
    // While the room left takes three bytes for every unit left, no unit
    // can overflow it: encode without checking room per unit.
    const unsigned short* fastEnd = inEnd;
    std::size_t room = static_cast<std::size_t>(outEnd - out);
    if (room / 3 < static_cast<std::size_t>(inEnd - in)) fastEnd = in + room / 3;
    while (in < fastEnd) {
      // Runs of ASCII, four units at a time.
      while (fastEnd - in >= 4) {
        std::uint64_t four;
        std::memcpy(&four, in, sizeof four);
        if (four & 0xFF80FF80FF80FF80ull) break;
        out[0] = static_cast<unsigned char>(in[0]);
        out[1] = static_cast<unsigned char>(in[1]);
        out[2] = static_cast<unsigned char>(in[2]);
        out[3] = static_cast<unsigned char>(in[3]);
        in += 4;
        out += 4;
      }
      if (in >= fastEnd) break;
      unsigned int c = *in;
      if (c < 0x80) {
        *out++ = static_cast<unsigned char>(c);
        ++in;
      } else if (c < 0x800) {
        out[0] = static_cast<unsigned char>(0xC0 | (c >> 6));
        out[1] = static_cast<unsigned char>(0x80 | (c & 0x3F));
        out += 2;
        ++in;
      } else if (!IsHighSurrogate(c)) {
        out[0] = static_cast<unsigned char>(0xE0 | (c >> 12));
        out[1] = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
        out[2] = static_cast<unsigned char>(0x80 | (c & 0x3F));
        out += 3;
        ++in;
      } else if (in + 1 == inEnd) {
        m_pendingHighSurrogate = static_cast<unsigned short>(c);
        return static_cast<int>(out - start);
      } else {
        *out++ = '?';
        in += 2;
        // Two units consumed for one byte: the room bound still holds, but
        // fastEnd may now lie behind in.
        if (in > fastEnd) break;
      }
    }
    if (in >= inEnd) break;
    if (in < fastEnd) continue;

    // Near the end of the output area: check the room of every unit.
    unsigned int c = *in;
    std::size_t need = c < 0x80 ? 1 : c < 0x800 ? 2 : IsHighSurrogate(c) ? 1 : 3;
    if (IsHighSurrogate(c) && in + 1 == inEnd) {
      m_pendingHighSurrogate = static_cast<unsigned short>(c);
      return static_cast<int>(out - start);
    }
    if (static_cast<std::size_t>(outEnd - out) < need) return -1;
    if (c < 0x80) {
      *out++ = static_cast<unsigned char>(c);
      ++in;
    } else if (c < 0x800) {
      out[0] = static_cast<unsigned char>(0xC0 | (c >> 6));
      out[1] = static_cast<unsigned char>(0x80 | (c & 0x3F));
      out += 2;
      ++in;
    } else if (IsHighSurrogate(c)) {
      *out++ = '?';
      in += 2;
    } else {
      out[0] = static_cast<unsigned char>(0xE0 | (c >> 12));
      out[1] = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
      out[2] = static_cast<unsigned char>(0x80 | (c & 0x3F));
      out += 3;
      ++in;
    }
  }
  return static_cast<int>(out - start);
}

unsigned short CWCharToCharUTF8::Reset() {
  m_pendingHighSurrogate = kNoPendingSurrogate;
  return kNoPendingSurrogate;
}

void CWCharToCharUTF8::GetByteOrderMark(char* bytes, unsigned int* size) {
  if (!size) return;
  if (!bytes) {
    *size = 3;
    return;
  }
  if (*size < 3) {
    *size = 0;
    return;
  }
  bytes[0] = static_cast<char>(0xEF);
  bytes[1] = static_cast<char>(0xBB);
  bytes[2] = static_cast<char>(0xBF);
  *size = 3;
}

}  // namespace io
}  // namespace vesk
