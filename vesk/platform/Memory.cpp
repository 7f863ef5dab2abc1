#include "vesk/platform/Memory.h"

#include <atomic>
#include <cstdlib>

#include <pthread.h>

#include "vesk/platform/ThreadEndKey.h"

namespace vesk {
namespace platform {

namespace {

// The accounting costs no atomic read-modify-write in the common case. Each
// thread counts its attempts and its live blocks in a record of its own,
// written only by that thread (a relaxed load and store, no lock prefix);
// the totals are summed over all records on demand. Records live on the C
// heap outside the counted heap, are linked into one list that only grows,
// and are never freed: when a thread ends its record is handed to the next
// thread that starts counting, so the counts it holds stay in the totals.
// Live counts are per thread and may go negative (a block freed by another
// thread than the one that made it); only their sum means something.
struct CCounts {
  std::atomic<unsigned long> attempts;
  std::atomic<long> live;
  std::atomic<bool> inUse;
  CCounts* next;
};

std::atomic<CCounts*> g_records{nullptr};
pthread_mutex_t g_adoptLock = PTHREAD_MUTEX_INITIALIZER;
// Counts of threads without a record (it could not be made, or the thread
// is past the end of its record), kept with read-modify-writes.
CCounts g_shared{{0}, {0}, {true}, nullptr};

__attribute__((tls_model("initial-exec"))) thread_local CCounts* t_counts;
__attribute__((tls_model("initial-exec"))) thread_local bool t_ended;

// Fault injection: armed only while a test asks for it. Attempts made while
// it is armed are also counted on one shared counter, so "the nth following
// allocation" means the same in every thread.
std::atomic<bool> g_armed{false};
std::atomic<unsigned long> g_armedAttempts{0};
std::atomic<unsigned long> g_failAt{0};  // armed attempt that fails
std::atomic<bool> g_failEveryAfter{false};

void EndThreadCounts(void* value) {
  CCounts* counts = static_cast<CCounts*>(value);
  if (t_counts == counts) t_counts = nullptr;
  t_ended = true;
  counts->inUse.store(false, std::memory_order_release);
}

CThreadEndKey& CountsKey() noexcept {
  static CThreadEndKey key(EndThreadCounts);
  return key;
}

// The calling thread's record: a free one of an ended thread, or a new one.
CCounts* AdoptCounts() noexcept {
  CThreadEndKey& key = CountsKey();
  if (t_ended || !key.IsMade()) return &g_shared;
  CCounts* counts = nullptr;
  pthread_mutex_lock(&g_adoptLock);
  for (CCounts* c = g_records.load(std::memory_order_acquire); c; c = c->next) {
    if (!c->inUse.load(std::memory_order_acquire)) {
      counts = c;
      break;
    }
  }
  if (!counts) {
    counts = static_cast<CCounts*>(std::calloc(1, sizeof(CCounts)));
    if (counts) {
      counts->next = g_records.load(std::memory_order_relaxed);
      g_records.store(counts, std::memory_order_release);
    }
  }
  if (counts) counts->inUse.store(true, std::memory_order_relaxed);
  pthread_mutex_unlock(&g_adoptLock);
  if (!counts) return &g_shared;
  if (!key.Set(counts)) {
    counts->inUse.store(false, std::memory_order_release);
    return &g_shared;
  }
  t_counts = counts;
  return counts;
}

inline CCounts* ThreadCounts() noexcept {
  CCounts* counts = t_counts;
  return counts ? counts : AdoptCounts();
}

template <typename T>
inline void Add(CCounts* counts, std::atomic<T>& counter, T delta) noexcept {
  if (counts == &g_shared)
    counter.fetch_add(delta, std::memory_order_relaxed);
  else
    counter.store(counter.load(std::memory_order_relaxed) + delta, std::memory_order_relaxed);
}

// Counts the attempt and answers whether fault injection refuses it.
inline bool Refused(CCounts* counts) noexcept {
  Add(counts, counts->attempts, 1ul);
  if (!g_armed.load(std::memory_order_relaxed)) return false;
  unsigned long attempt = g_armedAttempts.fetch_add(1, std::memory_order_relaxed) + 1;
  unsigned long failAt = g_failAt.load(std::memory_order_relaxed);
  if (failAt == 0) return false;
  if (attempt == failAt) return true;
  return attempt > failAt && g_failEveryAfter.load(std::memory_order_relaxed);
}

// Ends the key with the module: its destructor is this module's code. Threads
// that end later leave their records in use, which only keeps them out of
// reuse.
struct CCountsKeyCloser {
  ~CCountsKeyCloser() {
    CountsKey().Delete();
    t_counts = nullptr;
    t_ended = true;
  }
};
CCountsKeyCloser g_keyCloser;

}  // namespace

void* Alloc(std::size_t size) noexcept {
  CCounts* counts = ThreadCounts();
  if (Refused(counts)) return nullptr;
  void* p = std::malloc(size == 0 ? 1 : size);
  if (p) Add(counts, counts->live, 1l);
  return p;
}

void* Realloc(void* block, std::size_t size) noexcept {
  if (!block) return Alloc(size);
  if (Refused(ThreadCounts())) return nullptr;
  return std::realloc(block, size == 0 ? 1 : size);
}

void Free(void* block) noexcept {
  if (!block) return;
  CCounts* counts = ThreadCounts();
  Add(counts, counts->live, -1l);
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
  g_armed.store(false, std::memory_order_relaxed);
  g_failEveryAfter.store(everyAfter, std::memory_order_relaxed);
  g_armedAttempts.store(0, std::memory_order_relaxed);
  g_failAt.store(n, std::memory_order_relaxed);
  // The attempts of this thread that follow see the flag; other threads see
  // it at their next attempt after the store reaches them.
  g_armed.store(n != 0, std::memory_order_seq_cst);
}

unsigned long AllocationCount() noexcept {
  unsigned long total = g_shared.attempts.load(std::memory_order_relaxed);
  for (CCounts* c = g_records.load(std::memory_order_acquire); c; c = c->next)
    total += c->attempts.load(std::memory_order_relaxed);
  return total;
}

long LiveAllocations() noexcept {
  long total = g_shared.live.load(std::memory_order_relaxed);
  for (CCounts* c = g_records.load(std::memory_order_acquire); c; c = c->next)
    total += c->live.load(std::memory_order_relaxed);
  return total;
}

}  // namespace platform
}  // namespace vesk
