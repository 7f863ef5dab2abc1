/// \file
/// Runs a call on a stack of its own size, on the calling thread. For work
/// whose recursion grows with its input (the regular-expression engine
/// recurses once or more per character of some patterns), so a long input
/// cannot overflow the caller's stack, which may be a small thread stack.
#ifndef VESK_PLATFORM_LARGESTACK_H
#define VESK_PLATFORM_LARGESTACK_H

#include <cstddef>

namespace vesk {
namespace platform {

/// Runs fn(arg) on a fresh stack of at least size bytes (reserved, not
/// committed, with a guard page beneath it) and returns true; returns false
/// without running fn when no such stack can be had. fn must not let an
/// exception escape. The stack is released before the call returns.
bool RunOnLargeStack(std::size_t size, void (*fn)(void*), void* arg) noexcept;

}  // namespace platform
}  // namespace vesk

#endif
