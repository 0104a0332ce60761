#pragma once
#include <QApplication>
#include <QEventLoop>
#include <functional>

#include "platform/qt/QtRunLoop.h"

namespace tarvel::test {

/// Runs the event loop until every task posted to the loop has run and then its idle tasks, those that stand
/// in the queue now.
inline void runUntilIdle(QtRunLoop& loop) {
  QEventLoop qtLoop;
  loop.postWhenIdle([&] { qtLoop.quit(); });
  qtLoop.exec();
}

/// Runs the event loop until the condition holds; ctest's own limit ends a wait in vain.
inline void runUntil(const std::function<bool()>& condition) {
  while (!condition()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace tarvel::test
