/// \file
/// The host's critical section: a lock the owning thread may enter again,
/// without spinning before it blocks. The lock classes keep one in a heap
/// block; the host file fills the opaque storage.
#ifndef VESK_PLATFORM_CRITICALSECTION_H
#define VESK_PLATFORM_CRITICALSECTION_H

namespace vesk {
namespace platform {

/// Storage of one host critical section. Only the functions below touch it.
struct CriticalSection {
  alignas(16) unsigned char opaque[64];
};

/// Initialises a section (re-entrant for its owner); false when the host
/// refuses.
bool SectionInit(CriticalSection* section) noexcept;
/// Destroys an initialised section that no thread holds.
void SectionDelete(CriticalSection* section) noexcept;
/// Blocks until the calling thread holds the section (again); false when the
/// host reports a failure, in which case the section is not held.
inline bool SectionEnter(CriticalSection* section) noexcept;
/// One attempt to enter; true when the calling thread now holds the section.
inline bool SectionTryEnter(CriticalSection* section) noexcept;
/// Gives up one hold of the calling thread.
inline void SectionLeave(CriticalSection* section) noexcept;

/// Allocates a heap block and initialises a section in it. Throws
/// CMemoryException (source "vesk/base/Base") when the block cannot be had,
/// and CSynchronizationException (the given source, "Failed to create
/// critical section.") when the host refuses the section; nothing is left
/// allocated then.
CriticalSection* NewCriticalSection(const char* source);
/// Destroys a section from NewCriticalSection and frees its block; null is
/// ignored.
void DeleteCriticalSection(CriticalSection* section) noexcept;

}  // namespace platform
}  // namespace vesk

// Enter and leave sit on every lock's fast path, so the host defines them
// inline.
#if defined(_WIN32)
#include "vesk/platform/win/CriticalSectionInline.h"
#else
#include "vesk/platform/posix/CriticalSectionInline.h"
#endif

#endif
