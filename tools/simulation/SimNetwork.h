#pragma once
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/HttpClient.h"
#include "simulation/Alarms.h"
#include "simulation/FaultClasses.h"
#include "simulation/SimServers.h"
#include "simulation/Trace.h"
#include "simulation/ports/SimWorld.h"

namespace tarvel::sim {

/// How a reply reached the program.
enum class Delivery {
  failed,   ///< no body, a wrong status, or a body that can't be decoded
  altered,  ///< damaged without a sign
  whole,    ///< a version that was published, be it an old one
};

/// The network between the program and the servers. Each request draws its fate: the faults of the seed, or
/// the file as it stands. Outages hold for whole groups of servers.
class SimNetwork : public HttpClient {
 public:
  static constexpr std::size_t kGroups = 3;  ///< of servers that fail together; the catalogue's is the first

  SimNetwork(SimWorld& world, SimServers& servers, SeededRandom random, const FaultRates& rates,
             FaultCounters& counters, Alarms& alarms, Trace& trace);

  void get(const std::string& url, Completion completion) override;

  /// Called as a request is made, and when the program has dealt with its reply.
  std::function<void(const std::string& url)> requested;
  std::function<void(const std::string& key, Delivery delivery)> delivered;

  /// The group is out of reach until then.
  void failGroup(std::size_t group, double untilSeconds) { outageEnds_[group % kGroups] = untilSeconds; }
  /// From now on all goes well.
  void mend();
  /// The program ended: its requests are abandoned.
  void abandonAll() {
    flights_.clear();
    inFlight_.clear();
  }
  std::size_t flights() const { return flights_.size(); }
  /// The reply that is being dealt with had been damaged; what it leads to is not the program's fault.
  bool inDamagedReply() const { return inDamagedReply_; }

 private:
  struct Reply {
    HttpResult result;
    double latency;
    Delivery delivery;
    bool damaged;  ///< a body that no server gave out
  };
  struct Flight {
    std::string url;
    Completion completion;
    std::unique_ptr<Timer> arrival;
  };

  Reply replyTo(const std::string& key);
  bool draw(FaultClass faultClass);
  Reply failure(FaultClass faultClass, double latency, const char* description);
  Reply body(const std::string& key, Bytes bytes, double latency);
  Reply stored(const std::string& key, const Content& content, double latency);
  std::optional<Reply> transportFault();
  std::optional<Reply> damagedReply(const std::string& key, const Bytes& content, double latency);
  std::size_t groupOf(const std::string& key) const;
  void complete(std::uint64_t number, Reply reply);

  SimWorld& world_;
  SimServers& servers_;
  SeededRandom random_;
  FaultRates rates_;
  FaultCounters& counters_;
  Alarms& alarms_;
  Trace& trace_;
  std::array<double, kGroups> outageEnds_{};
  bool mended_ = false;
  bool inDamagedReply_ = false;
  std::uint64_t lastNumber_ = 0;
  std::map<std::uint64_t, Flight> flights_;
  std::map<std::string, int> inFlight_;
};

}  // namespace tarvel::sim
