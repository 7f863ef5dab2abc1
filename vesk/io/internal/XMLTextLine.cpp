#include "vesk/io/internal/XMLTextLine.h"

#include <cstddef>

#include <xercesc/util/XMLChar.hpp>

#include "vesk/io/IOException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {
namespace internal {

using xercesc::XMLChar1_0;

CXMLTextLine::~CXMLTextLine() { platform::Free(m_units); }

void CXMLTextLine::Grow(unsigned int n) {
  unsigned long long wanted = static_cast<unsigned long long>(m_length) + n;
  unsigned long long capacity = m_capacity < 256 ? 256 : m_capacity;
  while (capacity < wanted) capacity *= 2;
  if (capacity > 0xFFFFFFFFull / sizeof(unsigned short))
    VESK_THROW("vesk/io/XMLTextWriter", CIOException, "Memory full.");
  void* block =
      platform::Realloc(m_units, static_cast<std::size_t>(capacity) * sizeof(unsigned short));
  if (!block) VESK_THROW("vesk/io/XMLTextWriter", CIOException, "Memory full.");
  m_units = static_cast<unsigned short*>(block);
  m_capacity = static_cast<unsigned int>(capacity);
}

namespace {

inline bool IsSurrogate(unsigned int c) { return c - 0xD800u < 0x800u; }

// The entities of the five markup characters, by their code; null for the
// other ASCII characters.
const char* const* EntityTable() {
  static const char* table[128] = {};
  static bool filled = false;
  if (!filled) {
    table['&'] = "&amp;";
    table['<'] = "&lt;";
    table['>'] = "&gt;";
    table['\''] = "&apos;";
    table['"'] = "&quot;";
    filled = true;
  }
  return table;
}

const char* const* const kEntities = EntityTable();

// The most units one input unit can turn into: "&quot;" is six, a
// character reference for a pair "&#x10FFFF;" is ten for two units.
const unsigned int kMaxExpansion = 6;
const unsigned int kChunk = 4096;

}  // namespace

bool IsXMLNCName(const unsigned short* text, unsigned int length) {
  if (length == 0 || IsSurrogate(text[0]) || !XMLChar1_0::isFirstNCNameChar(text[0])) return false;
  for (unsigned int i = 1; i < length; ++i)
    if (IsSurrogate(text[i]) || !XMLChar1_0::isNCNameChar(text[i])) return false;
  return true;
}

bool AreXMLChars(const unsigned short* text, unsigned int length) {
  for (unsigned int i = 0; i < length; ++i) {
    unsigned int c = text[i];
    if (!IsSurrogate(c)) {
      if (!XMLChar1_0::isXMLChar(static_cast<XMLCh>(c))) return false;
    } else if (c <= 0xDBFF && i + 1 < length && text[i + 1] - 0xDC00u < 0x400u) {
      ++i;
    } else {
      return false;
    }
  }
  return true;
}

bool AppendEscaped(CXMLTextLine& line, const unsigned short* text, unsigned int length) {
  const unsigned short* in = text;
  const unsigned short* const end = text + length;
  while (in < end) {
    unsigned int chunk =
        static_cast<unsigned int>(end - in) < kChunk ? static_cast<unsigned int>(end - in) : kChunk;
    unsigned short* out = line.Reserve(chunk * kMaxExpansion + kMaxExpansion);
    const unsigned short* const chunkEnd = in + chunk;
    while (in < chunkEnd) {
      unsigned int c = *in;
      if (c < 0x80) {
        if (c >= 0x20 && !kEntities[c]) {
          *out++ = static_cast<unsigned short>(c);
        } else if (kEntities[c]) {
          for (const char* e = kEntities[c]; *e; ++e) *out++ = static_cast<unsigned short>(*e);
        } else if (XMLChar1_0::isXMLChar(static_cast<XMLCh>(c))) {
          *out++ = static_cast<unsigned short>(c);  // tab, line feed, carriage return
        } else {
          line.Commit(out);
          return false;
        }
        ++in;
      } else if (!IsSurrogate(c)) {
        if (!XMLChar1_0::isXMLChar(static_cast<XMLCh>(c))) {
          line.Commit(out);
          return false;
        }
        *out++ = static_cast<unsigned short>(c);
        ++in;
      } else if (c <= 0xDBFF && in + 1 < end && in[1] - 0xDC00u < 0x400u) {
        // The encoder writes a surrogate pair that reaches it in one piece as
        // "?", so a character beyond the BMP goes out as a reference.
        unsigned int cp = 0x10000 + ((c - 0xD800u) << 10) + (in[1] - 0xDC00u);
        *out++ = '&';
        *out++ = '#';
        *out++ = 'x';
        int shift = 20;
        while (shift > 0 && ((cp >> shift) & 0xF) == 0) shift -= 4;
        for (; shift >= 0; shift -= 4)
          *out++ = static_cast<unsigned short>("0123456789ABCDEF"[(cp >> shift) & 0xF]);
        *out++ = ';';
        in += 2;
      } else {
        line.Commit(out);
        return false;
      }
    }
    line.Commit(out);
  }
  return true;
}

}  // namespace internal
}  // namespace io
}  // namespace vesk
