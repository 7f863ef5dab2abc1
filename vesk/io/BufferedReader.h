/// \file
/// CBufferedReader: reads another reader through a buffer.
#ifndef VESK_IO_BUFFEREDREADER_H
#define VESK_IO_BUFFEREDREADER_H

#include "vesk/base/Ref.h"
#include "vesk/io/Reader.h"

namespace vesk {
namespace io {

/// A decorator that fills a buffer of 16-bit units with one read of the
/// wrapped reader at a time. An array read longer than the buffer goes
/// straight to the wrapped reader, ahead of units still buffered. An array
/// read that the buffered units cannot serve strictly hands out the units of
/// the next fill only, written over the start of the target. The CRef
/// constructor keeps the wrapped reader alive; the pointer constructor
/// borrows it.
class VESK_API CBufferedReader : public CReader {
  VESK_DECLARE_CLASS(CBufferedReader);

  /// Borrows reader. Throws CIllegalArgumentException for null or a size of
  /// 0, CMemoryException when the buffer cannot be allocated.
  CBufferedReader(CReader* reader, unsigned int size);
  /// Shares reader; otherwise as above.
  CBufferedReader(const vesk::base::CRef<CReader>& reader, unsigned int size);
  /// Frees the buffer; does not close the wrapped reader.
  ~CBufferedReader() override;

  int Read(unsigned short* buffer, unsigned int offset, unsigned int length) override;
  int Read(unsigned short* buffer, unsigned int length) override;
  /// One unit, or EOS.
  int Read() override;
  /// Returns the buffered units dropped plus what the wrapped Skip returns.
  int Skip(unsigned int count) override;
  /// Drops the buffer and resets the wrapped reader.
  void Reset() override;
  /// Closes the wrapped reader; the decorator is closed even when that
  /// fails. Closing twice throws.
  void Close() override;

 private:
  CBufferedReader(const CBufferedReader&);
  CBufferedReader& operator=(const CBufferedReader&);

  void Init(CReader* reader, unsigned int size);
  void FillBuffer();
  int ReadInto(unsigned short* buffer, unsigned int offset, unsigned int length, bool withOffset);

  CReader* m_stream;
  vesk::base::CRef<CReader> m_streamRef;
  unsigned short* m_buffer;
  unsigned int m_bufferSize;
  unsigned int m_count;
  unsigned int m_position;
};

}  // namespace io
}  // namespace vesk

#endif
