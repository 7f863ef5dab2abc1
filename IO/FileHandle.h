/// \file
/// The host's file calls beneath IO::File: a file handle opened from a UTF-8
/// path, unbuffered reads and writes, seeks and sizes. Internal: the host
/// folder (posix/) supplies them. Every call returns 0 or one of the
/// IO::File status values.
#ifndef VESK_IO_LAYER_FILEHANDLE_H
#define VESK_IO_LAYER_FILEHANDLE_H

#include <cstddef>
#include <cstdint>

namespace IO {
namespace host {

/// A host file handle; kNoHandle when none is open.
typedef std::intptr_t Handle;
constexpr Handle kNoHandle = -1;

/// How a file is opened.
enum OpenKind {
  kOpenRead,           ///< existing file, reading
  kOpenWriteTruncate,  ///< create or empty, writing
  kOpenAppend,         ///< create, every write at the end
  kOpenWriteInPlace    ///< create, writing from offset 0 without emptying
};

/// Opens path (close-on-exec); handle is kNoHandle on failure.
unsigned int OpenFile(const char* path, OpenKind kind, Handle* handle);
/// Reads up to length bytes; *done is the count (0 at the end of the file).
unsigned int ReadFile(Handle handle, void* buffer, std::size_t length, std::size_t* done);
/// Writes all length bytes, or fails.
unsigned int WriteFile(Handle handle, const void* buffer, std::size_t length);
/// Moves the file position: origin 0 from the start, 1 from the current
/// position, 2 from the end. *position receives the new position.
unsigned int SeekFile(Handle handle, std::int64_t offset, int origin, std::uint64_t* position);
/// The size of the file in bytes.
unsigned int FileSize(Handle handle, std::uint64_t* size);
/// Forces written data to the storage device; a file that cannot be synced
/// (a device, a pipe) succeeds.
unsigned int SyncFile(Handle handle);
/// Closes the handle; the handle is gone whatever the result.
unsigned int CloseFile(Handle handle);

}  // namespace host
}  // namespace IO

#endif
