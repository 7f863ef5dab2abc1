/// \file
/// The debug output sink: where the library's diagnostic text goes. On POSIX
/// it writes to standard error; a test can install a capture hook instead.
#ifndef VESK_PLATFORM_DEBUGSINK_H
#define VESK_PLATFORM_DEBUGSINK_H

#include <cstddef>

#include "vesk/base/Export.h"

namespace vesk {
namespace platform {

/// Receives every piece of debug text (UTF-8, not terminated).
typedef void (*DebugCaptureHook)(const char* text, std::size_t length, void* context);

/// Sends text to the sink (the hook when one is installed, else stderr).
VESK_API void DebugWrite(const char* text, std::size_t length) noexcept;
/// Sends a NUL-terminated text; null is ignored.
VESK_API void DebugWrite(const char* text) noexcept;
/// Formats like printf and sends the text in one piece. The format is
/// passed to the host's formatter unchanged.
VESK_API void DebugPrintf(const char* format, ...) noexcept __attribute__((format(printf, 1, 2)));
/// Installs a capture hook (null restores standard error); returns the old one.
VESK_API DebugCaptureHook SetDebugCaptureHook(DebugCaptureHook hook, void* context) noexcept;

}  // namespace platform
}  // namespace vesk

#endif
