#include "DemoServer.h"

#include <fmt/format.h>
#include <httplib.h>
#include <sys/socket.h>

#include <algorithm>
#include <chrono>
#include <utility>

#include "PeerSocket.h"
#include "publish/Encoders.h"

namespace tarvel::demo {
namespace {

constexpr const char* kLoopback = "127.0.0.1";
constexpr int kThreads = 32;
constexpr int kNotFound = 404;
constexpr int kNoAnswer = 0;

const char* contentType(const std::string& path) {
  if (path.ends_with(".png")) return "image/png";
  return path.ends_with(".jpg") ? "image/jpeg" : "application/octet-stream";
}

Bytes shifted(const Bytes& file, double seconds) {
  const auto date = publish::dateOf(file);
  if (!date) return file;
  return publish::withDate(*date + seconds, ByteView(file).subspan(publish::kDateSize));
}

void sendCut(httplib::Response& response, const std::string& path, Bytes content, std::size_t cutAfter) {
  const auto shared = std::make_shared<Bytes>(std::move(content));
  response.set_content_provider(shared->size(), contentType(path),
                                [shared, cutAfter](std::size_t offset, std::size_t length, auto& sink) {
                                  const std::size_t end = std::min(cutAfter, offset + length);
                                  if (offset < end)
                                    sink.write(reinterpret_cast<const char*>(shared->data()) + offset,
                                               end - offset);
                                  return false;  // ends the connection
                                });
}

}  // namespace

DemoServer::DemoServer(const DemoSite& site, FaultRules& faults, RequestLog& log)
    : site_(site), faults_(faults), log_(log) {}

DemoServer::~DemoServer() {
  stop();
}

std::unique_ptr<httplib::Server> DemoServer::makeServer() {
  auto server = std::make_unique<httplib::Server>();
  server->new_task_queue = [] { return new httplib::ThreadPool(kThreads); };
  // A kept connection would hold one of the threads while it is idle.
  server->set_keep_alive_max_count(1);
  // Not to share the port with another process, as the library would by default.
  server->set_socket_options([](socket_t socket) {
    const int yes = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  });
  server->Get("/control.*", [this](const httplib::Request& request, httplib::Response& response) {
    const ControlReply reply =
        control_->handle(request.path, Parameters(request.params.begin(), request.params.end()));
    response.status = reply.status;
    response.set_content(reply.body, "application/json");
  });
  server->Get("/.*", [this](const httplib::Request& request, httplib::Response& response) {
    serve(request, response);
  });
  return server;
}

Result<int> DemoServer::bind(int port) {
  server_ = makeServer();
  const bool bound =
      port == 0 ? (port_ = server_->bind_to_any_port(kLoopback)) > 0 : server_->bind_to_port(kLoopback, port);
  if (!bound)
    return Error{fmt::format("port {} of {} can't be had; is another demo running?", port, kLoopback)};
  if (port != 0) port_ = port;
  return port_;
}

void DemoServer::start(DemoControl& control) {
  control_ = &control;
  control.goDown = [this](double seconds) {
    const std::lock_guard lock(mutex_);
    downFor_ = seconds;
    server_->stop();
  };
  thread_ = std::thread([this] { run(); });
}

void DemoServer::run() {
  do {
    server_->listen_after_bind();
  } while (comeBack());
  const std::lock_guard lock(mutex_);
  finished_ = true;
  changed_.notify_all();
}

bool DemoServer::comeBack() {
  std::unique_lock lock(mutex_);
  auto pause = std::chrono::duration<double>(std::exchange(downFor_, 0.0));
  for (;;) {
    if (changed_.wait_for(lock, pause, [this] { return stopping_; })) return false;
    server_ = makeServer();
    if (server_->bind_to_port(kLoopback, port_)) return true;
    pause = std::chrono::milliseconds(100);
  }
}

void DemoServer::stop() {
  if (!thread_.joinable()) return;
  std::unique_lock lock(mutex_);
  stopping_ = true;
  changed_.notify_all();
  // Between binding and listening the library passes over a stop, so it is told until it has heard it.
  while (!finished_) {
    server_->stop();
    changed_.wait_for(lock, std::chrono::milliseconds(20));
  }
  lock.unlock();
  thread_.join();
}

bool DemoServer::waitFor(double seconds) {
  std::unique_lock lock(mutex_);
  return !changed_.wait_for(lock, std::chrono::duration<double>(seconds), [this] { return stopping_; });
}

void DemoServer::serve(const httplib::Request& request, httplib::Response& response) {
  const std::size_t number = log_.arrived(request.method, request.path);
  const Misbehaviour misbehaviour = faults_.apply(request.path);
  if (misbehaviour.latency > 0.0 && !waitFor(misbehaviour.latency)) {
    response.status = kNotFound;
    return;
  }
  log_.answered(number, answer(request, response, misbehaviour));
}

int DemoServer::answer(const httplib::Request& request, httplib::Response& response,
                       const Misbehaviour& misbehaviour) {
  if (misbehaviour.down || misbehaviour.reset) {
    if (const auto socket = socketOfPeer(port_, request.remote_port)) {
      misbehaviour.reset ? abortConnection(*socket) : hangUp(*socket);
    }
    return kNoAnswer;
  }
  auto content = misbehaviour.stale ? site_.previousFile(request.path) : site_.file(request.path);
  if (misbehaviour.status != 0 || !content) {
    response.status = misbehaviour.status != 0 ? misbehaviour.status : kNotFound;
    response.set_content(fmt::format("{}\n", response.status), "text/plain");
    return response.status;
  }
  response.status = 200;
  if (misbehaviour.shift != 0.0) *content = shifted(*content, misbehaviour.shift);
  if (misbehaviour.cutAfter && *misbehaviour.cutAfter < content->size()) {
    sendCut(response, request.path, std::move(*content), *misbehaviour.cutAfter);
  } else {
    response.set_content(std::string(content->begin(), content->end()), contentType(request.path));
  }
  return response.status;
}

}  // namespace tarvel::demo
