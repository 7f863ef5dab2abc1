// Worker threads that stop on request: each worker takes jobs from a shared
// counter under a critical section, sleeping in Wait between rounds so that
// Stop wakes it at once; the main thread lets them work, asks them to stop,
// and joins them. A manual-reset event tells the workers when to begin.
#include <cstdio>

#include <vesk/Library.h>
#include <vesk/base/Thread.h>
#include <vesk/base/win/CriticalSection.h>
#include <vesk/base/win/Event.h>
#include <vesk/base/win/SingleLock.h>

using vesk::base::CThread;
using vesk::base::win::CCriticalSection;
using vesk::base::win::CEvent;
using vesk::base::win::CSingleLock;

namespace {

struct Jobs {
  CCriticalSection lock;
  CEvent go{nullptr, false, true};  // unnamed, not yet signalled, manual reset
  unsigned int done = 0;
};

class CWorker : public CThread {
 public:
  CWorker(Jobs& jobs, int id) : m_jobs(jobs), m_id(id), m_mine(0) {}

  void Run() override {
    m_jobs.go.Acquire();  // every worker starts together
    while (!IsStopped()) {
      {
        CSingleLock hold(&m_jobs.lock, true);  // released at the end of the block
        ++m_jobs.done;
      }
      ++m_mine;
      Wait(5);  // a short rest that Stop cuts short
    }
  }

  int GetId() const { return m_id; }
  unsigned int GetJobs() const { return m_mine; }

 private:
  Jobs& m_jobs;
  int m_id;
  unsigned int m_mine;
};

}  // namespace

int main() {
  vesk::Initialize();
  Jobs jobs;
  CWorker a(jobs, 1), b(jobs, 2), c(jobs, 3);
  CWorker* workers[] = {&a, &b, &c};
  for (CWorker* worker : workers) worker->Start();
  jobs.go.SetEvent();

  // Let them work for a moment: a worker does not end by itself, so a
  // timed Join is a plain sleep here.
  if (!a.Join(100)) std::printf("workers running\n");
  for (CWorker* worker : workers) worker->Stop();
  for (CWorker* worker : workers) worker->Join();

  unsigned int total = 0;
  for (CWorker* worker : workers) {
    std::printf("worker %d did %u jobs\n", worker->GetId(), worker->GetJobs());
    total += worker->GetJobs();
  }
  std::printf("all workers stopped: %s (%u jobs in all)\n", total == jobs.done ? "yes" : "no", jobs.done);
  vesk::Terminate();
  return total == jobs.done && total > 0 ? 0 : 1;
}
