#include "vesk/platform/Utf16.h"

namespace vesk {
namespace platform {

// Narrow text is UTF-8 on POSIX hosts.
std::size_t Utf16ToNarrow(const unsigned short* src, int srcUnits, char* target,
                          std::size_t targetSize) {
  return Utf16ToUtf8(src, srcUnits, target, targetSize);
}

std::size_t NarrowToUtf16(const char* src, int srcBytes, unsigned short* target,
                          std::size_t targetSize) {
  return Utf8ToUtf16(src, srcBytes, target, targetSize);
}

}  // namespace platform
}  // namespace vesk
