#include "vesk/platform/SystemError.h"

#include <cstring>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace vesk {
namespace platform {

// The system's message table text in the ANSI code page, with the CR LF it
// ends with, cut to the buffer when longer.
bool SystemErrorText(unsigned long code, char* buffer, std::size_t size) {
  if (!buffer || size == 0) return false;
  buffer[0] = '\0';
  char* text = nullptr;
  DWORD length = FormatMessageA(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_ALLOCATE_BUFFER,
      nullptr, static_cast<DWORD>(code), 0, reinterpret_cast<char*>(&text), 0, nullptr);
  if (length == 0 || !text) return false;
  std::size_t n = length < size - 1 ? length : size - 1;
  std::memcpy(buffer, text, n);
  buffer[n] = '\0';
  LocalFree(text);
  return true;
}

}  // namespace platform
}  // namespace vesk
