#pragma once
#include <string>
#include <utility>
#include <vector>

#include "auxwindows/ApplicationProtocol.h"
#include "ui/WindowController.h"
#include "ui/WindowSettingsProtocol.h"

namespace tarvel {

/// A window that tells the application of its closing and has no settings.
class PlainController : public WindowController {
 public:
  PlainController(ApplicationProtocol& application, std::string name, SaveFrame saveFrame)
      : WindowController(std::make_unique<Window>()),
        application_(application),
        name_(std::move(name)),
        saveFrame_(saveFrame) {
    ++alive;
  }
  ~PlainController() override { --alive; }

  std::string className() const override { return name_; }
  void windowWillClose() override { application_.removeWindowController(*this, saveFrame_); }

  static inline int alive = 0;

 private:
  ApplicationProtocol& application_;
  std::string name_;
  SaveFrame saveFrame_;
};

/// One that has settings, and notes what becomes of them.
class KeepingController : public PlainController, public WindowSettingsProtocol {
 public:
  using PlainController::PlainController;

  PropertyList::Dictionary windowSettings() const override { return settings; }
  void restoreSettings(const PropertyList::Dictionary& restored, FromAnotherDocument) override {
    settings = restored;
    settings.erase("frame");
    settings.erase("className");
    calls.emplace_back("restore");
  }
  void defaultSettings() override { calls.emplace_back("default"); }

  PropertyList::Dictionary settings;
  std::vector<std::string> calls;
};

}  // namespace tarvel
