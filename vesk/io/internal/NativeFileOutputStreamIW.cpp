#include "vesk/io/internal/NativeFileOutputStreamIW.h"

#include "IO/File.h"
#include "IO/Location.h"
#include "vesk/io/IOException.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {
namespace internal {

namespace {
const char kSource[] = "vesk/io/NativeFileOutputStreamIW";
}

CNativeFileOutputStreamIW::CNativeFileOutputStreamIW(const unsigned short* path, bool append)
    : m_handle(IO::host::kNoHandle) {
  // The host's file calls take the path in its own form (UTF-8 on POSIX).
  IO::Location location(path);
  unsigned int status =
      IO::host::OpenFile(location.GetPath(), IO::host::kOpenWriteInPlace, &m_handle);
  if (status == IO::File::kStatusAccessDenied) VESK_THROW(kSource, CIOException, "Access denied.");
  if (status != 0) VESK_THROW(kSource, CIOException, "Failed to open the specified file.");
  if (append && IO::host::SeekFile(m_handle, 0, 2, nullptr) != 0) {
    Close();
    VESK_THROW(kSource, CIOException, "Failed to move the file pointer to the end of the file.");
  }
}

void CNativeFileOutputStreamIW::Write(const char* data, unsigned int length) {
  if (IO::host::WriteFile(m_handle, data, length) != 0) {
    VESK_THROW(kSource, CIOException, "Failed to write the specified byte the the underlying file.");
  }
}

void CNativeFileOutputStreamIW::Flush() {
  if (IO::host::SyncFile(m_handle) != 0) {
    VESK_THROW(kSource, CIOException, "Failed to flush the buffers of the underlying file.");
  }
}

void CNativeFileOutputStreamIW::Close() noexcept {
  if (IsOpen()) IO::host::CloseFile(m_handle);
  m_handle = IO::host::kNoHandle;
}

}  // namespace internal
}  // namespace io
}  // namespace vesk
