#include "mainwindow/RefreshWatch.h"

#include "mainwindow/RefreshTexts.h"

namespace tarvel {

RefreshWatch::RefreshWatch(const Services& services, std::function<void()> changed)
    : services_(services), changed_(std::move(changed)) {}

void RefreshWatch::watch(const void* poster, Thing thing) {
  thing_ = std::move(thing);
  observation_ = poster ? services_.notifications.observe(kRefreshStatusChanged, poster,
                                                          [this](const Notification&) { tell(); })
                        : Observation();
  tell();
}

void RefreshWatch::stop() {
  thing_ = nullptr;
  observation_ = Observation();
  timer_.reset();
}

void RefreshWatch::tell() {
  timer_.reset();
  changed_();
  if (const RefreshableProtocol* shown = thing()) {
    timer_ = services_.mainLoop.after(secondsUntilTextChanges(*shown, now()), [this] { tell(); });
  }
}

}  // namespace tarvel
