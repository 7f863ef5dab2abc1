#include "IO/FileHandle.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include "IO/File.h"
#include "vesk/platform/Memory.h"

namespace IO {
namespace host {

namespace {

// kNoHandle (-1) is the system's INVALID_HANDLE_VALUE, ((HANDLE)-1).

// The system moves at most a DWORD of bytes per call; larger requests go in
// pieces of 1 GiB.
const DWORD kLargestTransfer = 1u << 30;

unsigned int StatusOf(DWORD error) {
  return (error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION ||
          error == ERROR_LOCK_VIOLATION || error == ERROR_WRITE_PROTECT)
             ? File::kStatusAccessDenied
             : File::kStatusFailed;
}

HANDLE Native(Handle handle) { return reinterpret_cast<HANDLE>(handle); }

// The UTF-16 form of a UTF-8 path: in the caller's scratch when it fits
// (every common path), otherwise in a heap block. Null when it cannot be made.
class CWidePath {
 public:
  explicit CWidePath(const char* path) : m_path(nullptr), m_block(nullptr) {
    int units = MultiByteToWideChar(CP_UTF8, 0, path, -1, nullptr, 0);
    if (units <= 0) return;
    wchar_t* target = m_scratch;
    if (units > kScratchUnits) {
      m_block = static_cast<wchar_t*>(
          vesk::platform::Alloc(static_cast<std::size_t>(units) * sizeof(wchar_t)));
      target = m_block;
    }
    if (target && MultiByteToWideChar(CP_UTF8, 0, path, -1, target, units) == units) {
      m_path = target;
    }
  }
  ~CWidePath() { vesk::platform::Free(m_block); }
  const wchar_t* Get() const { return m_path; }

 private:
  static const int kScratchUnits = 512;
  wchar_t m_scratch[kScratchUnits];
  const wchar_t* m_path;
  wchar_t* m_block;
};

}  // namespace

// Files are opened for one kind of access and shared for reading with other
// openers (readers also let writers in); handles are not inherited.
unsigned int OpenFile(const char* path, OpenKind kind, Handle* handle) {
  *handle = kNoHandle;
  DWORD access = GENERIC_WRITE;
  DWORD share = FILE_SHARE_READ;
  DWORD disposition = OPEN_ALWAYS;
  switch (kind) {
    case kOpenRead:
      access = GENERIC_READ;
      share = FILE_SHARE_READ | FILE_SHARE_WRITE;
      disposition = OPEN_EXISTING;
      break;
    case kOpenWriteTruncate:
      disposition = CREATE_ALWAYS;
      break;
    case kOpenAppend:
      // Every write lands at the end of the file, as with O_APPEND.
      access = FILE_APPEND_DATA | SYNCHRONIZE;
      break;
    case kOpenWriteInPlace:
      break;
  }
  CWidePath wide(path);
  if (!wide.Get()) return File::kStatusFailed;
  // A folder is no file to stream (the system would report it as refused).
  DWORD attributes = GetFileAttributesW(wide.Get());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY)) {
    return File::kStatusFailed;
  }
  HANDLE file =
      CreateFileW(wide.Get(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return StatusOf(GetLastError());
  *handle = reinterpret_cast<Handle>(file);
  return 0;
}

unsigned int ReadFile(Handle handle, void* buffer, std::size_t length, std::size_t* done) {
  *done = 0;
  DWORD count = 0;
  DWORD request = length > kLargestTransfer ? kLargestTransfer : static_cast<DWORD>(length);
  if (!::ReadFile(Native(handle), buffer, request, &count, nullptr)) {
    DWORD error = GetLastError();
    // The writing end of a pipe was closed: the end of the data.
    return error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF ? 0 : StatusOf(error);
  }
  *done = count;
  return 0;
}

unsigned int WriteFile(Handle handle, const void* buffer, std::size_t length) {
  const char* p = static_cast<const char*>(buffer);
  while (length > 0) {
    DWORD request = length > kLargestTransfer ? kLargestTransfer : static_cast<DWORD>(length);
    DWORD written = 0;
    if (!::WriteFile(Native(handle), p, request, &written, nullptr)) return StatusOf(GetLastError());
    // A write that takes nothing (a full device) would loop for ever.
    if (written == 0) return File::kStatusFailed;
    p += written;
    length -= written;
  }
  return 0;
}

unsigned int SeekFile(Handle handle, std::int64_t offset, int origin, std::uint64_t* position) {
  static const DWORD kMethod[] = {FILE_BEGIN, FILE_CURRENT, FILE_END};
  if (origin < 0 || origin > 2) return File::kStatusFailed;
  LARGE_INTEGER distance, at;
  distance.QuadPart = offset;
  if (!SetFilePointerEx(Native(handle), distance, &at, kMethod[origin])) {
    return StatusOf(GetLastError());
  }
  if (position) *position = static_cast<std::uint64_t>(at.QuadPart);
  return 0;
}

unsigned int FileSize(Handle handle, std::uint64_t* size) {
  LARGE_INTEGER bytes;
  if (!GetFileSizeEx(Native(handle), &bytes)) return StatusOf(GetLastError());
  *size = static_cast<std::uint64_t>(bytes.QuadPart);
  return 0;
}

unsigned int SyncFile(Handle handle) {
  if (FlushFileBuffers(Native(handle))) return 0;
  DWORD error = GetLastError();
  // A console, a pipe or the NUL device has nothing to force out.
  return error == ERROR_INVALID_HANDLE || error == ERROR_INVALID_FUNCTION ? 0 : StatusOf(error);
}

unsigned int CloseFile(Handle handle) {
  return CloseHandle(Native(handle)) ? 0 : StatusOf(GetLastError());
}

}  // namespace host
}  // namespace IO
