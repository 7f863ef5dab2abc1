/// \file
/// CInputStream: the contract of a source of bytes.
#ifndef VESK_IO_INPUTSTREAM_H
#define VESK_IO_INPUTSTREAM_H

#include "vesk/base/Object.h"

namespace vesk {
namespace io {

/// A source of bytes. Read() hands out one byte sign-extended (0x80..0xFF
/// come back as -128..-1) and EOS at the end of the data; the array reads
/// return -1 at the end.
class VESK_API CInputStream : public vesk::base::CObject {
  VESK_DECLARE_CLASS(CInputStream);

  /// What Read() returns at the end of the data.
  static constexpr int EOS = 0xFFFF;

  /// Virtual: streams are deleted through the contract. Closes nothing.
  ~CInputStream() override;

  /// Bytes that can be read without blocking.
  virtual unsigned int GetAvailable() const = 0;
  /// Stores up to length bytes at buffer + offset; the count, or -1 at the
  /// end of the data.
  virtual int Read(char* buffer, unsigned int offset, unsigned int length) = 0;
  /// Default: Read(buffer, 0, length).
  virtual int Read(char* buffer, unsigned int length);
  /// One byte, sign-extended, or EOS. Default: through Read(local, 0, 1).
  virtual int Read();
  /// Default: reads up to count bytes one by one and returns how many were
  /// NOT skipped (0 when all were). Implementations may return the number
  /// skipped instead; callers check which kind of stream they hold.
  virtual int Skip(unsigned int count);
  /// Rewinds to the start (or to a decorator's mark).
  virtual void Reset() = 0;
  /// Releases what the stream holds; later calls fail.
  virtual void Close() = 0;

 protected:
  /// Only implementations are built.
  CInputStream() {}
};

}  // namespace io
}  // namespace vesk

#endif
