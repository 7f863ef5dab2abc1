#include "vesk/platform/DebugSink.h"

#include <unistd.h>

#include <atomic>
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

DebugCaptureHook SetDebugCaptureHook(DebugCaptureHook hook, void* context) noexcept {
  g_context.store(context);
  return g_hook.exchange(hook);
}

}  // namespace platform
}  // namespace vesk
