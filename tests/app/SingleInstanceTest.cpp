#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>
#include <atomic>
#include <csignal>
#include <memory>

#include "app/QuitSignals.h"
#include "app/SingleInstance.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/TempFolder.h"

namespace tarvel {
namespace {

using Outcome = SingleInstance::Outcome;

constexpr int kManyStarts = 200;

class SingleInstanceTest : public testing::Test {
 protected:
  SingleInstanceTest() { qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(runtime_.path())); }
  Path store() const { return folder_.path() + "/data/Tarvel"; }

  /// Another start, on a thread of its own as it blocks; meanwhile `here` runs again and again.
  Outcome claimFromOutside(const Path& store, const std::function<void()>& here) {
    std::atomic<bool> done = false;
    Outcome outcome = Outcome::noAnswer;
    const std::unique_ptr<QThread> other(QThread::create([&] {
      outcome = SingleInstance().claim(files_, store, {"wish", ""});
      done = true;
    }));
    other->start();
    while (!done) here();
    other->wait();
    return outcome;
  }
  Outcome claimFromOutside(const Path& store) {
    return claimFromOutside(store, [] { QCoreApplication::processEvents(QEventLoop::AllEvents, 10); });
  }

  TempFolder folder_;
  TempFolder runtime_;
  PosixFileSystem files_;
};

TEST_F(SingleInstanceTest, ASecondStartIsHandedOver) {
  // Whatever lies in the store, a second copy isn't let in.
  ASSERT_TRUE(files_.createFolders(store() + "/.lock"));
  SingleInstance first;
  QList<QByteArray> shown;
  first.showYourself = [&shown](const StartupNotice& notice) { shown << notice.startupId; };
  ASSERT_EQ(first.claim(files_, store()), Outcome::first);
  // Many, since the answer may come before the start has sent what it has to say, or after.
  for (int i = 1; i <= kManyStarts; ++i) {
    EXPECT_EQ(claimFromOutside(store()), Outcome::handedOver);
    QCoreApplication::processEvents();
    ASSERT_EQ(shown, QList<QByteArray>(i, "wish")) << "once each, with what the launcher has given along";
  }
  std::filesystem::create_directory_symlink(store(), folder_.path() + "/link");
  EXPECT_EQ(claimFromOutside(folder_.path() + "/link"), Outcome::handedOver)
      << "the same store by another path";
  EXPECT_EQ(claimFromOutside(folder_.path() + "/other"), Outcome::first) << "another store";
}

TEST_F(SingleInstanceTest, OneThatQuitsHandsTheStoreOn) {
  auto first = std::make_unique<SingleInstance>();
  ASSERT_EQ(first->claim(files_, store()), Outcome::first);
  first->stopListening();
  EXPECT_EQ(claimFromOutside(store(), [&first] { first.reset(); }), Outcome::first);
}

TEST_F(SingleInstanceTest, AStoreThatCanNotBeMadeIsNobodys) {
  SingleInstance instance;
  EXPECT_EQ(instance.claim(files_, "/proc/nowhere/Tarvel"), Outcome::first);
}

TEST(QuitSignalsDeathTest, TheDefaultComesBack) {
  EXPECT_EXIT(
      {
        {
          const QuitSignals catcher([] {});
        }
        std::raise(SIGTERM);
      },
      testing::KilledBySignal(SIGTERM), "");
}

}  // namespace
}  // namespace tarvel
