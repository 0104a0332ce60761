#pragma once
#include <QTest>

#include "schedule/ScheduleWorld.h"
#include "ui/Window.h"

namespace tarvel::test {

inline std::shared_ptr<const Notice> notice(std::int64_t id, const std::string& summary = "Closed",
                                            const std::string& detail = "All day.") {
  auto notice = std::make_shared<Notice>();
  notice->noticeID = id;
  notice->date = packedDate(2026, 3, 1);
  notice->summary = summary;
  notice->detail = detail;
  return notice;
}

/// A window, and a rink whose notices the test publishes.
class NoticesWorld : public ScheduleWorldTest {
 protected:
  NoticesWorld() {
    world.addRink(7, "Arctic");
    rink = world.openRink(7, {});
    window.resize(600, 400);
    window.makeKeyAndOrderFront();
  }
  void publish(const NoticeList& notices) {
    rink->adoptNotices({ScheduleWorld::kFileDate, notices});
    settle();
  }

  std::shared_ptr<RinkData> rink;
  Window window;
};

}  // namespace tarvel::test
