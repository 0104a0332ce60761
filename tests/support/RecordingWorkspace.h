#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/Workspace.h"

namespace tarvel {

/// Notes what it is told to open, and lets the machine wake.
class RecordingWorkspace : public Workspace {
 public:
  bool openUrl(const std::string& url) override {
    opened.push_back(url);
    return true;
  }
  bool openLocation(double latitude, double longitude) override {
    opened.push_back("at " + std::to_string(latitude) + " " + std::to_string(longitude));
    return true;
  }
  std::unique_ptr<Subscription> onWake(std::function<void()> handler) override {
    handlers.push_back(std::make_shared<std::function<void()>>(std::move(handler)));
    return std::make_unique<Sub>(handlers.back());
  }
  void wake() {
    for (const auto& handler : handlers)
      if (*handler) (*handler)();
  }
  std::vector<std::string> opened;

 private:
  struct Sub : Subscription {
    explicit Sub(std::shared_ptr<std::function<void()>> h) : handler(std::move(h)) {}
    ~Sub() override { *handler = nullptr; }
    std::shared_ptr<std::function<void()>> handler;
  };
  std::vector<std::shared_ptr<std::function<void()>>> handlers;
};

}  // namespace tarvel
