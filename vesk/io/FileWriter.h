/// \file
/// CFileWriter: writes 16-bit units to a file.
#ifndef VESK_IO_FILEWRITER_H
#define VESK_IO_FILEWRITER_H

#include "IO/Location.h"
#include "vesk/io/Writer.h"

namespace IO {
class File;
}

namespace vesk {
namespace io {

/// A writer that stores 16-bit units in a file as they are, two bytes each
/// in host order (little-endian on the hosts the library runs on), with no
/// byte-order mark and no encoding step; CFileReader reads them back. The
/// file is always emptied first (a writer never appends). Writes are
/// buffered as for CFileOutputStream. Every operation on a closed writer
/// throws CIOException "Writer closed.".
class VESK_API CFileWriter : public CWriter {
  VESK_DECLARE_CLASS(CFileWriter);

  /// Creates or empties the file at location. Throws CIOException: without
  /// a message when the location is unusable, "Access denied.", "Failed to
  /// open the underlying file.".
  explicit CFileWriter(const IO::Location& location);
  /// Closes the file when still open and swallows a CIOException from that
  /// close.
  ~CFileWriter() override;

  /// Writes text[offset .. offset + length), clamped to the text.
  void Write(const vesk::base::CUnicodeString& text, unsigned int offset,
             unsigned int length) override;
  /// Writes the whole text; nothing when it is empty.
  void Write(const vesk::base::CUnicodeString& text) override;
  /// Writes chars[offset .. offset + length); nothing for null. Throws
  /// CIOException "Failed to write the specified number of wide chars to the
  /// underlying file.".
  void Write(const unsigned short* chars, unsigned int offset, unsigned int length) override;
  /// Write(chars, 0, length).
  void Write(const unsigned short* chars, unsigned int length) override;
  /// A zero-terminated text; nothing for null or empty.
  void Write(const unsigned short* chars) override;
  /// One unit. Throws CIOException "Failed to write the specified wide char
  /// to the underlying file.".
  void Write(unsigned short ch) override;
  /// Hands buffered units to the host. Throws CIOException "Failed to flush
  /// the underlying file.".
  void Flush() override;
  /// Writes out buffered units and closes the file (closed even when that
  /// fails). Throws CIOException "Failed to close the underlying file.".
  void Close() override;

 private:
  CFileWriter(const CFileWriter&);
  CFileWriter& operator=(const CFileWriter&);
  void CheckOpen() const;
  void InternalWrite(const unsigned short* chars, unsigned int offset, unsigned int length);

  IO::File* m_file;
};

}  // namespace io
}  // namespace vesk

#endif
