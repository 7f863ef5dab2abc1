/// \file
/// CFileOutputStream: writes bytes to a file.
#ifndef VESK_IO_FILEOUTPUTSTREAM_H
#define VESK_IO_FILEOUTPUTSTREAM_H

#include "IO/Location.h"
#include "vesk/io/OutputStream.h"

namespace IO {
class File;
}

namespace vesk {
namespace io {

/// An output stream to a file of the file layer, which buffers what is
/// written: bytes are in the file after a successful Flush or Close, and a
/// write error that shows when the buffer is written out (a full disk) is
/// thrown by the call that wrote it out. Every operation on a closed stream
/// throws CIOException "Stream closed.".
class VESK_API CFileOutputStream : public COutputStream {
  VESK_DECLARE_CLASS(CFileOutputStream);

  /// Opens the file at location for writing: created when missing, emptied
  /// first unless append is set, in which case writes go after the existing
  /// content. Throws CIOException: without a message when the location is
  /// unusable, "Access denied.", "Failed to open the underlying file.".
  CFileOutputStream(const IO::Location& location, bool append);
  /// Closes the file when still open and swallows a CIOException from that
  /// close.
  ~CFileOutputStream() override;

  /// Writes buffer[offset .. offset + length); nothing for a null buffer.
  /// Throws CIOException "Failed to write the specified number of bytes to
  /// the underlying file.".
  void Write(const char* buffer, unsigned int offset, unsigned int length) override;
  /// Write(buffer, 0, length).
  void Write(const char* buffer, unsigned int length) override;
  /// Writes one byte. Throws CIOException "Failed to write the specified
  /// byte the the underlying file.".
  void Write(char byte) override;
  /// Hands buffered bytes to the host. Throws CIOException "Failed to flush
  /// the underlying file.".
  void Flush() override;
  /// Writes out buffered bytes and closes the file (closed even when that
  /// fails). Throws CIOException "Failed to close the underlying file.".
  void Close() override;

 private:
  CFileOutputStream(const CFileOutputStream&);
  CFileOutputStream& operator=(const CFileOutputStream&);
  void CheckOpen() const;
  void InternalWrite(const char* buffer, unsigned int offset, unsigned int length);

  IO::File* m_file;
};

}  // namespace io
}  // namespace vesk

#endif
