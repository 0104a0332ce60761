#pragma once
#include <gtest/gtest.h>

#include <QApplication>
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "app/AppController.h"
#include "app/Globals.h"
#include "simulation/ports/SimServices.h"
#include "support/PublishedSite.h"
#include "support/RecordingSoundPlayer.h"
#include "support/RecordingWorkspace.h"

namespace tarvel {

/// The whole application, with its own windows, on virtual time and a simulated network.
class AppWorld : public testing::Test {
 protected:
  AppWorld() {
    site_.serveOn(sim_.http);
    app_ = std::make_unique<AppController>(AppSetup{.services = sim_.services,
                                                    .workspace = workspace_,
                                                    .observerCensus = census_,
                                                    .sounds = sounds_,
                                                    .supportFolder = "/data/Tarvel",
                                                    .defaultServerURL = site_.server,
                                                    .systemVersion = packedVersion(6, 1, 0)});
    app_->applicationWillFinishLaunching();
    app_->applicationDidFinishLaunching();
    app_->applicationDidBecomeActive();
    settle();
  }
  ~AppWorld() override {
    app_.reset();
    sim_.world.runUntilIdle();
    gKioskMode = false;
  }

  void settle() {
    sim_.world.runFor(5);
    QApplication::processEvents();
  }
  static Window& front() { return *Window::orderedWindows().front(); }
  static WindowController& frontController() { return dynamic_cast<WindowController&>(*front().delegate()); }
  static std::size_t windowsOf(const std::string& className) {
    const auto windows = Window::orderedWindows();
    return static_cast<std::size_t>(std::count_if(windows.begin(), windows.end(), [&](const Window* window) {
      return dynamic_cast<WindowController&>(*window->delegate()).className() == className;
    }));
  }

  SimServices sim_;
  PublishedSite site_ = PublishedSite::sample();
  RecordingWorkspace workspace_;
  ObserverCensus census_;
  RecordingSoundPlayer sounds_;
  std::unique_ptr<AppController> app_;
};

}  // namespace tarvel
