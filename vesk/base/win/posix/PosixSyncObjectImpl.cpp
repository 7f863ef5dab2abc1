#include "vesk/base/win/posix/PosixSyncObjectImpl.h"

#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <linux/futex.h>
#include <pthread.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <cstring>
#include <new>

#include "vesk/platform/Memory.h"
#include "vesk/platform/Semaphore.h"
#include "vesk/platform/posix/Deadline.h"

namespace vesk {
namespace base {
namespace win {

CSyncObjectImpl* CSyncObjectImpl::NewMutex(const char* name, bool initiallyOwned) noexcept {
  return posix::CPosixSyncObjectImpl::Open(name, true, initiallyOwned, false);
}

CSyncObjectImpl* CSyncObjectImpl::NewEvent(const char* name, bool initiallySignalled,
                                           bool manualReset) noexcept {
  return posix::CPosixSyncObjectImpl::Open(name, false, initiallySignalled, manualReset);
}

namespace posix {

// The state of one mutex or event. Every change that could satisfy a waiter
// advances the generation, and the waiters that sleep (counted in sleepers)
// sleep on it with futexes, so nobody polls and no lock is shared between
// objects. A mutex is a robust recursive pthread mutex: the kernel marks it
// when its owner thread or process ends, which is how a wait learns it was
// abandoned.
struct SyncRecord {
  std::uint32_t kind;
  std::atomic<std::uint32_t> ready;
  std::atomic<std::uint32_t> generation;
  std::atomic<std::uint32_t> sleepers;
  std::atomic<std::uint32_t> signalled;         // event
  std::uint32_t manualReset;                    // event
  std::atomic<std::uint32_t> abandonedPending;  // mutex: an abandonment not yet reported
  std::atomic<std::int32_t> ownerTid;           // mutex: 0 when free
  std::atomic<std::int32_t> ownerPid;
  std::uint32_t recursion;                      // mutex: touched by its owner only
  pthread_mutex_t mutex;
};

namespace {

const std::uint32_t kMutexKind = 0x4D4B5356;  // "VSKM"
const std::uint32_t kEventKind = 0x454B5356;  // "VSKE"
const unsigned int kMagic = 0x53594E43;
// A wait that includes a mutex owned by another thread looks again this
// often, so it learns of an owner that ended within that time.
const unsigned int kAbandonCheckMs = 100;
// How long an opener waits for the creator of a segment to fill it in.
const unsigned int kReadyWaitMs = 2000;

// The calling thread's and process's ids, kept per thread (both are system
// calls); a forked child forgets its parent's.
thread_local pid_t t_tid __attribute__((tls_model("initial-exec"))) = 0;
thread_local pid_t t_pid __attribute__((tls_model("initial-exec"))) = 0;

void ForgetIds() {
  t_tid = 0;
  t_pid = 0;
}
struct CForkWatch {
  CForkWatch() { pthread_atfork(nullptr, nullptr, &ForgetIds); }
} g_forkWatch;

inline pid_t Tid() {
  if (t_tid == 0) t_tid = gettid();
  return t_tid;
}
inline pid_t Pid() {
  if (t_pid == 0) t_pid = getpid();
  return t_pid;
}

long Futex(std::atomic<std::uint32_t>* word, int op, std::uint32_t value, const timespec* timeout,
           std::uint32_t mask) {
  return syscall(SYS_futex, reinterpret_cast<std::uint32_t*>(word), op, value, timeout, nullptr, mask);
}

bool ReachedDeadline(const timespec& deadline) {
  timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  return now.tv_sec > deadline.tv_sec || (now.tv_sec == deadline.tv_sec && now.tv_nsec >= deadline.tv_nsec);
}

timespec Earlier(const timespec& a, const timespec& b) {
  return (a.tv_sec < b.tv_sec || (a.tv_sec == b.tv_sec && a.tv_nsec < b.tv_nsec)) ? a : b;
}

enum SleepResult { kWoken, kSleepTimedOut, kSleepFailed };

// Sleeps until a generation moves on from the value read, or until the
// (absolute, monotonic) deadline when there is one.
SleepResult Sleep(CPosixSyncObjectImpl* const* objects, const std::uint32_t* seen, unsigned int count,
                  const timespec* deadline) {
  long result;
  if (count == 1) {
    int op = FUTEX_WAIT_BITSET | (objects[0]->IsShared() ? 0 : FUTEX_PRIVATE_FLAG);
    result = Futex(&objects[0]->Record()->generation, op, seen[0], deadline, FUTEX_BITSET_MATCH_ANY);
  } else {
    futex_waitv waiters[kMaxWaitObjects];
    for (unsigned int i = 0; i < count; ++i) {
      waiters[i].val = seen[i];
      waiters[i].uaddr = reinterpret_cast<std::uintptr_t>(&objects[i]->Record()->generation);
      waiters[i].flags = FUTEX_32 | (objects[i]->IsShared() ? 0 : FUTEX_PRIVATE_FLAG);
      waiters[i].__reserved = 0;
    }
    result = syscall(SYS_futex_waitv, waiters, count, 0, deadline, CLOCK_MONOTONIC);
    if (result < 0 && errno == ENOSYS) {
      // Kernels before 5.16 cannot sleep on several words: sleep on the
      // first in short slices and look at all of them in between.
      timespec slice = platform::MonotonicDeadline(10);
      if (deadline) slice = Earlier(slice, *deadline);
      result = Futex(&objects[0]->Record()->generation,
                     FUTEX_WAIT_BITSET | (objects[0]->IsShared() ? 0 : FUTEX_PRIVATE_FLAG), seen[0], &slice,
                     FUTEX_BITSET_MATCH_ANY);
      if (result < 0 && errno == ETIMEDOUT && !(deadline && ReachedDeadline(*deadline))) return kWoken;
    }
  }
  if (result >= 0) return kWoken;
  switch (errno) {
    case EAGAIN:
    case EINTR:
      return kWoken;
    case ETIMEDOUT:
      return kSleepTimedOut;
    default:
      return kSleepFailed;
  }
}

enum Take { kTaken, kTakenAbandoned, kBusy, kBroken };

// The caller now holds the record's mutex (once more).
Take Owned(SyncRecord* r, bool abandoned) {
  if (abandoned) r->recursion = 0;
  if (r->recursion++ == 0) {
    r->ownerPid.store(Pid(), std::memory_order_relaxed);
    r->ownerTid.store(Tid(), std::memory_order_relaxed);
    if (r->abandonedPending.load(std::memory_order_relaxed) != 0 &&
        r->abandonedPending.exchange(0, std::memory_order_relaxed) != 0) {
      abandoned = true;
    }
  }
  return abandoned ? kTakenAbandoned : kTaken;
}

Take Locked(SyncRecord* r, int error) {
  switch (error) {
    case 0:
      return Owned(r, false);
    case EOWNERDEAD:
      pthread_mutex_consistent(&r->mutex);
      return Owned(r, true);
    case EBUSY:
    case ETIMEDOUT:
      return kBusy;
    default:
      return kBroken;
  }
}

// One attempt to take an object, without waiting.
Take TryTake(CPosixSyncObjectImpl* object) {
  SyncRecord* r = object->Record();
  if (r->kind == kMutexKind) return Locked(r, pthread_mutex_trylock(&r->mutex));
  if (r->manualReset) return r->signalled.load(std::memory_order_acquire) ? kTaken : kBusy;
  std::uint32_t expected = 1;
  return r->signalled.compare_exchange_strong(expected, 0, std::memory_order_acq_rel) ? kTaken : kBusy;
}

// Gives back what TryTake took, for a wait for all that could not take
// everything; an abandonment it saw stays to be reported.
void Untake(CPosixSyncObjectImpl* object, bool abandoned) {
  SyncRecord* r = object->Record();
  if (r->kind == kMutexKind) {
    if (--r->recursion == 0) {
      r->ownerTid.store(0, std::memory_order_relaxed);
      if (abandoned) r->abandonedPending.store(1, std::memory_order_relaxed);
    }
    pthread_mutex_unlock(&r->mutex);
  } else if (!r->manualReset) {
    r->signalled.store(1, std::memory_order_release);
  } else {
    return;
  }
  object->Bump();
}

const unsigned int kBusyResult = 0xFFFFFFFEu;

unsigned int Result(Take take, unsigned int index) {
  return take == kTakenAbandoned ? kWaitAbandoned0 + index : kWaitObject0 + index;
}

// One attempt at the whole wait: its result, or kBusyResult.
unsigned int Attempt(CPosixSyncObjectImpl* const* objects, const unsigned int* order, unsigned int count,
                     bool waitAll) {
  if (!waitAll) {
    for (unsigned int i = 0; i < count; ++i) {
      Take take = TryTake(objects[i]);
      if (take == kBroken) return kWaitFailed;
      if (take != kBusy) return Result(take, i);
    }
    return kBusyResult;
  }
  Take taken[kMaxWaitObjects];
  unsigned int done = 0;
  unsigned int outcome = kWaitObject0;
  for (; done < count; ++done) {
    unsigned int i = order[done];
    taken[done] = TryTake(objects[i]);
    if (taken[done] == kBusy || taken[done] == kBroken) break;
    if (taken[done] == kTakenAbandoned && (outcome == kWaitObject0 || kWaitAbandoned0 + i < outcome)) {
      outcome = kWaitAbandoned0 + i;
    }
  }
  if (done == count) return outcome;
  unsigned int failure = taken[done] == kBroken ? kWaitFailed : kBusyResult;
  while (done-- > 0) Untake(objects[order[done]], taken[done] == kTakenAbandoned);
  return failure;
}

// Waits with the deadline timeout sets, sleeping on every object's
// generation between attempts.
unsigned int WaitFor(CPosixSyncObjectImpl* const* objects, const unsigned int* order, unsigned int count,
                     bool waitAll, unsigned int timeout) {
  bool limited = timeout != platform::kWaitInfinite;
  timespec deadline = limited ? platform::MonotonicDeadline(timeout) : timespec();
  bool anyMutex = false;
  for (unsigned int i = 0; i < count; ++i) anyMutex = anyMutex || objects[i]->IsMutex();
  std::uint32_t seen[kMaxWaitObjects];
  for (;;) {
    unsigned int result = Attempt(objects, order, count, waitAll);
    if (result != kBusyResult || timeout == 0) return result == kBusyResult ? kWaitTimeout : result;
    for (unsigned int i = 0; i < count; ++i) {
      SyncRecord* r = objects[i]->Record();
      r->sleepers.fetch_add(1, std::memory_order_seq_cst);
      seen[i] = r->generation.load(std::memory_order_seq_cst);
    }
    result = Attempt(objects, order, count, waitAll);
    SleepResult slept = kWoken;
    if (result == kBusyResult) {
      timespec until = deadline;
      if (anyMutex) until = limited ? Earlier(deadline, platform::MonotonicDeadline(kAbandonCheckMs))
                                    : platform::MonotonicDeadline(kAbandonCheckMs);
      slept = Sleep(objects, seen, count, (limited || anyMutex) ? &until : nullptr);
    }
    for (unsigned int i = 0; i < count; ++i) objects[i]->Record()->sleepers.fetch_sub(1, std::memory_order_relaxed);
    if (result != kBusyResult) return result;
    if (slept == kSleepFailed) return kWaitFailed;
    if (limited && ReachedDeadline(deadline)) {
      result = Attempt(objects, order, count, waitAll);
      return result == kBusyResult ? kWaitTimeout : result;
    }
  }
}

bool InitMutex(pthread_mutex_t* mutex, bool shared) {
  pthread_mutexattr_t attributes;
  if (pthread_mutexattr_init(&attributes) != 0) return false;
  bool ok = pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE) == 0 &&
            pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST) == 0 &&
            (!shared || pthread_mutexattr_setpshared(&attributes, PTHREAD_PROCESS_SHARED) == 0) &&
            pthread_mutex_init(mutex, &attributes) == 0;
  pthread_mutexattr_destroy(&attributes);
  return ok;
}

// Fills in a fresh record; the creator of a mutex it asks to own owns it.
bool InitRecord(SyncRecord* r, bool isMutex, bool initially, bool manualReset, bool shared) {
  new (r) SyncRecord();
  r->kind = isMutex ? kMutexKind : kEventKind;
  if (isMutex) {
    if (!InitMutex(&r->mutex, shared)) return false;
    if (initially) Locked(r, pthread_mutex_lock(&r->mutex));
  } else {
    r->manualReset = manualReset ? 1 : 0;
    r->signalled.store(initially ? 1 : 0, std::memory_order_relaxed);
  }
  r->ready.store(1, std::memory_order_release);
  return true;
}

// The segment name of an object: "/vesk.sync." and the name, with '/' and
// '%' written as %2F and %25 so that distinct names stay distinct. Null
// when it is too long for the host or memory is short.
char* HostName(const char* name) {
  static const char kPrefix[] = "/vesk.sync.";
  std::size_t length = sizeof kPrefix - 1;
  for (const char* p = name; *p; ++p) length += (*p == '/' || *p == '%') ? 3 : 1;
  if (length > NAME_MAX) return nullptr;
  char* text = static_cast<char*>(platform::Alloc(length + 1));
  if (!text) return nullptr;
  char* out = text;
  for (const char* p = kPrefix; *p; ++p) *out++ = *p;
  for (const char* p = name; *p; ++p) {
    if (*p == '/' || *p == '%') {
      *out++ = '%';
      *out++ = '2';
      *out++ = *p == '/' ? 'F' : '5';
    } else {
      *out++ = *p;
    }
  }
  *out = '\0';
  return text;
}

// Whether fd is still the segment that name stands for.
bool StillNamed(int fd, const char* hostName) {
  int again = shm_open(hostName, O_RDWR | O_CLOEXEC, 0600);
  if (again < 0) return false;
  struct stat mine, named;
  bool same = fstat(fd, &mine) == 0 && fstat(again, &named) == 0 && mine.st_ino == named.st_ino &&
              mine.st_dev == named.st_dev;
  close(again);
  return same;
}

// Lets go of a segment: the last holder (the only one that can lock it
// exclusively; every holder keeps a shared lock, which the system drops
// when a holder dies) removes the name.
void CloseSegment(int fd, const char* hostName) {
  if (flock(fd, LOCK_EX | LOCK_NB) == 0 && StillNamed(fd, hostName)) shm_unlink(hostName);
  close(fd);
}

// For a segment found unfinished: when no other holder has it (the only
// way to lock it exclusively), its creator is gone, so the name is removed.
// Otherwise the caller's shared lock is taken again (a refused conversion
// may have dropped it, and the name gone meanwhile). True when the segment
// was closed and the open must start again.
bool RemoveIfAbandoned(int fd, const char* hostName) {
  if (flock(fd, LOCK_EX | LOCK_NB) == 0) {
    if (StillNamed(fd, hostName)) shm_unlink(hostName);
  } else if (flock(fd, LOCK_SH) == 0 && StillNamed(fd, hostName)) {
    return false;
  }
  close(fd);
  return true;
}

// Opens or creates the segment of hostName and maps its record; fd gets the
// segment. Null when the system refuses or the name holds another kind.
SyncRecord* OpenSegment(const char* hostName, bool isMutex, bool initially, bool manualReset, int* fd) {
  for (int attempt = 0; attempt < 100; ++attempt) {
    bool created = true;
    int segment = shm_open(hostName, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (segment < 0 && errno == EEXIST) {
      created = false;
      segment = shm_open(hostName, O_RDWR | O_CLOEXEC, 0600);
      if (segment < 0 && errno == ENOENT) continue;
    }
    if (segment < 0) return nullptr;
    // A holder that let go between our open and our lock may have removed
    // the name: then start again.
    if (flock(segment, LOCK_SH) != 0) {
      close(segment);
      return nullptr;
    }
    if (!StillNamed(segment, hostName)) {
      close(segment);
      continue;
    }
    if (created && ftruncate(segment, sizeof(SyncRecord)) != 0) {
      CloseSegment(segment, hostName);
      return nullptr;
    }
    // The creator may not have sized the segment yet. One that nobody else
    // holds was left half made by a creator that died: it is removed and
    // the name made anew.
    timespec giveUp = platform::MonotonicDeadline(kReadyWaitMs);
    struct stat info;
    bool sized = fstat(segment, &info) == 0 && info.st_size >= static_cast<off_t>(sizeof(SyncRecord));
    if (!created && !sized && RemoveIfAbandoned(segment, hostName)) continue;
    while (!sized && !ReachedDeadline(giveUp)) {
      sched_yield();
      sized = fstat(segment, &info) == 0 && info.st_size >= static_cast<off_t>(sizeof(SyncRecord));
    }
    void* memory = sized ? mmap(nullptr, sizeof(SyncRecord), PROT_READ | PROT_WRITE, MAP_SHARED, segment, 0)
                         : MAP_FAILED;
    if (memory == MAP_FAILED) {
      CloseSegment(segment, hostName);
      return nullptr;
    }
    SyncRecord* record = static_cast<SyncRecord*>(memory);
    bool ok = true;
    if (created) {
      ok = InitRecord(record, isMutex, initially, manualReset, true);
    } else {
      if (!record->ready.load(std::memory_order_acquire)) {
        munmap(memory, sizeof(SyncRecord));
        if (RemoveIfAbandoned(segment, hostName)) continue;
        memory = mmap(nullptr, sizeof(SyncRecord), PROT_READ | PROT_WRITE, MAP_SHARED, segment, 0);
        if (memory == MAP_FAILED) {
          CloseSegment(segment, hostName);
          return nullptr;
        }
        record = static_cast<SyncRecord*>(memory);
      }
      while (!record->ready.load(std::memory_order_acquire) && !ReachedDeadline(giveUp)) sched_yield();
      ok = record->ready.load(std::memory_order_acquire) && record->kind == (isMutex ? kMutexKind : kEventKind);
    }
    if (!ok) {
      munmap(memory, sizeof(SyncRecord));
      CloseSegment(segment, hostName);
      return nullptr;
    }
    *fd = segment;
    return record;
  }
  return nullptr;
}

unsigned long long NameKey(const char* hostName) {
  unsigned long long hash = 1469598103934665603ull;
  for (const char* p = hostName; *p; ++p) hash = (hash ^ static_cast<unsigned char>(*p)) * 1099511628211ull;
  return hash >> 1;
}

bool SameObject(CPosixSyncObjectImpl* a, CPosixSyncObjectImpl* b) {
  return a == b || a->Record() == b->Record() || (a->IsShared() && b->IsShared() && a->OrderKey() == b->OrderKey());
}

}  // namespace

CPosixSyncObjectImpl::CPosixSyncObjectImpl()
    : m_handle{kMagic, this}, m_record(nullptr), m_fd(-1), m_hostName(nullptr), m_key(0) {}

CPosixSyncObjectImpl* CPosixSyncObjectImpl::Open(const char* name, bool isMutex, bool initially,
                                                 bool manualReset) noexcept {
  void* memory = platform::Alloc(sizeof(CPosixSyncObjectImpl));
  if (!memory) return nullptr;
  CPosixSyncObjectImpl* object = new (memory) CPosixSyncObjectImpl;
  if (name && *name) {
    object->m_hostName = HostName(name);
    if (object->m_hostName) {
      object->m_record = OpenSegment(object->m_hostName, isMutex, initially, manualReset, &object->m_fd);
      object->m_key = NameKey(object->m_hostName);
    }
  } else {
    void* block = platform::Alloc(sizeof(SyncRecord));
    if (block && !InitRecord(static_cast<SyncRecord*>(block), isMutex, initially, manualReset, false)) {
      platform::Free(block);
      block = nullptr;
    }
    object->m_record = static_cast<SyncRecord*>(block);
    object->m_key = (1ull << 63) | reinterpret_cast<std::uintptr_t>(block);
  }
  if (!object->m_record) {
    delete object;
    return nullptr;
  }
  return object;
}

// A mutex that a thread of this process still owns keeps its record, as
// the owner's robust list points into it: when that thread ends a named
// mutex is abandoned for the other holders of its name, as it would be with
// the object still open. Its memory then lasts until the process ends. An
// unnamed mutex that only the calling thread could still reach is simply
// released.
CPosixSyncObjectImpl::~CPosixSyncObjectImpl() {
  m_handle.mark = 0;
  SyncRecord* r = m_record;
  bool keep = false;
  if (r && r->kind == kMutexKind) {
    if (m_fd < 0) {
      while (r->ownerTid.load(std::memory_order_relaxed) == Tid() && ReleaseMutex()) {
      }
    }
    keep = r->ownerTid.load(std::memory_order_relaxed) != 0 && r->ownerPid.load(std::memory_order_relaxed) == Pid();
  }
  if (r && !keep) {
    if (m_fd >= 0) {
      munmap(r, sizeof(SyncRecord));
    } else {
      if (r->kind == kMutexKind) pthread_mutex_destroy(&r->mutex);
      r->~SyncRecord();
      platform::Free(r);
    }
  }
  if (m_fd >= 0) CloseSegment(m_fd, m_hostName);
  platform::Free(m_hostName);
}

bool CPosixSyncObjectImpl::IsMutex() const { return m_record->kind == kMutexKind; }

// The fence pairs with the sleepers' increment: either this thread sees a
// sleeper, or that sleeper's next attempt sees the change just made. Only
// then must the generation move, so a release nobody waits for costs no
// atomic write.
void CPosixSyncObjectImpl::Bump() noexcept {
  SyncRecord* r = m_record;
  std::atomic_thread_fence(std::memory_order_seq_cst);
  if (r->sleepers.load(std::memory_order_relaxed) == 0) return;
  r->generation.fetch_add(1, std::memory_order_seq_cst);
  Futex(&r->generation, FUTEX_WAKE | (IsShared() ? 0 : FUTEX_PRIVATE_FLAG), INT_MAX, nullptr, 0);
}

bool CPosixSyncObjectImpl::ReleaseMutex() noexcept {
  SyncRecord* r = m_record;
  if (r->kind != kMutexKind || r->ownerTid.load(std::memory_order_relaxed) != Tid()) return false;
  if (--r->recursion == 0) r->ownerTid.store(0, std::memory_order_relaxed);
  if (pthread_mutex_unlock(&r->mutex) != 0) {
    if (r->recursion++ == 0) r->ownerTid.store(Tid(), std::memory_order_relaxed);
    return false;
  }
  Bump();
  return true;
}

bool CPosixSyncObjectImpl::SetEvent() noexcept {
  if (m_record->kind != kEventKind) return false;
  m_record->signalled.store(1, std::memory_order_seq_cst);
  Bump();
  return true;
}

bool CPosixSyncObjectImpl::ResetEvent() noexcept {
  if (m_record->kind != kEventKind) return false;
  m_record->signalled.store(0, std::memory_order_release);
  return true;
}

CPosixSyncObjectImpl* CPosixSyncObjectImpl::FromHandle(void* handle) noexcept {
  const Handle* h = static_cast<const Handle*>(handle);
  return h && h->mark == kMagic && &h->object->m_handle == h ? h->object : nullptr;
}

}  // namespace posix

// A mutex waited for without limit is waited for in the kernel's own lock,
// which also learns at once of an owner that ended. Timed waits sleep on the
// generation like every other wait (a timed lock on the monotonic clock is
// not seen by ThreadSanitizer).
unsigned int CSyncObjectImpl::WaitOne(void* handle, unsigned int timeout) noexcept {
  posix::CPosixSyncObjectImpl* object = posix::CPosixSyncObjectImpl::FromHandle(handle);
  if (!object) return kWaitFailed;
  if (!object->IsMutex() || timeout != kWaitInfinite) {
    unsigned int order = 0;
    return posix::WaitFor(&object, &order, 1, false, timeout);
  }
  posix::SyncRecord* r = object->Record();
  switch (posix::Locked(r, pthread_mutex_lock(&r->mutex))) {
    case posix::kTaken:
      return kWaitObject0;
    case posix::kTakenAbandoned:
      return kWaitAbandoned0;
    default:
      return kWaitFailed;
  }
}

unsigned int CSyncObjectImpl::WaitMany(unsigned int count, void* const* handles, bool waitAll,
                                       unsigned int timeout) noexcept {
  if (count == 0 || count > kMaxWaitObjects || !handles) return kWaitFailed;
  posix::CPosixSyncObjectImpl* objects[kMaxWaitObjects];
  unsigned int order[kMaxWaitObjects];
  for (unsigned int i = 0; i < count; ++i) {
    objects[i] = posix::CPosixSyncObjectImpl::FromHandle(handles[i]);
    if (!objects[i]) return kWaitFailed;
    order[i] = i;
  }
  if (waitAll) {
    // Everyone takes the objects of a wait for all in one order (named ones
    // by name), so two such waits do not keep backing out for each other.
    for (unsigned int i = 1; i < count; ++i) {
      unsigned int j = i;
      while (j > 0 && objects[order[j]]->OrderKey() < objects[order[j - 1]]->OrderKey()) {
        unsigned int t = order[j];
        order[j] = order[j - 1];
        order[j - 1] = t;
        --j;
      }
    }
    for (unsigned int i = 1; i < count; ++i) {
      if (posix::SameObject(objects[order[i]], objects[order[i - 1]])) return kWaitFailed;
    }
  }
  return posix::WaitFor(objects, order, count, waitAll, timeout);
}

}  // namespace win
}  // namespace base
}  // namespace vesk
