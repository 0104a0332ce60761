#pragma once
#include <cstdint>
#include <optional>

#include "model/ShownPhotos.h"
#include "simulation/ShownWatch.h"
#include "simulation/SimProgram.h"
#include "simulation/ports/SeededRandom.h"

namespace tarvel::sim {

/// Someone at the program's windows, for one run of it. What is on show is asked for again when it changes,
/// as views do.
class SimUser {
 public:
  SimUser(SimProgram& program, const Services& services, ShownWatch& shown, SeededRandom& random);

  /// Shows that rink, and the weeks, notices and photos that come to mind.
  void look(std::int64_t rinkID);
  /// Shows any rink of the catalogue, rather one that was shown before.
  void lookAround();
  /// Does one of the things that windows and menus offer.
  void act();
  void moveServer();
  /// The rink on show has changed.
  void lookAgain();
  std::optional<std::int64_t> inView() const { return inView_; }

 private:
  void askForWeeks(RinkData& rink, std::int64_t weeks);
  void showPhotos(RinkData& rink);
  std::shared_ptr<RinkData> rinkInView() const;

  SimProgram& program_;
  ShownWatch& shown_;
  SeededRandom& random_;
  ShownPhotos photos_;
  std::optional<std::int64_t> inView_;
  std::int64_t weeksInView_ = 1;
};

}  // namespace tarvel::sim
