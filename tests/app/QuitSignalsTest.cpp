#include "app/QuitSignals.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <csignal>

namespace tarvel {
namespace {

TEST(QuitSignalsTest, EachSignalBecomesACallFromTheLoop) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    int calls = 0;
    const QuitSignals catcher([&calls] { ++calls; });
    std::raise(signal);
    EXPECT_EQ(calls, 0) << "not within the signal's handler";
    while (calls == 0) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(calls, 1);
  }
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
