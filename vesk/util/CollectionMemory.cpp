#include "vesk/util/CollectionMemory.h"

#include "vesk/platform/Memory.h"

namespace vesk {
namespace util {

void* AllocBlock(std::size_t size) noexcept { return platform::Alloc(size); }

void* ReallocBlock(void* block, std::size_t size) noexcept {
  return platform::Realloc(block, size);
}

void FreeBlock(void* block) noexcept { platform::Free(block); }

}  // namespace util
}  // namespace vesk
