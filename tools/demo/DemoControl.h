#pragma once
#include <functional>
#include <map>
#include <mutex>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "DemoContent.h"
#include "DemoSite.h"
#include "FaultRules.h"
#include "RequestLog.h"

namespace tarvel::demo {

using Parameters = std::multimap<std::string, std::string>;

struct ControlReply {
  int status = 200;
  std::string body;  ///< JSON
};

/// What can be told to a running demo by GET requests:
///
///     /control?do=VERB&...      changes something; after a change of content, the reply comes when it is
///     published /control/requests         the log of requests; with ?clear=1 it is emptied after that
///     /control/state            the rinks and the rules in force
///
/// A verb's parameters are in the table of DemoControl.cpp and in docs/demo.md. Callable from any thread; one
/// request is at work at a time.
class DemoControl {
 public:
  DemoControl(DemoContent& content, DemoSite& site, FaultRules& faults, RequestLog& log);

  /// Called with a number of seconds for which the server is to refuse connections, after the reply is out.
  std::function<void(double)> goDown;

  ControlReply handle(const std::string& path, const Parameters& parameters);

 private:
  struct Call;
  struct Verb;
  static const std::map<std::string, Verb>& verbs();
  nlohmann::json state() const;
  ControlReply perform(const Parameters& parameters);
  ControlReply published(nlohmann::json reply);

  DemoContent& content_;
  DemoSite& site_;
  FaultRules& faults_;
  RequestLog& log_;
  std::mutex mutex_;
};

}  // namespace tarvel::demo
