#include "IO/FileHandle.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "IO/File.h"

namespace IO {
namespace host {

namespace {

unsigned int StatusOf(int error) {
  return (error == EACCES || error == EPERM || error == EROFS) ? File::kStatusAccessDenied
                                                               : File::kStatusFailed;
}

int Descriptor(Handle handle) { return static_cast<int>(handle); }

}  // namespace

unsigned int OpenFile(const char* path, OpenKind kind, Handle* handle) {
  *handle = kNoHandle;
  int flags = O_CLOEXEC;
  switch (kind) {
    case kOpenRead:
      flags |= O_RDONLY;
      break;
    case kOpenWriteTruncate:
      flags |= O_WRONLY | O_CREAT | O_TRUNC;
      break;
    case kOpenAppend:
      flags |= O_WRONLY | O_CREAT | O_APPEND;
      break;
    case kOpenWriteInPlace:
      flags |= O_WRONLY | O_CREAT;
      break;
  }
  int fd;
  do {
    fd = ::open(path, flags, 0666);
  } while (fd < 0 && errno == EINTR);
  if (fd < 0) return StatusOf(errno);
  // A folder opens for reading on POSIX but is no file to stream.
  struct stat info;
  if (::fstat(fd, &info) != 0 || S_ISDIR(info.st_mode)) {
    ::close(fd);
    return File::kStatusFailed;
  }
  *handle = fd;
  return 0;
}

unsigned int ReadFile(Handle handle, void* buffer, std::size_t length, std::size_t* done) {
  ssize_t n;
  do {
    n = ::read(Descriptor(handle), buffer, length);
  } while (n < 0 && errno == EINTR);
  *done = n > 0 ? static_cast<std::size_t>(n) : 0;
  return n < 0 ? StatusOf(errno) : 0;
}

unsigned int WriteFile(Handle handle, const void* buffer, std::size_t length) {
  const char* p = static_cast<const char*>(buffer);
  while (length > 0) {
    ssize_t n = ::write(Descriptor(handle), p, length);
    if (n < 0) {
      if (errno == EINTR) continue;
      return StatusOf(errno);
    }
    // A write that takes nothing (a full device) would loop for ever.
    if (n == 0) return File::kStatusFailed;
    p += n;
    length -= static_cast<std::size_t>(n);
  }
  return 0;
}

unsigned int SeekFile(Handle handle, std::int64_t offset, int origin, std::uint64_t* position) {
  static const int kWhence[] = {SEEK_SET, SEEK_CUR, SEEK_END};
  if (origin < 0 || origin > 2) return File::kStatusFailed;
  off_t at = ::lseek(Descriptor(handle), static_cast<off_t>(offset), kWhence[origin]);
  if (at < 0) return StatusOf(errno);
  if (position) *position = static_cast<std::uint64_t>(at);
  return 0;
}

unsigned int FileSize(Handle handle, std::uint64_t* size) {
  struct stat info;
  if (::fstat(Descriptor(handle), &info) != 0) return StatusOf(errno);
  *size = static_cast<std::uint64_t>(info.st_size);
  return 0;
}

unsigned int SyncFile(Handle handle) {
  if (::fsync(Descriptor(handle)) == 0 || errno == EINVAL || errno == EROFS) return 0;
  return StatusOf(errno);
}

unsigned int CloseFile(Handle handle) {
  // The descriptor is released even when close reports an error (Linux
  // never leaves it open), so it is never closed twice.
  return ::close(Descriptor(handle)) == 0 || errno == EINTR ? 0 : StatusOf(errno);
}

}  // namespace host
}  // namespace IO
