#include "schedule/SchedulePrinting.h"

#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <tuple>

#include "Items.h"
#include "ScheduleWorld.h"

namespace tarvel {
namespace {

using test::kWeekOf;
using test::ScheduleWorld;

class SchedulePrintingTest : public testing::Test {
 protected:
  SchedulePrintingTest() {
    world.addRink(1, "Harbour Rink");
    schedule.rink =
        world.openRink(1, {ScheduleWorld::venue(7, "North", 1), ScheduleWorld::venue(4, "South", 2)});
    schedule.rink->venue(7)->weeklySchedule(kWeekOf)->adopt(
        {{},
         {{SessionKind::publicSession, 3, 600, 120, "", ""},
          {SessionKind::freestyle, 2, 900, 60, "Gold", ""}}});
    schedule.date = packedDate(2026, 3, 18);
    schedule.dailyVenueIDs = {4, 7};
  }
  QString path() const { return folder.filePath(QStringLiteral("page.pdf")); }
  Status print(QPageSize::PageSizeId paper) {
    QPdfWriter writer(path());
    writer.setPageSize(QPageSize(paper));
    return printSchedule(writer, world.dataModel, schedule);
  }
  std::string output(const QString& program, const QStringList& arguments) const {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString() << " is of the package poppler-utils";
    return process.readAllStandardOutput().toStdString();
  }
  std::string text() const {
    return output(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), path(), QStringLiteral("-")});
  }

  QTemporaryDir folder;
  ScheduleWorld world;
  ScheduleToPrint schedule;
};

TEST_F(SchedulePrintingTest, printsEitherFormOnOnePageOfText) {
  using Form = ScheduleViewOption;
  const std::pair<Form, std::vector<const char*>> forms[] = {
      {Form::weekly, {"Harbour Rink", "Wed", "3/18", "Sat", "3/21", "Public", "Freestyle", "Gold"}},
      {Form::daily, {"Harbour Rink", "Wednesday, March 18, 2026", "North", "South", "Public Session"}}};
  for (const auto& [paper, size] :
       {std::pair{QPageSize::A4, "595 x 842"}, {QPageSize::Letter, "612 x 792"}}) {
    for (const auto& [form, words] : forms) {
      SCOPED_TRACE(size);
      schedule.form = form;
      ASSERT_TRUE(print(paper).ok());
      const std::string info = output(QStringLiteral("pdfinfo"), {path()});
      EXPECT_NE(info.find("Pages:           1\n"), std::string::npos) << info;
      EXPECT_NE(info.find(size), std::string::npos) << info;
      const std::string page = text();
      for (const char* word : words) EXPECT_NE(page.find(word), std::string::npos) << word << " in\n" << page;
      EXPECT_NE(page.find("Printed 3/18/26"), std::string::npos);
      EXPECT_EQ(page.find("Gold") != std::string::npos, form == Form::weekly) << "Tuesday's";
    }
  }
}

TEST_F(SchedulePrintingTest, writesTheVenuesAboveTheirColumns) {
  schedule.form = ScheduleViewOption::daily;
  ASSERT_TRUE(print(QPageSize::A4).ok());
  const std::string words =
      output(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), path(), QStringLiteral("-")});
  // The columns begin at 20 + 12 + 35 and share the width up to 595 - 30 - 5.
  for (const auto& [name, middle] : {std::pair{"North", 190.25}, std::pair{"South", 436.75}}) {
    const QRegularExpression word(
        QStringLiteral("xMin=\"([0-9.]+)\"[^>]*xMax=\"([0-9.]+)\"[^>]*>%1<").arg(QLatin1String(name)));
    const auto match = word.match(QString::fromStdString(words));
    EXPECT_NEAR((match.captured(1).toDouble() + match.captured(2).toDouble()) / 2, middle, 1.0) << name;
  }
}

TEST_F(SchedulePrintingTest, endsWhatIsTooLongWithAnEllipsis) {
  schedule.rink->rinkInfo()->name = std::string(10'000, 'M');
  schedule.rink->venue(7)->name = std::string(10'000, 'N');
  for (const auto form : {ScheduleViewOption::weekly, ScheduleViewOption::daily}) {
    schedule.form = form;
    ASSERT_TRUE(print(QPageSize::A4).ok());
    EXPECT_NE(text().find("M\u2026"), std::string::npos);
    EXPECT_EQ(text().find("N\u2026") != std::string::npos, form == ScheduleViewOption::daily);
  }
}

TEST_F(SchedulePrintingTest, tellsWhyThereIsNoPage) {
  QPdfWriter nowhere(QStringLiteral("/no/such/folder/page.pdf"));
  EXPECT_FALSE(printSchedule(nowhere, world.dataModel, schedule).ok());
  schedule.rink->setRinkInfo(nullptr);
  ASSERT_TRUE(print(QPageSize::A4).ok());
  EXPECT_NE(text().find("unknown rink"), std::string::npos);
  schedule.rink = nullptr;
  for (const auto form : {ScheduleViewOption::weekly, ScheduleViewOption::daily}) {
    schedule.form = form;
    ASSERT_TRUE(print(QPageSize::A4).ok());
    EXPECT_NE(text().find("No Rink Selected"), std::string::npos);
  }
}

}  // namespace
}  // namespace tarvel
