/// \file
/// CNativeFileOutputStream: writes bytes straight to a file through the
/// host's own file calls.
#ifndef VESK_IO_NATIVEFILEOUTPUTSTREAM_H
#define VESK_IO_NATIVEFILEOUTPUTSTREAM_H

#include "vesk/io/OutputStream.h"

namespace vesk {
namespace io {

namespace internal {
class CNativeFileOutputStreamIW;
}

/// An unbuffered output stream to a file: every write goes to the host at
/// once. The file is created when missing and never emptied: without
/// append, writing starts at offset 0 and overwrites, and bytes beyond the
/// last one written stay as they were. Other handles may read the file
/// while it is open.
class VESK_API CNativeFileOutputStream : public COutputStream {
  VESK_DECLARE_CLASS(CNativeFileOutputStream);

  /// Opens the file at path (zero-terminated UTF-16). Throws
  /// CIllegalArgumentException "Invalid file path." for a null or empty
  /// path; CIOException "Access denied.", "Failed to open the specified
  /// file." or, with append, "Failed to move the file pointer to the end of
  /// the file.".
  CNativeFileOutputStream(const unsigned short* path, bool append);
  /// Closes the file when still open.
  ~CNativeFileOutputStream() override;

  /// Writes buffer[offset .. offset + length); nothing for a null buffer.
  /// Throws CIOException "Stream closed." or "Failed to write the specified
  /// byte the the underlying file." (the same text for blocks).
  void Write(const char* buffer, unsigned int offset, unsigned int length) override;
  /// Write(buffer, 0, length).
  void Write(const char* buffer, unsigned int length) override;
  /// Writes one byte.
  void Write(char byte) override;
  /// Forces written bytes to the storage device. Throws CIOException
  /// "Stream closed." or "Failed to flush the buffers of the underlying
  /// file.".
  void Flush() override;
  /// Closes the file; nothing when already closed.
  void Close() override;

 private:
  CNativeFileOutputStream(const CNativeFileOutputStream&);
  CNativeFileOutputStream& operator=(const CNativeFileOutputStream&);
  void CheckOpen() const;

  internal::CNativeFileOutputStreamIW* m_impl;
};

}  // namespace io
}  // namespace vesk

#endif
