#include "vesk/base/internal/StringPools.h"

#include <atomic>
#include <new>

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
// block instead. The array is plain data in the initial-exec TLS model: one
// thread-pointer-relative access, no call, no guard.
struct CKeptBlocks {
  void* kept[kPoolCount];
  bool returnerArmed;
};
__attribute__((tls_model("initial-exec"))) thread_local CKeptBlocks t_kept;

void ReturnKeptBlocks() noexcept {
  for (int i = 0; i < kPoolCount; ++i) {
    if (t_kept.kept[i]) {
      PoolAt(i).Free(t_kept.kept[i]);
      t_kept.kept[i] = nullptr;
    }
  }
}

// Gives the kept blocks back when the thread ends. Armed the first time the
// thread keeps a block, so threads that never do pay nothing.
struct CKeptBlocksReturner {
  ~CKeptBlocksReturner() { ReturnKeptBlocks(); }
};
thread_local CKeptBlocksReturner t_returner;

void ArmReturner() noexcept {
  t_kept.returnerArmed = true;
  static_cast<void>(&t_returner);  // first use registers its destructor
}

// Builds the pools at load and closes them at unload.
struct CPoolCloser {
  CPoolCloser() { Pools(); }
  ~CPoolCloser() {
    // Blocks given back from now on go straight to the (closed) pools.
    g_poolsClosed.store(true, std::memory_order_relaxed);
    ReturnKeptBlocks();
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
  void*& kept = t_kept.kept[index];
  if (kept) {
    void* block = kept;
    kept = nullptr;
    return block;
  }
  return PoolAt(index).Allocate();
}

void GiveStringBlock(bool wide, int rank, void* block) noexcept {
  if (!block) return;
  int index = wide ? rank + 5 : rank;
  void*& kept = t_kept.kept[index];
  if (!kept && !g_poolsClosed.load(std::memory_order_relaxed)) {
    if (!t_kept.returnerArmed) ArmReturner();
    kept = block;
    return;
  }
  PoolAt(index).Free(block);
}

void ReturnThreadStringBlocks() noexcept { ReturnKeptBlocks(); }

}  // namespace internal
}  // namespace base
}  // namespace vesk
