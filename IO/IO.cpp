#include "IO/IO.h"

#include <atomic>

namespace IO {

namespace {
std::atomic<int> g_depth{0};
std::atomic<bool> g_useThreads{false};
}  // namespace

int Init(bool useThreads, const unsigned short*) {
  g_useThreads.store(useThreads);
  return ++g_depth;
}

int End() {
  int depth = g_depth.load();
  while (depth > 0 && !g_depth.compare_exchange_weak(depth, depth - 1)) {
  }
  return depth > 0 ? depth - 1 : 0;
}

int InitDepth() { return g_depth.load(); }

}  // namespace IO
