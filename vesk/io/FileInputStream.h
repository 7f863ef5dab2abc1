/// \file
/// CFileInputStream: reads the bytes of a file.
#ifndef VESK_IO_FILEINPUTSTREAM_H
#define VESK_IO_FILEINPUTSTREAM_H

#include "IO/Location.h"
#include "vesk/io/InputStream.h"

namespace IO {
class File;
}

namespace vesk {
namespace io {

/// An input stream over a file of the file layer. Unlike the memory and
/// buffered streams, Read() throws CIOException "End of stream reached." at
/// the end of the file, and the array reads return 0 there (never -1).
/// Every operation on a closed stream, a second Close included, throws
/// CIOException "Stream closed.".
class VESK_API CFileInputStream : public CInputStream {
  VESK_DECLARE_CLASS(CFileInputStream);

  /// Opens the file at location for reading. Throws CIOException: without a
  /// message when the location is unusable, "Access denied." when the host
  /// refuses access, "An error occurred while trying to open file." for any
  /// other failure (a missing file among them).
  explicit CFileInputStream(const IO::Location& location);
  /// Closes the file when still open; a failure of that close is ignored.
  ~CFileInputStream() override;

  /// Bytes from the position to the end of the file. Throws CIOException
  /// "64-bit file sizes not supported" when they do not fit 32 bits.
  unsigned int GetAvailable() const override;
  /// Reads up to length bytes to buffer + offset; the count read, 0 at the
  /// end of the file or for a length of 0. A null buffer skips length bytes
  /// instead and returns Skip(length).
  int Read(char* buffer, unsigned int offset, unsigned int length) override;
  /// Read(buffer, 0, length).
  int Read(char* buffer, unsigned int length) override;
  /// One byte, sign-extended; throws CIOException "End of stream reached."
  /// at the end of the file.
  int Read() override;
  /// Moves forward by up to count bytes, never past the end; returns the
  /// number skipped.
  int Skip(unsigned int count) override;
  /// Back to the first byte.
  void Reset() override;
  /// Closes the file.
  void Close() override;

 private:
  CFileInputStream(const CFileInputStream&);
  CFileInputStream& operator=(const CFileInputStream&);
  void CheckOpen() const;

  IO::File* m_file;
};

}  // namespace io
}  // namespace vesk

#endif
