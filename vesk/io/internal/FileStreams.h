/// \file
/// What the file streams share: making and opening their IO::File with the
/// opening rules and messages, skipping, and releasing the file.
#ifndef VESK_IO_INTERNAL_FILESTREAMS_H
#define VESK_IO_INTERNAL_FILESTREAMS_H

#include "IO/File.h"

namespace vesk {
namespace io {
namespace internal {

/// Makes the file for location and opens it with mode. Throws CIOException
/// from source: without a message when the location is unusable, "Access
/// denied." when access is refused, openFailed for any other failure;
/// CMemoryException when no memory is left. Nothing is left behind on a
/// throw.
IO::File* OpenStreamFile(const IO::Location& location, IO::File::Access access, int mode,
                         const char* source, const char* openFailed);
/// Closes the file when still open (ignoring the result) and frees it.
void DestroyStreamFile(IO::File* file) noexcept;
/// Moves forward by up to count units of unitSize bytes, never past the
/// end; returns the number of units skipped. Throws CIOException from source
/// when the remaining length cannot be had or the seek fails.
int SkipInFile(IO::File& file, unsigned int count, unsigned int unitSize, const char* source);

}  // namespace internal
}  // namespace io
}  // namespace vesk

#endif
