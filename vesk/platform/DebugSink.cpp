#include "vesk/platform/DebugSink.h"

#include <unistd.h>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace vesk {
namespace platform {

namespace {
std::atomic<DebugCaptureHook> g_hook{nullptr};
std::atomic<void*> g_context{nullptr};
}  // namespace

void DebugWrite(const char* text, std::size_t length) noexcept {
  if (!text || length == 0) return;
  DebugCaptureHook hook = g_hook.load();
  if (hook) {
    hook(text, length, g_context.load());
    return;
  }
  while (length > 0) {
    ssize_t written = ::write(2, text, length);
    if (written <= 0) return;
    text += written;
    length -= static_cast<std::size_t>(written);
  }
}

void DebugWrite(const char* text) noexcept {
  if (text) DebugWrite(text, std::strlen(text));
}

void DebugPrintf(const char* format, ...) noexcept {
  if (!format) return;
  char small[512];
  va_list args;
  va_start(args, format);
  int length = std::vsnprintf(small, sizeof small, format, args);
  va_end(args);
  if (length < 0) return;
  if (static_cast<std::size_t>(length) < sizeof small) {
    DebugWrite(small, static_cast<std::size_t>(length));
    return;
  }
  // Longer texts are formatted again into a block of their size; the sink is
  // a last resort for diagnostics, so a refused block only cuts the text.
  char* large = static_cast<char*>(std::malloc(static_cast<std::size_t>(length) + 1));
  if (!large) {
    DebugWrite(small, sizeof small - 1);
    return;
  }
  va_start(args, format);
  std::vsnprintf(large, static_cast<std::size_t>(length) + 1, format, args);
  va_end(args);
  DebugWrite(large, static_cast<std::size_t>(length));
  std::free(large);
}

DebugCaptureHook SetDebugCaptureHook(DebugCaptureHook hook, void* context) noexcept {
  g_context.store(context);
  return g_hook.exchange(hook);
}

}  // namespace platform
}  // namespace vesk
