#pragma once
#include <gtest/gtest.h>

#include <QImage>
#include <tuple>

#include "schedule/ScheduleViewOwner.h"

namespace tarvel::test {

/// An owner of schedule views that records what it is told.
class ScheduleTestOwner : public ScheduleViewOwner {
 public:
  VerticalFit fitVertically() const override { return VerticalFit::fit; }
  double fontSize() const override { return size; }
  SessionTimes showSessionTimes() const override { return sessionTimes; }
  ScheduleViewOption scheduleViewOption() const override { return ScheduleViewOption::weekly; }
  std::shared_ptr<RinkData> currentRinkData() const override { return rink; }
  const std::vector<std::int64_t>& dailyVenueIDs() const override { return venueIDs; }
  bool isCurrentPage(const PagedView&) const override { return current; }
  ColumnGeometry columnGeometry() const override { return geometry; }
  void redrawScheduleHeader() override {}
  void updateDayRange() override { ++loads; }
  bool itemInfoShown() const override { return infoShown; }
  void showItemInfo(const std::string& text) override { info = text; }
  PackedDate selectedDate() const override { return selected; }
  void setSelectedDate(PackedDate date) override { selected = date; }
  void gotoScheduleItem(std::int64_t id, PackedDate date, std::int64_t minute) override {
    gone = {id, date, minute};
  }

  double size = 9.0;
  SessionTimes sessionTimes = SessionTimes::hidden;
  std::shared_ptr<RinkData> rink;
  std::vector<std::int64_t> venueIDs;
  ColumnGeometry geometry;
  bool current = true;
  bool infoShown = true;
  int loads = 0;  ///< a page that is current tells of each load
  std::string info;
  PackedDate selected = kNoDate;
  std::tuple<std::int64_t, PackedDate, std::int64_t> gone;
};

inline QColor builtColor(SessionKind kind) {
  return toQColor(kBuiltInSessions[static_cast<std::size_t>(kind)].color);
}

inline QColor blended(const QColor& under, const QColor& over) {
  const double a = over.alphaF();
  const auto mix = [a](int u, int o) { return static_cast<int>(u * (1 - a) + o * a + 0.5); };
  return {mix(under.red(), over.red()), mix(under.green(), over.green()), mix(under.blue(), over.blue())};
}

inline void expectColor(const QImage& image, int x, int y, const QColor& expected) {
  const QColor found = image.pixelColor(x, y);
  const bool close = std::abs(found.red() - expected.red()) <= 3 &&
                     std::abs(found.green() - expected.green()) <= 3 &&
                     std::abs(found.blue() - expected.blue()) <= 3;
  EXPECT_TRUE(close) << x << "," << y << ": " << found.name().toStdString() << " instead of "
                     << expected.name().toStdString();
}

}  // namespace tarvel::test
