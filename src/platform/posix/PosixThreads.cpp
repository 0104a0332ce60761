#include "platform/posix/PosixThreads.h"

#include <pthread.h>
#include <unistd.h>

#include <condition_variable>
#include <thread>

#include "platform/FatalError.h"
#include "platform/posix/PosixRunLoop.h"

namespace tarvel {

namespace {

constexpr std::size_t kLongestName = 15;

void nameThread(const std::string& name) {
  ::pthread_setname_np(::pthread_self(), name.substr(0, kLongestName).c_str());
}

class PosixLoopThread : public LoopThread {
 public:
  PosixLoopThread(std::string name, std::function<void(RunLoop&)> main, std::function<bool()> keepRunning)
      : thread_([this, name = std::move(name), main = std::move(main), keepRunning = std::move(keepRunning)] {
          nameThread(name);
          run(main, keepRunning);
        }) {}

  ~PosixLoopThread() override {
    if (loop_.isCurrent()) fatalError("a thread can't wait for its own end");
    stopping_ = true;
    loop_.close();
    loop_.wake();
    thread_.join();
  }

  void post(Task task) override { loop_.post(std::move(task)); }

  void postAndWait(Task task) override {
    if (loop_.isCurrent()) fatalError("a thread can't wait for itself");
    // Shared: a thread that ends drops the task, and this call may be gone by then.
    const auto hasRun = std::make_shared<bool>(false);
    loop_.post([this, hasRun, task = std::move(task)]() mutable {
      task();
      task = nullptr;  // what it holds ends before the caller goes on
      const std::lock_guard lock(mutex_);
      *hasRun = true;
      changed_.notify_all();
    });
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return *hasRun || ended_; });
  }

  bool ended() const override {
    const std::lock_guard lock(mutex_);
    return ended_;
  }

 private:
  void run(const std::function<void(RunLoop&)>& main, const std::function<bool()>& keepRunning) {
    loop_.bindToCurrentThread();
    main(loop_);
    while (!stopping_ && loop_.hasTimers() && keepRunning()) loop_.runPass();
    loop_.close();
    const std::lock_guard lock(mutex_);
    ended_ = true;
    changed_.notify_all();
  }

  PosixRunLoop loop_;
  std::atomic<bool> stopping_{false};
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  bool ended_ = false;  ///< under the mutex
  std::thread thread_;  ///< last: it uses all the others
};

}  // namespace

std::unique_ptr<LoopThread> PosixThreads::start(std::string name, std::function<void(RunLoop&)> main,
                                                std::function<bool()> keepRunning) {
  return std::make_unique<PosixLoopThread>(std::move(name), std::move(main), std::move(keepRunning));
}

void PosixThreads::nameCurrentThread(const std::string& name) {
  // The system knows the process by its first thread's name; `ps` and `pkill` shall go on finding the
  // program.
  if (::gettid() != ::getpid()) nameThread(name);
}

}  // namespace tarvel
