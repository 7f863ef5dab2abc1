#include "vesk/base/internal/StringPools.h"

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
  CFixBlockAllocator narrow[5] = {{76, kStringPoolGrowCount},
                                  {140, kStringPoolGrowCount},
                                  {268, kStringPoolGrowCount},
                                  {524, kStringPoolGrowCount},
                                  {1036, kStringPoolGrowCount}};
  CFixBlockAllocator wide[5] = {{140, kStringPoolGrowCount},
                                {268, kStringPoolGrowCount},
                                {524, kStringPoolGrowCount},
                                {1036, kStringPoolGrowCount},
                                {2060, kStringPoolGrowCount}};
};

CPools& Pools() {
  alignas(CPools) static unsigned char storage[sizeof(CPools)];
  static CPools* pools = new (storage) CPools;  // deliberately never destroyed
  return *pools;
}

inline int ClassIndex(unsigned int capacity) {
  if (capacity <= 64) return 0;
  if (capacity <= 128) return 1;
  if (capacity <= 256) return 2;
  if (capacity <= 512) return 3;
  if (capacity <= 1024) return 4;
  return -1;
}

// Builds the pools at load and closes them at unload.
struct CPoolCloser {
  CPoolCloser() { Pools(); }
  ~CPoolCloser() {
    CPools& pools = Pools();
    for (CFixBlockAllocator& pool : pools.narrow) pool.Close();
    for (CFixBlockAllocator& pool : pools.wide) pool.Close();
  }
};
CPoolCloser g_poolCloser;

}  // namespace

CFixBlockAllocator* NarrowStringPool(unsigned int capacity) {
  int index = ClassIndex(capacity);
  return index < 0 ? nullptr : &Pools().narrow[index];
}

CFixBlockAllocator* WideStringPool(unsigned int capacity) {
  int index = ClassIndex(capacity);
  return index < 0 ? nullptr : &Pools().wide[index];
}

}  // namespace internal
}  // namespace base
}  // namespace vesk
