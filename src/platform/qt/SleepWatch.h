#pragma once
#include <QObject>
#include <functional>
#include <map>
#include <memory>

namespace tarvel {

/// Hears from the login manager that the machine goes to sleep and has woken, and tells those who asked. Main
/// thread.
class SleepWatch : public QObject {
  Q_OBJECT
 public:
  /// Asks the system bus for the signal. Silent if there is none.
  void connectToLoginManager();
  /// Gives the key to end it with.
  int add(std::function<void()> handler);
  void remove(int key);

 public slots:
  /// The login manager's signal: `true` on the way to sleep, `false` after it. A handler may add and remove
  /// handlers; one that is removed meanwhile isn't called.
  void prepareForSleep(bool goingToSleep);

 private:
  std::map<int, std::shared_ptr<std::function<void()>>> handlers_;
  int lastKey_ = 0;
};

}  // namespace tarvel
