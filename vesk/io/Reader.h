/// \file
/// CReader: the contract of a source of 16-bit character units.
#ifndef VESK_IO_READER_H
#define VESK_IO_READER_H

#include "vesk/base/Object.h"

namespace vesk {
namespace io {

/// A source of UTF-16 code units. Read() hands out one unit zero-extended and
/// EOS (outside the 16-bit range) at the end; the array reads return -1 at
/// the end.
class VESK_API CReader : public vesk::base::CObject {
  VESK_DECLARE_CLASS(CReader);

  /// What Read() returns at the end of the data.
  static constexpr int EOS = 0xFFFFF;

  /// Virtual: readers are deleted through the contract. Closes nothing.
  ~CReader() override;

  /// Stores up to length units at buffer + offset; the count, or -1 at the
  /// end of the data.
  virtual int Read(unsigned short* buffer, unsigned int offset, unsigned int length) = 0;
  /// Default: Read(buffer, 0, length).
  virtual int Read(unsigned short* buffer, unsigned int length);
  /// One unit, or EOS. Default: through Read(local, 0, 1).
  virtual int Read();
  /// Default: reads up to count units one by one and returns how many were
  /// NOT skipped (0 when all were).
  virtual int Skip(unsigned int count);
  /// Rewinds to the start (or to a decorator's mark).
  virtual void Reset() = 0;
  /// Releases what the reader holds; later calls fail.
  virtual void Close() = 0;

 protected:
  /// Only implementations are built.
  CReader() {}
};

}  // namespace io
}  // namespace vesk

#endif
