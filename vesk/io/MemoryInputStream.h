/// \file
/// CMemoryInputStream: reads a caller-supplied block of bytes.
#ifndef VESK_IO_MEMORYINPUTSTREAM_H
#define VESK_IO_MEMORYINPUTSTREAM_H

#include "vesk/io/InputStream.h"

namespace vesk {
namespace io {

/// An input stream over a byte block. The block is borrowed, or owned (and
/// released with the library heap on Close and on destruction) when the
/// constructor is told to take it over. Every operation on a closed stream,
/// Close included, throws CIOException "Stream closed.".
class VESK_API CMemoryInputStream : public CInputStream {
  VESK_DECLARE_CLASS(CMemoryInputStream);

  /// Reads data[0 .. length). takeOwnership hands the block (from the
  /// library heap) to the stream. Throws CIllegalArgumentException for null
  /// data.
  CMemoryInputStream(const char* data, unsigned int length, bool takeOwnership);
  /// Frees the data when the stream owns it and has not been closed.
  ~CMemoryInputStream() override;

  /// Bytes left to read.
  unsigned int GetAvailable() const override;
  /// Copies up to length bytes; -1 at the end, 0 for a length of 0. A null
  /// buffer discards length bytes instead and returns Skip(length).
  int Read(char* buffer, unsigned int offset, unsigned int length) override;
  int Read(char* buffer, unsigned int length) override;
  int Read() override;
  /// Advances by up to count bytes and returns the number skipped.
  int Skip(unsigned int count) override;
  /// Back to the first byte.
  void Reset() override;
  void Close() override;

 private:
  CMemoryInputStream(const CMemoryInputStream&);
  CMemoryInputStream& operator=(const CMemoryInputStream&);

  const char* m_buffer;
  unsigned int m_length;
  unsigned int m_position;
  bool m_ownsBuffer;
};

}  // namespace io
}  // namespace vesk

#endif
