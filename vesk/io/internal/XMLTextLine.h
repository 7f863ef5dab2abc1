/// \file
/// The line an XML text writer assembles each operation's markup in before
/// printing it in one call.
#ifndef VESK_IO_INTERNAL_XMLTEXTLINE_H
#define VESK_IO_INTERNAL_XMLTEXTLINE_H

#include "vesk/base/Base.h"

namespace vesk {
namespace io {
namespace internal {

/// A growable array of UTF-16 units. Growth failure throws CIOException
/// "Memory full." (source "vesk/io/XMLTextWriter") and keeps the contents.
class CXMLTextLine : public vesk::base::CBase {
 public:
  CXMLTextLine() : m_units(nullptr), m_length(0), m_capacity(0) {}
  ~CXMLTextLine();

  const unsigned short* GetUnits() const { return m_units; }
  unsigned int GetLength() const { return m_length; }
  void Clear() { m_length = 0; }
  /// Drops what was appended after length units.
  void Truncate(unsigned int length) { m_length = length; }

  /// Room for n more units; returns where they go. Commit(end) then sets the
  /// length to end - GetUnits().
  unsigned short* Reserve(unsigned int n) {
    if (m_capacity - m_length < n) Grow(n);
    return m_units + m_length;
  }
  void Commit(const unsigned short* end) { m_length = static_cast<unsigned int>(end - m_units); }

  void Append(unsigned short unit) {
    *Reserve(1) = unit;
    ++m_length;
  }
  void Append(const unsigned short* units, unsigned int count) {
    unsigned short* out = Reserve(count);
    for (unsigned int i = 0; i < count; ++i) out[i] = units[i];
    m_length += count;
  }
  /// Appends ASCII text.
  void AppendAscii(const char* text) {
    while (*text) Append(static_cast<unsigned char>(*text++));
  }

 private:
  CXMLTextLine(const CXMLTextLine&);
  CXMLTextLine& operator=(const CXMLTextLine&);
  void Grow(unsigned int n);

  unsigned short* m_units;
  unsigned int m_length;
  unsigned int m_capacity;
};

/// Whether text is an XML 1.0 name without colon (a local name or prefix):
/// a name-start character, then name characters, by Xerces-C's XML 1.0
/// tables. Units outside the BMP are refused (see the text writer).
bool IsXMLNCName(const unsigned short* text, unsigned int length);

/// Whether every character of text is an XML 1.0 character: a lone
/// surrogate is not.
bool AreXMLChars(const unsigned short* text, unsigned int length);

/// Appends text to line with "&", "<", ">", "'" and "\"" replaced by their
/// entities and every character beyond the BMP by a hexadecimal character
/// reference. Returns false, with some units appended, at the first unit
/// that is not an XML 1.0 character.
bool AppendEscaped(CXMLTextLine& line, const unsigned short* text, unsigned int length);

}  // namespace internal
}  // namespace io
}  // namespace vesk

#endif
