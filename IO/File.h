/// \file
/// IO::File: a file of the file layer, opened for reading, writing or
/// appending from an IO::Location. Internal: only the file streams use it.
/// Every operation returns a status, 0 for success. Reads and writes go
/// through one block buffer, as in any file library, so unit-by-unit
/// transfers do not cost a system call each; a write error that surfaces
/// when the buffer is written out is returned by the call that wrote it out
/// (a write that filled the buffer, Flush or Close).
#ifndef VESK_IO_LAYER_FILE_H
#define VESK_IO_LAYER_FILE_H

#include <cstddef>
#include <cstdint>

#include "IO/FileHandle.h"
#include "IO/Location.h"

namespace IO {

class File {
 public:
  /// Access denied (the open was refused by the host's permissions).
  static constexpr unsigned int kStatusAccessDenied = 0x81010102u;
  /// The end of the data was reached during a read.
  static constexpr unsigned int kStatusEndOfData = 0x81000100u;
  /// Any other failure of the host's file calls.
  static constexpr unsigned int kStatusFailed = 0x81000001u;
  /// The location names no file (an empty path).
  static constexpr unsigned int kStatusInvalidLocation = 0x81000002u;
  /// The file is not open.
  static constexpr unsigned int kStatusNotOpen = 0x81000003u;

  /// Access directions.
  enum Access { kRead = 1, kWrite = 2 };
  /// Open modes: read an existing file; write (create or empty); append
  /// (create, every write at the end); write in place (create, write from
  /// the start without emptying).
  enum OpenMode { kModeRead = 0, kModeWrite = 2, kModeAppend = 4, kModeWriteInPlace = 6 };
  /// Block buffer size.
  static constexpr std::size_t kBufferSize = 64 * 1024;

  /// Binds the file to a location; nothing is opened yet. GetStatus tells
  /// whether the location can be used. Throws CMemoryException when the
  /// location cannot be copied.
  File(const Location& location, Access access);
  /// Closes a file still open; the status of that close is lost.
  ~File();

  /// Non-zero when the location is unusable.
  unsigned int GetStatus() const { return m_status; }
  /// Opens with a mode above; accessDeniedTreatment 2 reports a refused open
  /// as kStatusAccessDenied (the only treatment the layer knows).
  unsigned int Open(int mode, int accessDeniedTreatment);
  bool IsOpen() const { return m_handle != host::kNoHandle; }
  /// Writes out buffered data and closes. The file is closed whatever the
  /// result.
  unsigned int Close();

  /// Bytes from the current position to the end.
  unsigned int GetRemainingLength(std::uint64_t* remaining);
  /// The length of the file's data, buffered writes included.
  unsigned int GetDataLength(std::uint64_t* length);
  unsigned int GetPosition(std::uint64_t* position);
  /// Moves the position by offset from origin (0 start, 1 current, 2 end).
  unsigned int Seek(std::int64_t offset, int origin);
  unsigned int SetPosition(std::uint64_t position);

  /// Input: one byte, one 16-bit unit (host order); kStatusEndOfData when
  /// the file has fewer bytes left (a partial unit is consumed).
  unsigned int Read(unsigned char* byte);
  unsigned int Read(unsigned short* unit);
  /// Input: up to length bytes into buffer; *read is the count. Status
  /// kStatusEndOfData when the end came before length bytes.
  unsigned int ReadBin(void* buffer, std::size_t length, std::size_t* read);

  /// Output: one byte or 16-bit unit (host order); the result is kept as
  /// the output status.
  File& operator<<(char byte);
  File& operator<<(unsigned short unit);
  /// Output: length bytes; also kept as the output status.
  unsigned int WriteBin(const void* buffer, std::size_t length);
  /// Writes out buffered data to the host (not forced to the device).
  unsigned int Flush();
  /// Status of the last output operation.
  unsigned int GetOutputStatus() const { return m_outputStatus; }

 private:
  File(const File&);
  File& operator=(const File&);

  // Writes out buffered output bytes; drops them either way (their failure
  // is reported to the caller). Discards read-ahead by moving the host
  // position back to the logical one.
  unsigned int Sync();
  unsigned int Put(const void* data, std::size_t length);
  bool EnsureBuffer();

  Location m_location;
  host::Handle m_handle;
  unsigned int m_status;
  unsigned int m_outputStatus;
  char* m_buffer;           // null until first needed; without one, calls go straight through
  std::size_t m_readEnd;    // read-ahead bytes in the buffer
  std::size_t m_readPos;    // next unread one
  std::size_t m_writeLen;   // output bytes waiting in the buffer
};

}  // namespace IO

#endif
