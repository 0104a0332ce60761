#pragma once
#include <memory>
#include <optional>

#include "platform/AtomicFile.h"
#include "refresh/MasterRefresh.h"
#include "simulation/ports/SimServices.h"

namespace tarvel {

inline const Path kStore = "/home/u/Tarvel";
inline const std::string kServer = "http://catalogue.test";

/// One run of the application's engine on simulated services; several may follow one another on one disk.
class SimEngine {
 public:
  explicit SimEngine(SimServices& sim)
      : sim_(sim),
        log(MessageLog::create(sim.services, kStore + "/error-log.b1", "error-log", 500, 0700)),
        clock(sim.services),
        model(sim.services, *log, clock, kStore, kServer),
        master(sim.services, model) {
    (void)sim.disk.createFolders(kStore);
  }

  /// Starts with the state that the last run has saved, as the application does.
  void start() {
    const Result<Bytes> content = sim_.disk.read(kStateFile);
    const auto state = content ? PropertyList::parse(*content) : std::nullopt;
    model.start(state ? state->dictionary() : nullptr);
  }
  bool saveState() {
    PropertyList::Dictionary state;
    model.addToState(state);
    const Result<Bytes> xml = PropertyList(state).xml();
    return xml && writeAtomically(sim_.disk, kStateFile, *xml).ok();
  }
  bool logged(std::string_view part) const {
    const auto& messages = log->logMessages();
    return std::any_of(messages.begin(), messages.end(),
                       [&](const LogMessage& m) { return m.msg.find(part) != std::string::npos; });
  }

 private:
  static inline const Path kStateFile = kStore + "/appState.plist";
  SimServices& sim_;

 public:
  std::shared_ptr<MessageLog> log;
  ClockTimer clock;
  DataModel model;
  MasterRefresh master;
};

}  // namespace tarvel
