#include "foundation/MessageLog.h"

#include <gtest/gtest.h>

#include "simulation/ports/CorruptBytes.h"
#include "simulation/ports/SimServices.h"
#include "support/Encoded.h"

namespace tarvel {
namespace {

using Texts = std::vector<std::string>;
using Operation = MemoryFileSystem::Operation;

const Path kFolder = "/store";
const Path kFile = "/store/error-log.b1";
constexpr std::int64_t kMaxMessages = 500;
constexpr std::uint16_t kPermissions = 0700;

class MessageLogTest : public testing::Test {
 protected:
  MessageLogTest() {
    EXPECT_TRUE(sim.disk.createFolders(kFolder).ok());
    sim.disk.syncAll();
  }
  std::shared_ptr<MessageLog> makeLog(std::int64_t maxMessages = kMaxMessages) {
    return MessageLog::create(sim.services, kFile, "error-log", maxMessages, kPermissions);
  }
  static Texts textsOf(MessageLog& log) {
    Texts texts;
    for (const LogMessage& message : log.logMessages()) texts.push_back(message.msg);
    return texts;
  }
  Bytes file() { return sim.disk.read(kFile).value(); }
  void writeFile(const Bytes& bytes) { EXPECT_TRUE(sim.disk.write(kFile, bytes).ok()); }

  SimServices sim;
};

TEST_F(MessageLogTest, ABurstIsPrintedAnnouncedAndSavedAMinuteAfterItsFirstLine) {
  sim.world.setMachineZone(*TimeZone::named("America/Denver"));
  const NotificationRecorder recorder(sim.notifications, sim.world);
  const auto log = makeLog();
  EXPECT_TRUE(log->logMessages().empty() && sim.console.lines().empty()) << "a missing file is no error";
  const Instant start = sim.world.now();
  log->addMessage("one");
  EXPECT_EQ(sim.console.lines(), Texts{"error-log 3/8/2026 6:00:00 am: one"});
  EXPECT_TRUE(recorder.deliveries().empty()) << "nothing is delivered within the call";
  sim.world.runFor(30);
  log->addMessage("two");
  sim.world.runFor(29.5);
  EXPECT_EQ(recorder.count(kMessageLogChanged, log.get()), 2U);
  EXPECT_FALSE(sim.disk.info(kFile));
  sim.world.runFor(1);
  EXPECT_TRUE(sim.console.printed("File written: /store/error-log.b1"));
  const Bytes expected = encoded(1, 2, start, "one", start + 30, "two");
  EXPECT_EQ(file(), expected);
  EXPECT_EQ(sim.disk.snapshot().at(kFile).permissions, kPermissions);
  sim.world.runFor(600);
  EXPECT_EQ(sim.console.lines().size(), 3U) << "one write for the burst";
}

TEST_F(MessageLogTest, TheOldestGoWhenTheListIsFull) {
  const auto log = makeLog();
  for (int i = 1; i <= 501; ++i) log->addMessage(std::to_string(i));
  EXPECT_EQ(log->logMessages().size(), 500U);
  EXPECT_EQ(log->logMessages().front().msg, "2");
  EXPECT_TRUE(log->save());
  const auto shorter = makeLog(3);
  shorter->addMessage("new");
  EXPECT_EQ(textsOf(*shorter), (Texts{"500", "501", "new"}));
  const auto shortest = makeLog(1);
  shortest->addMessage(shortest->logMessages().front().msg);
  EXPECT_EQ(textsOf(*shortest), Texts{"2"});
}

TEST_F(MessageLogTest, ADamagedFileCountsAsNoneAndIsReplacedByTheNextSave) {
  const auto log = makeLog();
  log->addMessage("one");
  log->addMessage("two");
  EXPECT_TRUE(log->save());
  const Bytes whole = file();
  std::vector<Bytes> damaged;
  for (std::size_t length = 0; length < whole.size(); ++length) damaged.push_back(cutAt(whole, length));
  damaged.push_back(overwrite(whole, 2, {0xFF, 0xFF}));  // a count of -1
  damaged.push_back({0x01, 0x01, 0x08, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F});
  for (const Bytes& bytes : damaged) {
    writeFile(bytes);
    const auto reader = makeLog();
    EXPECT_TRUE(reader->logMessages().empty()) << bytes.size();
    reader->addMessage("new");
    EXPECT_TRUE(reader->save());
    EXPECT_EQ(textsOf(*makeLog()), Texts{"new"});
  }
}

TEST_F(MessageLogTest, AFailedSaveLeavesTheOldFileAndIsTriedAgainWithTheNextChange) {
  const auto log = makeLog();
  log->addMessage("old");
  sim.world.runFor(61);
  const Bytes before = file();
  sim.disk.failOperation(1, MemoryFileSystem::Repeat::once, {Operation::sync, kFolder});
  log->addMessage("more");
  sim.world.runFor(61);
  EXPECT_TRUE(log->logChanged && !log->savePending());
  EXPECT_TRUE(sim.console.printed("Unable to write file: /store/error-log.b1 -- I/O error"));
  EXPECT_EQ(file(), before);
  log->addMessage("again");
  sim.world.runFor(61);
  EXPECT_EQ(textsOf(*makeLog()), (Texts{"old", "more", "again"}));
}

TEST_F(MessageLogTest, AClearedLogIsAnnouncedAndItsFileEmptiedAMinuteLater) {
  writeFile(encoded(1, 1, sim.world.now(), "of the last run"));
  const NotificationRecorder recorder(sim.notifications, sim.world);
  const auto log = makeLog();
  log->clear();
  EXPECT_EQ(textsOf(*log), Texts{});
  sim.world.runFor(59);
  EXPECT_EQ(recorder.count(kMessageLogChanged, log.get()), 1U);
  EXPECT_NE(file(), encoded(1, 0));
  sim.world.runFor(2);
  EXPECT_EQ(file(), encoded(1, 0));
}

}  // namespace
}  // namespace tarvel
