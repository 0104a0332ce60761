#pragma once
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvel::demo {

/// A way in which the server misbehaves.
enum class FaultKind {
  latency,  ///< answers `value` seconds late
  cut,      ///< ends the connection after `value` bytes of the body, having promised all of it
  status,   ///< answers with the HTTP status `value` and no file
  stale,    ///< hands out the file as it was before the last publishing that changed it
  shift,    ///< hands out the file with its own date `value` seconds later than was promised
  down,     ///< ends the connection without a byte
  reset,    ///< aborts the connection
};

/// Written as KIND[=VALUE][*TIMES]:PATTERN, such as "latency=2:/root.b1" or "status=503*1:/rinks/*/main.b1".
struct FaultRule {
  FaultKind kind = FaultKind::latency;
  double value = 0.0;
  int timesLeft = -1;   ///< how many requests more it applies to; -1 for all
  std::string pattern;  ///< the path of the URL, "*" standing for any run of characters
};

/// None if the text is of another form, or the value is missing or makes no sense.
std::optional<FaultRule> parseFaultRule(std::string_view text);
std::string describe(const FaultRule& rule);
bool matchesPattern(std::string_view pattern, std::string_view path);

/// What is to be done to one request: the union of all rules that match it.
struct Misbehaviour {
  double latency = 0.0;  ///< seconds
  std::optional<std::size_t> cutAfter;
  int status = 0;  ///< 0 for the proper one
  bool stale = false;
  double shift = 0.0;  ///< seconds
  bool down = false;
  bool reset = false;
};

/// The rules in force. Callable from any thread.
class FaultRules {
 public:
  void add(FaultRule rule);
  void clear();
  /// Uses up one time of each rule that it applies.
  Misbehaviour apply(std::string_view path);
  std::vector<std::string> descriptions() const;

 private:
  mutable std::mutex mutex_;
  std::vector<FaultRule> rules_;
};

}  // namespace tarvel::demo
