#include <string.h>

#include <cstdio>

#include "vesk/platform/SystemError.h"

namespace vesk {
namespace platform {

namespace {
// strerror_r comes in two flavours; each overload picks the text out of one.
[[maybe_unused]] const char* TextOf(int result, const char* buffer) { return result == 0 ? buffer : nullptr; }
[[maybe_unused]] const char* TextOf(const char* result, const char*) { return result; }
}  // namespace

bool SystemErrorText(unsigned long code, char* buffer, std::size_t size) {
  if (!buffer || size == 0) return false;
  char scratch[256];
  scratch[0] = '\0';
  const char* text = TextOf(strerror_r(static_cast<int>(code), scratch, sizeof scratch), scratch);
  if (!text || !*text) return false;
  // Like the system message table, the text ends with a line break.
  std::snprintf(buffer, size, "%s\n", text);
  return true;
}

}  // namespace platform
}  // namespace vesk
