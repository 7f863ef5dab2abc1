#include "vesk/platform/Memory.h"

#include <atomic>
#include <cstdlib>

namespace vesk {
namespace platform {

namespace {
std::atomic<unsigned long> g_attempts{0};
std::atomic<unsigned long> g_failAt{0};  // attempt number that fails, 0 = none
std::atomic<bool> g_failEveryAfter{false};
std::atomic<long> g_live{0};

// Counts the attempt and answers whether fault injection refuses it.
bool Refused() noexcept {
  unsigned long attempt = g_attempts.fetch_add(1, std::memory_order_relaxed) + 1;
  unsigned long failAt = g_failAt.load(std::memory_order_relaxed);
  if (failAt == 0) return false;
  if (attempt == failAt) return true;
  return attempt > failAt && g_failEveryAfter.load(std::memory_order_relaxed);
}
}  // namespace

void* Alloc(std::size_t size) noexcept {
  if (Refused()) return nullptr;
  void* p = std::malloc(size == 0 ? 1 : size);
  if (p) g_live.fetch_add(1, std::memory_order_relaxed);
  return p;
}

void* Realloc(void* block, std::size_t size) noexcept {
  if (!block) return Alloc(size);
  if (Refused()) return nullptr;
  return std::realloc(block, size == 0 ? 1 : size);
}

void Free(void* block) noexcept {
  if (!block) return;
  g_live.fetch_sub(1, std::memory_order_relaxed);
  std::free(block);
}

MemHandle AllocHandle(std::size_t size) noexcept {
  MemHandle handle = static_cast<MemHandle>(Alloc(sizeof(char*)));
  if (!handle) return nullptr;
  *handle = static_cast<char*>(Alloc(size));
  if (!*handle) {
    Free(handle);
    return nullptr;
  }
  return handle;
}

bool ReallocHandle(MemHandle handle, std::size_t size) noexcept {
  if (!handle) return false;
  char* moved = static_cast<char*>(Realloc(*handle, size));
  if (!moved) return false;
  *handle = moved;
  return true;
}

void FreeHandle(MemHandle handle) noexcept {
  if (!handle) return;
  Free(*handle);
  Free(handle);
}

void FailAllocationAt(unsigned long n, bool everyAfter) noexcept {
  g_failEveryAfter.store(everyAfter, std::memory_order_relaxed);
  g_failAt.store(n == 0 ? 0 : g_attempts.load(std::memory_order_relaxed) + n,
                 std::memory_order_relaxed);
}

unsigned long AllocationCount() noexcept { return g_attempts.load(std::memory_order_relaxed); }

long LiveAllocations() noexcept { return g_live.load(std::memory_order_relaxed); }

}  // namespace platform
}  // namespace vesk
