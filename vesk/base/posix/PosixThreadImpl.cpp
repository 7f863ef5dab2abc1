#include "vesk/base/posix/PosixThreadImpl.h"

#include <errno.h>
#include <limits.h>
#include <linux/futex.h>
#include <pthread.h>
#include <stdint.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <new>

#include "vesk/base/IllegalStateException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/Thread.h"
#include "vesk/base/win/WinSystemErrorException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Semaphore.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/posix/Deadline.h"

namespace vesk {
namespace base {

CThreadImpl* CThreadImpl::Create() { return new posix::CPosixThreadImpl; }

void CThreadImpl::HonourDestroy() { pthread_testcancel(); }

namespace posix {

namespace {

const char* const kSource = "vesk/base/win/WinThreadImpl";
const char* const kNotStarted = "Thread hasn't been started yet.";

// The priority levels and the nice values they are kept as. A new thread
// starts at its creator's nice value, as every POSIX thread does.
struct Level {
  int level;
  int nice;
};
const Level kLevels[] = {{-15, 19}, {-2, 10}, {-1, 5}, {0, 0}, {1, -5}, {2, -10}, {15, -20}};

bool NiceOf(int level, int* nice) {
  for (const Level& l : kLevels) {
    if (l.level == level) {
      *nice = l.nice;
      return true;
    }
  }
  return false;
}

// The level whose nice value is nearest (the lower level on a tie), so a
// value set by other means still reads as a level.
int LevelOf(int nice) {
  const Level* best = &kLevels[0];
  for (const Level& l : kLevels) {
    int distance = l.nice > nice ? l.nice - nice : nice - l.nice;
    int bestDistance = best->nice > nice ? best->nice - nice : nice - best->nice;
    if (distance < bestDistance) best = &l;
  }
  return best->level;
}

// Holds a mutex for a scope, also while a cancelled thread unwinds out of a
// wait.
struct Holding {
  explicit Holding(pthread_mutex_t* m) : mutex(m) { pthread_mutex_lock(mutex); }
  ~Holding() { pthread_mutex_unlock(mutex); }
  pthread_mutex_t* mutex;
};

}  // namespace

// One started thread: shared by the implementation and the thread itself,
// freed by whichever lets go last. The holds and the end of the thread share
// one word, so the thread marks its end and lets go in one step, and a
// joiner sleeps on that word.
struct CPosixThreadImpl::Run {
  static const std::uint32_t kEnded = 1u << 16;
  static const std::uint32_t kHolds = kEnded - 1;

  pthread_mutex_t mutex;  // guards tid and exiting
  pthread_cond_t begun;
  pthread_t thread;
  CThread* body;
  pid_t tid;      // 0 until the thread has begun
  bool exiting;   // past its body: no longer to be cancelled or reprioritised
  std::atomic<std::uint32_t> state;  // kEnded, and the number of holds

  static Run* Make(CThread* body, int holders) {
    void* memory = platform::Alloc(sizeof(Run));
    if (!memory) VESK_THROW("vesk/base/Base", CMemoryException);
    Run* run = new (memory) Run;
    pthread_mutex_init(&run->mutex, nullptr);
    pthread_cond_init(&run->begun, nullptr);
    run->body = body;
    run->tid = 0;
    run->exiting = false;
    run->state.store(static_cast<std::uint32_t>(holders), std::memory_order_relaxed);
    return run;
  }

  bool Ended() const { return (state.load(std::memory_order_acquire) & kEnded) != 0; }

  void Let() {
    if ((state.fetch_sub(1, std::memory_order_acq_rel) & kHolds) == 1) Free();
  }

  void Free() {
    pthread_cond_destroy(&begun);
    pthread_mutex_destroy(&mutex);
    this->~Run();
    platform::Free(this);
  }

  // The thread's id once it has begun, 0 once it is past its body (its id
  // may then go to another thread); the caller holds the mutex.
  pid_t BegunTid() {
    while (tid == 0) pthread_cond_wait(&begun, &mutex);
    return exiting ? 0 : tid;
  }

  // Waits for the end until the (monotonic) deadline, or without limit.
  bool WaitEnded(const timespec* deadline) {
    for (;;) {
      std::uint32_t seen = state.load(std::memory_order_acquire);
      if (seen & kEnded) return true;
      long result = syscall(SYS_futex, reinterpret_cast<std::uint32_t*>(&state),
                            FUTEX_WAIT_BITSET | FUTEX_PRIVATE_FLAG, seen, deadline, nullptr,
                            FUTEX_BITSET_MATCH_ANY);
      if (result != 0 && errno == ETIMEDOUT) return Ended();
    }
  }

