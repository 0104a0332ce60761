#pragma once
#include <functional>
#include <memory>
#include <string>

#include "platform/RunLoop.h"

namespace tarvel {

/// A thread that does nothing but run its loop. Destroying it drops what is queued, wakes it and waits for
/// its end.
class LoopThread {
 public:
  virtual ~LoopThread() = default;
  /// Runs the task on the thread in a later pass of its loop, and wakes the loop. Callable from any thread.
  virtual void post(Task task) = 0;
  /// The same, and returns when the task has run; at once, with the task not run, if the thread has ended.
  /// Not to be called on the thread itself.
  virtual void postAndWait(Task task) = 0;
  /// True once the thread's loop has ended.
  virtual bool ended() const = 0;
};

class Threads {
 public:
  virtual ~Threads() = default;
  /// Starts a thread of that name. It calls `main` with its loop, and then runs the loop pass by pass (a pass
  /// ends when a timer or a posted task has run) while `keepRunning` answers true and the loop has at least
  /// one timer. Both are called on the new thread.
  virtual std::unique_ptr<LoopThread> start(std::string name, std::function<void(RunLoop&)> main,
                                            std::function<bool()> keepRunning) = 0;
  /// Names the calling thread for debuggers and process lists, where a name of its own doesn't rename the
  /// program.
  virtual void nameCurrentThread(const std::string& name) = 0;
};

}  // namespace tarvel
