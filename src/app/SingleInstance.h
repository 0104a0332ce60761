#pragma once
#include <QLocalServer>
#include <functional>
#include <memory>

#include "app/StartupNotice.h"
#include "platform/FileSystem.h"
#include "platform/posix/FileDescriptor.h"

namespace tarvel {

/// Sees to it that one copy of the application alone works on a store. The copy that runs holds a lock of the
/// kernel's on the store's folder (on a hidden file in it where the disk locks no folders), which ends with
/// the process however that comes about, and listens on a socket named for the store. Main thread.
class SingleInstance {
 public:
  enum class Outcome {
    first,       ///< the store is ours, or can't be locked at all
    handedOver,  ///< the copy that runs has been asked to show itself, and has answered
    noAnswer,    ///< a copy holds the store and doesn't answer
  };

  /// Makes the store's folder if it lacks. Waits for a copy that is just starting, and for one that is just
  /// quitting and leaves us the store, 10 seconds at most. The copy that runs gets the notice.
  Outcome claim(FileSystem& files, const Path& supportFolder, const StartupNotice& notice = {});

  /// Called from the event loop each time that a further start has asked for it; may be empty.
  std::function<void(const StartupNotice&)> showYourself;

  /// Hears no further start any more. The store stays ours until the object goes.
  void stopListening();

 private:
  void listen(const QString& socketName);
  void answer();
  void serve(QLocalSocket& socket);

  FileDescriptor lock_;
  std::unique_ptr<QLocalServer> server_;
};

}  // namespace tarvel
