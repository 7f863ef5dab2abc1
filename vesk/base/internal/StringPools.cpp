#include "vesk/base/internal/StringPools.h"

#include <atomic>
#include <cstdlib>
#include <new>

#include "vesk/platform/ThreadEndKey.h"

namespace vesk {
namespace base {
namespace internal {

namespace {

// Ten pools in static storage, built on first use and never destroyed. A
// static CString of the library or of a client may be destroyed after this
// module's own statics, in any order; its buffer must then still go back to
// a live pool. So the pool objects outlive every string, and unloading only
// closes them (see CPoolCloser): the reserve goes back to the heap and
// blocks released later are freed one by one.
struct CPools {
  // Narrow pools first (ranks 0-4), then the 16-bit ones (ranks 0-4 again).
  CFixBlockAllocator all[10] = {{76, kStringPoolGrowCount},   {140, kStringPoolGrowCount},
                                {268, kStringPoolGrowCount},  {524, kStringPoolGrowCount},
                                {1036, kStringPoolGrowCount}, {140, kStringPoolGrowCount},
                                {268, kStringPoolGrowCount},  {524, kStringPoolGrowCount},
                                {1036, kStringPoolGrowCount}, {2060, kStringPoolGrowCount}};
};

CPools& Pools() {
  alignas(CPools) static unsigned char storage[sizeof(CPools)];
  static CPools* pools = new (storage) CPools;  // deliberately never destroyed
  return *pools;
}


const int kPoolCount = 10;
std::atomic<bool> g_poolsClosed{false};

inline CFixBlockAllocator& PoolAt(int index) { return Pools().all[index]; }

// One kept block per pool and thread. The pool's lock costs two atomic
// operations per call, several times what the rest of making a short string
// costs; a thread that makes and drops strings in a loop reuses its own
// block instead. The thread's record is reached through a pointer in the
// initial-exec TLS model: one thread-pointer-relative access, no call, no
// guard.
struct CKeptBlocks {
  void* kept[kPoolCount];
};
__attribute__((tls_model("initial-exec"))) thread_local CKeptBlocks* t_kept;

void ReturnBlocksOf(CKeptBlocks* record) noexcept {
  for (int i = 0; i < kPoolCount; ++i) {
    if (record->kept[i]) {
      PoolAt(i).Free(record->kept[i]);
      record->kept[i] = nullptr;
    }
  }
}

void ReturnKeptBlocks() noexcept {
  if (t_kept) ReturnBlocksOf(t_kept);
}

// The record lives on the C heap, outside the library's counted heap (it is
// the pools' own bookkeeping, like their storage), and a thread key gives
// its blocks back and frees it when the thread ends. A thread_local object's
// destructor could not: with emulated TLS (MinGW-w64) the thread's TLS
// variables may already be gone when it runs, and the kept blocks with them.
void EndThreadRecord(void* value) {
  CKeptBlocks* record = static_cast<CKeptBlocks*>(value);
  ReturnBlocksOf(record);
  if (t_kept == record) t_kept = nullptr;
  std::free(record);
}

platform::CThreadEndKey& ThreadKey() noexcept {
  static platform::CThreadEndKey key(EndThreadRecord);
  return key;
}

// The record of the calling thread, made the first time the thread keeps a
// block; null when it cannot be made (the block then goes to its pool).
CKeptBlocks* ThreadRecord() noexcept {
  platform::CThreadEndKey& key = ThreadKey();
  if (!key.IsMade()) return nullptr;
  CKeptBlocks* record = static_cast<CKeptBlocks*>(std::calloc(1, sizeof(CKeptBlocks)));
  if (!record) return nullptr;
  if (!key.Set(record)) {
    std::free(record);
    return nullptr;
  }
  t_kept = record;
  return record;
}

// Builds the pools at load and closes them at unload.
struct CPoolCloser {
  CPoolCloser() { Pools(); }
  ~CPoolCloser() {
    // Blocks given back from now on go straight to the (closed) pools.
    g_poolsClosed.store(true, std::memory_order_relaxed);
    ReturnKeptBlocks();
    // The key's destructor is this module's code: no thread may call it once
    // the module is gone (other threads' records are left to the heap).
    ThreadKey().Delete();
    std::free(t_kept);
    t_kept = nullptr;
    CPools& pools = Pools();
    for (CFixBlockAllocator& pool : pools.all) pool.Close();
  }
};
CPoolCloser g_poolCloser;

}  // namespace

CFixBlockAllocator* NarrowStringPool(unsigned int capacity) {
  int index = StringPoolRank(capacity);
  return index < 0 ? nullptr : &Pools().all[index];
}

CFixBlockAllocator* WideStringPool(unsigned int capacity) {
  int index = StringPoolRank(capacity);
  return index < 0 ? nullptr : &Pools().all[5 + index];
}

// Narrow pools hold ranks 0-4 of the kept array, 16-bit pools 5-9, in the
// order the pools lie in CPools.
void* TakeStringBlock(bool wide, int rank) {
  int index = wide ? rank + 5 : rank;
  CKeptBlocks* record = t_kept;
  if (record && record->kept[index]) {
    void* block = record->kept[index];
    record->kept[index] = nullptr;
    return block;
  }
  return PoolAt(index).Allocate();
}

void GiveStringBlock(bool wide, int rank, void* block) noexcept {
  if (!block) return;
  int index = wide ? rank + 5 : rank;
  CKeptBlocks* record = t_kept;
  if (!g_poolsClosed.load(std::memory_order_relaxed) && (record || (record = ThreadRecord())) &&
      !record->kept[index]) {
    record->kept[index] = block;
    return;
  }
  PoolAt(index).Free(block);
}

void ReturnThreadStringBlocks() noexcept { ReturnKeptBlocks(); }

}  // namespace internal
}  // namespace base
}  // namespace vesk
