#include "vesk/platform/LargeStack.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace vesk {
namespace platform {

namespace {

// The current fiber, read from the thread's information block. GCC warns
// about the segment read inside the system header's GetCurrentFiber (a
// false array-bounds report), so the warning is off for this one call.
void* CurrentFiber() {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Warray-bounds"
  return GetCurrentFiber();
#pragma GCC diagnostic pop
}

struct CCall {
  void (*fn)(void*);
  void* arg;
  void* caller;  // the fiber to switch back to
};

void WINAPI FiberEntry(void* parameter) {
  CCall* call = static_cast<CCall*>(parameter);
  call->fn(call->arg);
  SwitchToFiber(call->caller);  // a fiber's entry must never return
}

}  // namespace

// A fiber with the stack reserved (the system commits it page by page
// behind its guard page); the calling thread becomes a fiber for the call
// when it is not one yet, and a thread again after it.
bool RunOnLargeStack(std::size_t size, void (*fn)(void*), void* arg) noexcept {
  bool converted = false;
  void* caller = IsThreadAFiber() ? CurrentFiber() : nullptr;
  if (!caller) {
    caller = ConvertThreadToFiber(nullptr);
    if (!caller) return false;
    converted = true;
  }
  CCall call = {fn, arg, caller};
  void* fiber = CreateFiberEx(64 * 1024, size, FIBER_FLAG_FLOAT_SWITCH, FiberEntry, &call);
  if (fiber) {
    SwitchToFiber(fiber);
    DeleteFiber(fiber);
  }
  if (converted) ConvertFiberToThread();
  return fiber != nullptr;
}

}  // namespace platform
}  // namespace vesk
