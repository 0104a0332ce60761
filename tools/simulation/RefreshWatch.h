#pragma once
#include <map>
#include <optional>
#include <string>

#include "simulation/Alarms.h"
#include "simulation/SimProgram.h"
#include "simulation/ports/SimWorld.h"

namespace tarvel::sim {

/// Holds the refreshes of one run to their times, by a table of its own: what a timer is armed with follows
/// from how the refresh ended, a refresh begins when its timer fires, someone asks for it, or it found no
/// connection and the network is back, whoever waits has one timer, and no timer belongs to nobody.
class RefreshWatch {
 public:
  RefreshWatch(SimProgram& program, const SimWorld& world, Alarms& alarms)
      : program_(program), world_(world), alarms_(alarms) {}

  /// Someone asks for refreshes: they may come at once until `check` has seen them begin.
  void expectAnytime() { anytime_ = true; }
  void asked() { anytime_ = false; }
  /// The program is about to be told so too. Whoever waits for a connection has to try again when the return
  /// is due.
  void networkCameBack();
  /// A request of an index is a refresh that begins.
  void requested(const std::string& url);
  /// After a task. `flights` are under way, each with a timer of the network's.
  void check(std::size_t flights);

 private:
  struct Watched {
    std::optional<double> dueAt;  ///< on the monotonic clock
    bool inProgress = false;
    bool waitsForConnection = false;
    double lastAsked = 0.0;  ///< for its index
  };
  enum class Whose { catalogue, rink };

  void checkOne(const std::string& key, Whose whose, const RefreshState& state, double secondsLeft,
                bool mayRest);
  /// The refresh that has this URL on its list, by the name of its index; a damaged catalogue may have given
  /// the rink any address.
  std::string whoAsks(const std::string& url) const;
  double armedSeconds(Whose whose, const RefreshState& state) const;
  void checkReturn();

  SimProgram& program_;
  const SimWorld& world_;
  Alarms& alarms_;
  bool anytime_ = false;
  std::optional<double> returnDue_;   ///< when the refreshes are to be tried after the network's last return
  std::optional<double> lastReturn_;  ///< when they last were
  std::optional<double> overdue_;     ///< the machine slept while they became due, until then
  std::map<std::string, Watched> watched_;
};

}  // namespace tarvel::sim