  // Marks the thread ended and lets go of the record, also when the thread
  // ends by cancellation or Exit. A joiner that sees the end finds the
  // thread's hold already gone; waking it after the record may be freed is
  // harmless (a wake only names an address).
  struct Ending {
    Run* run;
    ~Ending() {
      pthread_mutex_lock(&run->mutex);
      run->exiting = true;
      pthread_mutex_unlock(&run->mutex);
      std::uint32_t before = run->state.fetch_add(kEnded - 1, std::memory_order_acq_rel);
      if ((before & kHolds) == 1) {
        run->Free();
      } else {
        syscall(SYS_futex, reinterpret_cast<std::uint32_t*>(&run->state), FUTEX_WAKE | FUTEX_PRIVATE_FLAG,
                INT_MAX, nullptr, nullptr, 0);
      }
    }
  };

  static void* Entry(void* argument) {
    Run* run = static_cast<Run*>(argument);
    Ending ending{run};
    pthread_mutex_lock(&run->mutex);
    run->tid = gettid();
    pthread_cond_broadcast(&run->begun);
    pthread_mutex_unlock(&run->mutex);
    internal::RunThreadBody(run->body);
    return nullptr;
  }
};

CPosixThreadImpl::CPosixThreadImpl() : m_run(nullptr), m_priority(0) {}

// The thread goes on: like a thread handle that is never closed, the record
// lives until the thread has ended too.
CPosixThreadImpl::~CPosixThreadImpl() {
  if (m_run) m_run->Let();
}

int CPosixThreadImpl::GetPriority() {
  if (!m_run) return m_priority;
  Holding hold(&m_run->mutex);
  pid_t tid = m_run->BegunTid();
  if (tid == 0) return m_priority;
  errno = 0;
  int nice = getpriority(PRIO_PROCESS, static_cast<id_t>(tid));
  if (nice == -1 && errno != 0) return m_priority;
  return LevelOf(nice);
}

void CPosixThreadImpl::SetPriority(int priority) {
  m_priority = priority;
  if (!m_run) return;
  Holding hold(&m_run->mutex);
  pid_t tid = m_run->BegunTid();
  if (tid == 0) return;
  int nice = 0;
  int error = EINVAL;
  if (NiceOf(priority, &nice)) {
    error = setpriority(PRIO_PROCESS, static_cast<id_t>(tid), nice) == 0 ? 0 : errno;
  }
  if (error != 0) {
    VESK_THROW(kSource, win::CWinSystemErrorException, "Failed to set the priority of the thread.", error);
  }
}

bool CPosixThreadImpl::IsAlive() { return m_run && !m_run->Ended(); }

// An auto-deleted thread may delete this implementation as soon as it
// runs, so nothing here touches the object after the thread is created: the
// record is stored before, and the priority step keeps a hold of its own.
void CPosixThreadImpl::Start(CThread* thread) {
  if (!thread) return;
  int priority = m_priority;
  Run* run = Run::Make(thread, priority != 0 ? 3 : 2);
  Run* previous = m_run;
  m_run = run;
  pthread_attr_t attributes;
  int error = pthread_attr_init(&attributes);
  if (error == 0) {
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    error = pthread_create(&run->thread, &attributes, &Run::Entry, run);
    pthread_attr_destroy(&attributes);
  }
  if (error != 0) {
    m_run = previous;
    run->Free();
    VESK_THROW(kSource, win::CWinSystemErrorException, "Failed to create and start the thread.", error);
  }
  if (previous) previous->Let();
  if (priority == 0) return;
  int nice = 0;
  error = EINVAL;
  {
    Holding hold(&run->mutex);
    pid_t tid = run->BegunTid();
    if (tid == 0) {
      error = 0;
    } else if (NiceOf(priority, &nice)) {
      error = setpriority(PRIO_PROCESS, static_cast<id_t>(tid), nice) == 0 ? 0 : errno;
    }
  }
  run->Let();
  if (error != 0) {
    VESK_THROW(kSource, win::CWinSystemErrorException, "Failed to set the initial priority of the thread.",
               error);
  }
}

bool CPosixThreadImpl::Join(unsigned int timeout) {
  if (!m_run) VESK_THROW(kSource, CIllegalStateException, kNotStarted, nullptr);
  if (timeout == platform::kWaitInfinite) return m_run->WaitEnded(nullptr);
  timespec deadline = platform::MonotonicDeadline(timeout);
  return m_run->WaitEnded(&deadline);
}

void CPosixThreadImpl::Join() {
  if (!m_run) VESK_THROW(kSource, CIllegalStateException, kNotStarted, nullptr);
  Join(platform::kWaitInfinite);
}

// A thread that has ended is left alone, as ending it again succeeds
// without effect on other hosts.
void CPosixThreadImpl::Destroy() {
  if (!m_run) VESK_THROW(kSource, CIllegalStateException, kNotStarted, nullptr);
  Holding hold(&m_run->mutex);
  if (m_run->exiting) return;
  int error = pthread_cancel(m_run->thread);
  if (error != 0) VESK_THROW(kSource, win::CWinSystemErrorException, "Failed to destroy the thread.", error);
}

void CPosixThreadImpl::Exit(unsigned int code) {
  pthread_exit(reinterpret_cast<void*>(static_cast<uintptr_t>(code)));
}

}  // namespace posix
}  // namespace base
}  // namespace vesk
