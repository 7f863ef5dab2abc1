#include "vesk/platform/LargeStack.h"

#include <sys/mman.h>
#include <ucontext.h>
#include <unistd.h>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VESK_ASAN_FIBERS 1
#endif
#if __has_feature(thread_sanitizer)
#define VESK_TSAN_FIBERS 1
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
#define VESK_ASAN_FIBERS 1
#endif
#if defined(__SANITIZE_THREAD__)
#define VESK_TSAN_FIBERS 1
#endif
#ifdef VESK_ASAN_FIBERS
#include <sanitizer/common_interface_defs.h>
#endif
#ifdef VESK_TSAN_FIBERS
#include <sanitizer/tsan_interface.h>
#endif

namespace vesk {
namespace platform {

namespace {

struct Call {
  void (*fn)(void*);
  void* arg;
  ucontext_t* caller;
  // The sanitizers' view of the caller's stack, for the switch back.
  const void* callerBottom;
  std::size_t callerSize;
  void* callerFiber;
};

// The call being started on this thread (makecontext passes only ints).
thread_local Call* t_call = nullptr;

void Entry() {
  Call* call = t_call;
#ifdef VESK_ASAN_FIBERS
  __sanitizer_finish_switch_fiber(nullptr, &call->callerBottom, &call->callerSize);
#endif
  call->fn(call->arg);
#ifdef VESK_ASAN_FIBERS
  // This stack is left for good: no fake stack to keep.
  __sanitizer_start_switch_fiber(nullptr, call->callerBottom, call->callerSize);
#endif
#ifdef VESK_TSAN_FIBERS
  __tsan_switch_to_fiber(call->callerFiber, 0);
#endif
  // Back to the caller without returning: a return would leave this
  // function in the caller's records of ThreadSanitizer, one frame too many
  // each time. (uc_link resumes the caller should setcontext fail.)
  setcontext(call->caller);
}

}  // namespace

// getcontext returns once here (nothing ever resumes that context), so no
// local is clobbered; the compiler cannot know that.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wclobbered"
#endif

bool RunOnLargeStack(std::size_t size, void (*fn)(void*), void* arg) noexcept {
  std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  size = (size + page - 1) / page * page;
  std::size_t total = size + page;
  void* mapping = mmap(nullptr, total, PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | MAP_STACK, -1, 0);
  if (mapping == MAP_FAILED) return false;
  char* bottom = static_cast<char*>(mapping) + page;
  if (mprotect(mapping, page, PROT_NONE) != 0) {  // the guard page
    munmap(mapping, total);
    return false;
  }
  ucontext_t caller;
  ucontext_t callee;
  if (getcontext(&callee) != 0) {
    munmap(mapping, total);
    return false;
  }
  callee.uc_stack.ss_sp = bottom;
  callee.uc_stack.ss_size = size;
  callee.uc_link = &caller;
  makecontext(&callee, &Entry, 0);

  Call call{fn, arg, &caller, nullptr, 0, nullptr};
  Call* outer = t_call;
  t_call = &call;
#ifdef VESK_TSAN_FIBERS
  call.callerFiber = __tsan_get_current_fiber();
  void* fiber = __tsan_create_fiber(0);
  __tsan_switch_to_fiber(fiber, 0);
#endif
#ifdef VESK_ASAN_FIBERS
  void* fakeStack = nullptr;
  __sanitizer_start_switch_fiber(&fakeStack, bottom, size);
#endif
  int switched = swapcontext(&caller, &callee);
#ifdef VESK_ASAN_FIBERS
  __sanitizer_finish_switch_fiber(fakeStack, nullptr, nullptr);
#endif
#ifdef VESK_TSAN_FIBERS
  __tsan_destroy_fiber(fiber);
#endif
  t_call = outer;
  munmap(mapping, total);
  return switched == 0;
}

}  // namespace platform
}  // namespace vesk
