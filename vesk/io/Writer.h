/// \file
/// CWriter: the contract of a sink of 16-bit character units.
#ifndef VESK_IO_WRITER_H
#define VESK_IO_WRITER_H

#include "vesk/base/Object.h"

namespace vesk {
namespace base {
class CUnicodeString;
}
namespace io {

/// A sink of UTF-16 code units. Implementations supply the array write,
/// Flush and Close; every other write is expressed through the array write.
class VESK_API CWriter : public vesk::base::CObject {
  VESK_DECLARE_CLASS(CWriter);

  /// Virtual: writers are deleted through the contract. Flushes and closes
  /// nothing.
  ~CWriter() override;

  /// Writes text[offset .. offset + length), the length clamped to the text;
  /// nothing when the text is empty or offset is past its end.
  virtual void Write(const vesk::base::CUnicodeString& text, unsigned int offset,
                     unsigned int length);
  /// Writes the whole text; nothing when it is empty.
  virtual void Write(const vesk::base::CUnicodeString& text);
  /// Writes chars[offset .. offset + length).
  virtual void Write(const unsigned short* chars, unsigned int offset, unsigned int length) = 0;
  /// Nothing for null, else Write(chars, 0, length).
  virtual void Write(const unsigned short* chars, unsigned int length);
  /// A zero-terminated text; nothing for null.
  virtual void Write(const unsigned short* chars);
  /// One unit.
  virtual void Write(unsigned short ch);
  /// Passes what is buffered on to the destination.
  virtual void Flush() = 0;
  /// Flushes and releases the destination; later writes fail.
  virtual void Close() = 0;

 protected:
  /// Only implementations are built.
  CWriter() {}
};

}  // namespace io
}  // namespace vesk

#endif
