/// \file
/// CMemoryOutputStream: collects the bytes written to it in a heap block.
#ifndef VESK_IO_MEMORYOUTPUTSTREAM_H
#define VESK_IO_MEMORYOUTPUTSTREAM_H

#include "vesk/io/OutputStream.h"

namespace vesk {
namespace io {

/// An output stream into a growing block of the library heap. The block
/// grows to the needed size rounded up to a multiple of the growth step,
/// never geometrically and never shrinking. After Close the collected bytes
/// stay readable; writes throw CIOException "Stream closed.".
class VESK_API CMemoryOutputStream : public COutputStream {
  VESK_DECLARE_CLASS(CMemoryOutputStream);

  /// A 256-byte block, growing by 64.
  CMemoryOutputStream();
  /// A non-zero initialCapacity is allocated at once (CMemoryException when
  /// that fails); a growBy of 0 means 64.
  CMemoryOutputStream(unsigned int initialCapacity, unsigned int growBy);
  /// Frees the collected bytes.
  ~CMemoryOutputStream() override;

  /// Appends; CIOException "Memory full." when the block cannot grow.
  void Write(const char* buffer, unsigned int offset, unsigned int length) override;
  void Write(const char* buffer, unsigned int length) override;
  void Write(char byte) override;
  /// Nothing to flush; throws only when closed.
  void Flush() override;
  /// Stops writing; keeps the bytes. Never throws, may be repeated.
  void Close() override;

  /// The bytes written so far (null before the first allocation).
  const char* GetBuffer() const { return m_buffer; }
  /// Number of bytes written so far (not the capacity).
  unsigned int GetBufferSize() const { return m_size; }
  /// Forgets the bytes written; the block is kept.
  void Reset() { m_size = 0; }
  /// Hands the block to the caller, who frees it with the library heap; the
  /// stream starts again with no block.
  char* DetachBuffer();
  /// Makes room for needed bytes in all, rounded up to the growth step.
  /// False (the old block kept) when the allocation fails.
  bool EnsureBufferCapacity(unsigned int needed);

 private:
  CMemoryOutputStream(const CMemoryOutputStream&);
  CMemoryOutputStream& operator=(const CMemoryOutputStream&);

  void Append(const char* bytes, unsigned int length);

  char* m_buffer;
  unsigned int m_size;
  unsigned int m_capacity;
  unsigned int m_growBy;
  bool m_open;
};

}  // namespace io
}  // namespace vesk

#endif
