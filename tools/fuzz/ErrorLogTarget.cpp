#include "Checks.h"
#include "Targets.h"
#include "foundation/MessageLog.h"
#include "foundation/TextFormats.h"
#include "simulation/ports/SimServices.h"

namespace tarvel::fuzz {

namespace {

const Path kFile = "/error-log.b1";

std::shared_ptr<MessageLog> openLog(const SimServices& sim) {
  return MessageLog::create(sim.services, kFile, "error-log", 500, 0600);
}

}  // namespace

void errorLog(ByteView input) {
  SimServices sim;
  require(sim.disk.write(kFile, input).ok(), "the disk holds the log");
  const auto log = openLog(sim);
  {
    const MemoryMeter meter;
    (void)log->logMessages();
    require(meter.peak() <= allowance(input), "reading takes memory in proportion to the input");
  }
  for (const LogMessage& message : log->logMessages())
    (void)dateAndTimeText(message.timeStamp, sim.services.clock.machineZone());
  require(log->save(), "a log that was read can be saved");
  const Result<Bytes> saved = sim.disk.read(kFile);
  const auto again = openLog(sim);
  require(again->logMessages().size() == log->logMessages().size(), "and has as many lines as before");
  require(again->save() && sim.disk.read(kFile) && *sim.disk.read(kFile) == *saved,
          "what was written is read as it was");
}

}  // namespace tarvel::fuzz
