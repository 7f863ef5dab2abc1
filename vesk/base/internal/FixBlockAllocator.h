/// \file
/// CFixBlockAllocator: a pool of memory blocks of one fixed size, behind the
/// string buffers. Internal to the library (not installed); exported only so
/// that tests can build their own pools.
#ifndef VESK_BASE_INTERNAL_FIXBLOCKALLOCATOR_H
#define VESK_BASE_INTERNAL_FIXBLOCKALLOCATOR_H

#include "vesk/base/Export.h"
#include "vesk/base/SpinLock.h"

namespace vesk {
namespace base {

/// Hands out payloads of one block size. Blocks handed out sit on a doubly
/// linked used list, blocks in reserve on a singly linked free list. The
/// pool grows by the grow count when the reserve is empty and, when fewer
/// than 70 % of its blocks are in use, gives back half of the reserve above
/// the grow count at each free. All operations are serialised by a spin lock.
class VESK_API CFixBlockAllocator {
 public:
  /// Stores the sizes; allocates nothing.
  CFixBlockAllocator(unsigned int blockSize, unsigned int growCount);
  /// Frees every block (as Destroy).
  ~CFixBlockAllocator();

  /// A payload of the block size; never null. Throws CMemoryException when
  /// the heap refuses and the reserve is empty.
  void* Allocate();
  /// Returns a payload from Allocate; null is ignored.
  void Free(void* payload);
  /// Frees every block of both lists and resets the pool to empty. Payloads
  /// still handed out become invalid.
  void Destroy();
  /// Frees the reserve and switches the pool to pass-through: from then on
  /// every allocation is a heap block of its own and every freed block goes
  /// straight back to the heap. Blocks still in use stay valid. Used when
  /// the library unloads while strings of other static objects may still
  /// hold pool blocks.
  void Close();

  unsigned int GetBlockSize() const { return m_blockSize; }
  unsigned int GetGrowCount() const { return m_growCount; }
  /// Blocks handed out.
  unsigned int GetUsedCount() const { return m_usedCount; }
  /// Blocks in reserve.
  unsigned int GetFreeCount() const { return m_freeCount; }

 private:
  struct CBlockHeader {
    CBlockHeader* previous;
    CBlockHeader* next;
  };
  static_assert(sizeof(CBlockHeader) == 16, "block header is two pointers");

  CFixBlockAllocator(const CFixBlockAllocator&);
  CFixBlockAllocator& operator=(const CFixBlockAllocator&);

  void* AllocateLocked();
  void Grow();
  void PushUsed(CBlockHeader* block);
  void FreeAll();

  unsigned int m_blockSize;
  unsigned int m_growCount;
  CBlockHeader* m_usedHead;
  CBlockHeader* m_freeHead;
  unsigned int m_usedCount;
  unsigned int m_freeCount;
  CSpinLock m_lock;
  bool m_closed;
};

}  // namespace base
}  // namespace vesk

#endif
