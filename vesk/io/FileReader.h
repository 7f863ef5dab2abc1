/// \file
/// CFileReader: reads the 16-bit units stored in a file.
#ifndef VESK_IO_FILEREADER_H
#define VESK_IO_FILEREADER_H

#include "IO/Location.h"
#include "vesk/io/Reader.h"

namespace IO {
class File;
}

namespace vesk {
namespace io {

/// A reader over a file of 16-bit units stored as they are, two bytes each
/// in host order (little-endian on the hosts the library runs on), with no
/// byte-order mark. Read() throws CIOException "End of stream reached." at
/// the end of the file; an array read that reaches the end throws "Failed to
/// read the specified number of wide chars from the underlying file.".
/// Every operation on a closed reader throws CIOException "Reader closed.".
class VESK_API CFileReader : public CReader {
  VESK_DECLARE_CLASS(CFileReader);

  /// Opens the file at location for reading. Throws CIOException: without a
  /// message when the location is unusable, "Access denied.", "Failed to
  /// open the underlying file.", "Failed to get the length of the underlying
  /// file." and "Invalid unicode file: the file length must be even." for a
  /// file of odd length.
  explicit CFileReader(const IO::Location& location);
  /// Closes the file when still open; a failure of that close is ignored.
  ~CFileReader() override;

  /// Reads length units to buffer + offset and returns the number read; 0
  /// for a length of 0. A null buffer skips length units instead and
  /// returns Skip(length).
  int Read(unsigned short* buffer, unsigned int offset, unsigned int length) override;
  /// Read(buffer, 0, length).
  int Read(unsigned short* buffer, unsigned int length) override;
  /// One unit; throws CIOException "End of stream reached." at the end.
  int Read() override;
  /// Moves forward by up to count units, never past the end; returns the
  /// number skipped.
  int Skip(unsigned int count) override;
  /// Back to the first unit.
  void Reset() override;
  /// Closes the file.
  void Close() override;

 private:
  CFileReader(const CFileReader&);
  CFileReader& operator=(const CFileReader&);
  void CheckOpen() const;

  IO::File* m_file;
};

}  // namespace io
}  // namespace vesk

#endif
