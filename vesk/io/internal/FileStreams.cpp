#include "vesk/io/internal/FileStreams.h"

#include <new>

#include "vesk/base/MemoryException.h"
#include "vesk/io/IOException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {
namespace internal {

IO::File* OpenStreamFile(const IO::Location& location, IO::File::Access access, int mode,
                         const char* source, const char* openFailed) {
  void* block = platform::Alloc(sizeof(IO::File));
  if (!block) VESK_THROW(source, base::CMemoryException);
  IO::File* file;
  try {
    file = new (block) IO::File(location, access);
  } catch (...) {
    platform::Free(block);
    throw;
  }
  if (file->GetStatus() != 0) {
    DestroyStreamFile(file);
    VESK_THROW(source, CIOException);
  }
  unsigned int status = file->Open(mode, 2);
  if (status != 0) {
    DestroyStreamFile(file);
    if (status == IO::File::kStatusAccessDenied) VESK_THROW(source, CIOException, "Access denied.");
    VESK_THROW(source, CIOException, openFailed);
  }
  return file;
}

void DestroyStreamFile(IO::File* file) noexcept {
  if (!file) return;
  file->~File();
  platform::Free(file);
}

int SkipInFile(IO::File& file, unsigned int count, unsigned int unitSize, const char* source) {
  if (count == 0) return 0;
  std::uint64_t remaining = 0;
  if (file.GetRemainingLength(&remaining) != 0) {
    VESK_THROW(source, CIOException,
               "Failed to get the number of available bytes of the underlying file.");
  }
  std::uint64_t units = remaining / unitSize;
  unsigned int skipped = units < count ? static_cast<unsigned int>(units) : count;
  if (file.Seek(static_cast<std::int64_t>(skipped) * unitSize, 1) != 0) {
    VESK_THROW(source, CIOException, "Failed to seek in the underlying file.");
  }
  return static_cast<int>(skipped);
}

}  // namespace internal
}  // namespace io
}  // namespace vesk
