#pragma once
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "DemoControl.h"
#include "DemoSite.h"
#include "FaultRules.h"
#include "RequestLog.h"

namespace httplib {
class Server;
struct Request;
struct Response;
}  // namespace httplib

namespace tarvel::demo {

/// Serves the site and the control paths on 127.0.0.1, each connection for one request, and misbehaves as the
/// rules say. Its own threads answer; the calls below belong to one thread.
class DemoServer {
 public:
  DemoServer(const DemoSite& site, FaultRules& faults, RequestLog& log);
  ~DemoServer();

  /// Takes the port, or a free one for 0, so that connections queue from now on; returns it.
  Result<int> bind(int port);
  /// Begins to answer.
  void start(DemoControl& control);
  /// Answers no more; returns when the last answer is out or given up.
  void stop();

 private:
  std::unique_ptr<httplib::Server> makeServer();
  void serve(const httplib::Request& request, httplib::Response& response);
  int answer(const httplib::Request& request, httplib::Response& response, const Misbehaviour& misbehaviour);
  /// False if the server is stopped meanwhile.
  bool waitFor(double seconds);
  void run();
  /// Waits out the time of being down and takes the port again; false if the server is to stop.
  bool comeBack();

  const DemoSite& site_;
  FaultRules& faults_;
  RequestLog& log_;
  DemoControl* control_ = nullptr;
  int port_ = 0;
  std::thread thread_;

  std::mutex mutex_;  ///< for what follows
  std::condition_variable changed_;
  std::unique_ptr<httplib::Server> server_;
  bool stopping_ = false;
  bool finished_ = false;
  double downFor_ = 0.0;  ///< seconds
};

}  // namespace tarvel::demo
