#pragma once
#include <memory>
#include <string>
#include <vector>

#include "simulation/Alarms.h"
#include "simulation/SimNetwork.h"
#include "simulation/SimProgram.h"
#include "simulation/ports/MemoryFileSystem.h"

namespace tarvel::sim {

/// Remembers what the program has shown, and rings when any of it has gone without a server having said so.
class ShownWatch {
 public:
  ShownWatch(SimProgram& program, Alarms& alarms) : program_(program), alarms_(alarms) {}

  /// The program has begun.
  void begin() { last_ = summary(); }
  /// A view has asked for the rink's content; what it got is watched from now on.
  void noteShown(RinkData& rink);
  /// The program has dealt with a reply.
  void delivered(const std::string& key, Delivery delivery);
  /// After a start, what the store holds as promised has to show with no network: what doesn't.
  static std::optional<std::string> missing(RinkData& rink, const MemoryFileSystem& disk,
                                            PackedDate firstShown);
  /// Counts of what the program holds, against what there is to hold.
  void checkMemory(std::size_t flights);

 private:
  struct Summary {
    std::size_t rinks = 0, venues = 0, lists = 0, entries = 0;
  };
  Summary summary() const;
  void forgetGone();

  SimProgram& program_;
  Alarms& alarms_;
  std::vector<std::weak_ptr<WeeklySchedule>> weeks_;
  Summary last_;
};

}  // namespace tarvel::sim
