#include "vesk/base/internal/FixBlockAllocator.h"

#include "vesk/base/Exception.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/System.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {

namespace {

const char kSource[] = "vesk/base/FixBlockAllocator";

// Holds the spin lock for a scope, also when an exception leaves it.
class CLockScope {
 public:
  explicit CLockScope(CSpinLock& lock) : m_lock(lock) { m_lock.Acquire(); }
  ~CLockScope() { m_lock.Release(); }

 private:
  CLockScope(const CLockScope&);
  CLockScope& operator=(const CLockScope&);
  CSpinLock& m_lock;
};

// Writes the report of an unexpected exception to the debug output. The
// debug stream may have been closed by a client; the report is then lost.
void ReportToDebugOutput(const CException& e) {
  try {
    e.Print(CSystem::debugOut);
  } catch (const CException&) {
  }
}

}  // namespace

CFixBlockAllocator::CFixBlockAllocator(unsigned int blockSize, unsigned int growCount)
    : m_blockSize(blockSize),
      m_growCount(growCount),
      m_usedHead(nullptr),
      m_freeHead(nullptr),
      m_usedCount(0),
      m_freeCount(0),
      m_closed(false) {}

CFixBlockAllocator::~CFixBlockAllocator() { Destroy(); }

void CFixBlockAllocator::Grow() {
  for (unsigned int i = 0; i < m_growCount; ++i) {
    CBlockHeader* block =
        static_cast<CBlockHeader*>(platform::Alloc(sizeof(CBlockHeader) + m_blockSize));
    if (!block) {
      // What was obtained before the failure is enough to go on with.
      if (m_freeHead) return;
      VESK_THROW(kSource, CMemoryException);
    }
    block->previous = nullptr;
    block->next = m_freeHead;
    m_freeHead = block;
    ++m_freeCount;
  }
}

void CFixBlockAllocator::PushUsed(CBlockHeader* block) {
  block->previous = nullptr;
  block->next = m_usedHead;
  if (m_usedHead) m_usedHead->previous = block;
  m_usedHead = block;
  ++m_usedCount;
}

void* CFixBlockAllocator::AllocateLocked() {
  if (m_closed) {
    CBlockHeader* block =
        static_cast<CBlockHeader*>(platform::Alloc(sizeof(CBlockHeader) + m_blockSize));
    if (!block) VESK_THROW(kSource, CMemoryException);
    PushUsed(block);
    return block + 1;
  }
  if (!m_freeHead) Grow();
  CBlockHeader* block = m_freeHead;
  m_freeHead = block->next;
  --m_freeCount;
  PushUsed(block);
  return block + 1;
}

void* CFixBlockAllocator::Allocate() {
  CLockScope scope(m_lock);
  try {
    return AllocateLocked();
  } catch (const CMemoryException&) {
    throw;
  } catch (const CException& e) {
    ReportToDebugOutput(e);
    VESK_THROW(kSource, CMemoryException);
  }
}

void CFixBlockAllocator::Free(void* payload) {
  if (!payload) return;
  CLockScope scope(m_lock);
  CBlockHeader* block = static_cast<CBlockHeader*>(payload) - 1;
  if (block->previous) {
    block->previous->next = block->next;
  } else {
    m_usedHead = block->next;
  }
  if (block->next) block->next->previous = block->previous;
  --m_usedCount;
  if (m_closed) {
    platform::Free(block);
    return;
  }
  block->previous = nullptr;
  block->next = m_freeHead;
  m_freeHead = block;
  ++m_freeCount;

  // Shrink when fewer than 70 % of the blocks are in use: each check gives
  // back half of the reserve above the grow count (rounded up), so an idle
  // pool decays towards its reserve step by step instead of all at once.
  if (m_freeCount > m_growCount &&
      static_cast<float>(m_usedCount) / static_cast<float>(m_usedCount + m_freeCount) < 0.7f) {
    unsigned int released = 0;
    while (m_freeHead) {
      CBlockHeader* head = m_freeHead;
      m_freeHead = head->next;
      platform::Free(head);
      --m_freeCount;
      ++released;
      if (released >= m_freeCount - m_growCount) break;
    }
  }
}

void CFixBlockAllocator::FreeAll() {
  CBlockHeader* lists[2] = {m_usedHead, m_freeHead};
  for (CBlockHeader* list : lists) {
    while (list) {
      CBlockHeader* next = list->next;
      platform::Free(list);
      list = next;
    }
  }
  m_usedHead = nullptr;
  m_freeHead = nullptr;
  m_usedCount = 0;
  m_freeCount = 0;
}

void CFixBlockAllocator::Destroy() {
  CLockScope scope(m_lock);
  FreeAll();
}

void CFixBlockAllocator::Close() {
  CLockScope scope(m_lock);
  while (m_freeHead) {
    CBlockHeader* next = m_freeHead->next;
    platform::Free(m_freeHead);
    m_freeHead = next;
  }
  m_freeCount = 0;
  m_closed = true;
}

}  // namespace base
}  // namespace vesk
