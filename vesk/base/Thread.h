/// \file
/// CThread: a thread of the library, run by deriving a class with a body.
#ifndef VESK_BASE_THREAD_H
#define VESK_BASE_THREAD_H

#include "vesk/base/Base.h"
#include "vesk/base/Condition.h"
#include "vesk/base/Lock.h"
#include "vesk/base/Ref.h"

namespace vesk {
namespace base {

class CThreadImpl;
class CThread;

namespace internal {
/// The body of every thread the library starts: runs thread's Run and
/// reports what escapes it. Called by the host implementation only.
void RunThreadBody(CThread* thread);
}  // namespace internal

/// Derive, implement Run, call Start. The object may be shared by threads:
/// Start, Join, Stop and Destroy may be called from any of them. Destroying
/// the object neither stops nor joins its thread.
///
/// Priorities are the levels -15 (idle), -2, -1, 0 (normal), 1, 2 and 15
/// (time critical); on POSIX hosts they are kept as per-thread nice values.
class VESK_API CThread : public CBase {
 public:
  /// Throws CMemoryException when the implementation, lock or condition
  /// cannot be had.
  CThread();
  /// Releases the implementation, lock and condition; the thread, if still
  /// running, goes on.
  virtual ~CThread();

  /// Starts a thread running Run. Throws CWinSystemErrorException "Failed to
  /// create and start the thread." when the system refuses, "Failed to set
  /// the initial priority of the thread." when a priority set before could
  /// not be applied (the thread runs then). Starting again starts another
  /// thread; Join and the others then concern the newest one.
  virtual void Start();
  /// The thread body.
  virtual void Run() = 0;
  /// Waits at most timeout milliseconds (0xFFFFFFFF: no limit) for the body
  /// to end: false when the time ran out. Throws CIllegalStateException
  /// "Thread hasn't been started yet." before Start.
  virtual bool Join(unsigned int timeout);
  /// Waits until the body ended; CIllegalStateException before Start.
  virtual void Join();
  /// Asks the body to stop: IsStopped turns true for good and a Wait in the
  /// body returns true. Does not end the thread.
  virtual void Stop();
  /// Ends the thread without its consent. On POSIX hosts it ends at its next
  /// cancellation point (a blocking system call, a sleep, or a Wait of this
  /// class, which Destroy interrupts); objects on its stack are destroyed
  /// as it unwinds. CIllegalStateException before Start.
  virtual void Destroy();

  /// Before Start: the priority to start with (0 unless set); after: the
  /// running thread's level.
  int GetPriority() const;
  /// Before Start the level is kept and applied at Start; after Start it is
  /// applied at once (CWinSystemErrorException "Failed to set the priority
  /// of the thread." when the system refuses, or for a level not listed).
  void SetPriority(int priority);
  /// Whether the thread was started and its body has not ended.
  bool IsAlive() const;
  /// Whether the object deletes itself when its body ends.
  bool IsAutoDeleted() const { return m_autoDeleted; }
  /// With the flag set the object deletes itself when its body ends; its
  /// creator must not touch it after Start.
  void SetAutoDeleted(bool autoDeleted) { m_autoDeleted = autoDeleted; }

  /// The CThread running the calling thread; null on threads the library did
  /// not start.
  static CThread* GetCurrentThread();

  ///@{
  /// A CThread equals only itself.
  bool operator==(const CThread& other) const { return m_impl == other.m_impl; }
  bool operator!=(const CThread& other) const { return m_impl != other.m_impl; }
  ///@}

 protected:
  /// Whether Stop was called.
  bool IsStopped();
  /// Sleeps at most timeout milliseconds: true when Stop (or Destroy) woke
  /// it, false when the time ran out.
  bool Wait(unsigned int timeout);
  /// Ends the calling thread at once with code; Run does not return and the
  /// object is not auto-deleted. Call it only from the body.
  [[noreturn]] void Exit(unsigned int code);

 private:
  friend void internal::RunThreadBody(CThread* thread);
  CThread(const CThread&);
  CThread& operator=(const CThread&);

  CRef<CThreadImpl> m_implRef;
  CThreadImpl* m_impl;
  CLock m_lock;
  CCondition m_condition;
  bool m_stopped;
  bool m_autoDeleted;
};

}  // namespace base
}  // namespace vesk

#endif
