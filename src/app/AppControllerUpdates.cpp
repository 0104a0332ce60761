#include <QUrl>

#include "app/AppController.h"
#include "auxwindows/AlertPanelWindowController.h"
#include "platform/FatalError.h"

// What comes of the comparison with the published releases.

namespace tarvel {
namespace {

// The buttons of alerts about updates, by their order.
constexpr int kVisitButton = 0;
constexpr int kSkipButton = 1;  // of a beta's alert alone

bool isAddress(const std::string& url) {
  const QUrl parsed(QString::fromStdString(url), QUrl::StrictMode);
  return parsed.isValid() && !parsed.isEmpty();
}

}  // namespace

void AppController::decideUpdate(const RootFile& root) {
  DataModel& model = *dataModel_;
  const UpdateFacts facts{
      kAppVersion,   setup_.systemVersion,  todayDate(services().pretendTime), model.updateReminderDueDate,
      skipBetaCycle, model.isManualRefresh, model.isCheckForAppUpdate,         model.applicationWebsiteURL};
  const UpdateDecision decision = tarvel::decideUpdate(root, facts);
  for (const std::string& line : decision.logLines) services().console.printLine(line);
  const PackedDate dueDate = decision.reminderDueDate.value_or(model.updateReminderDueDate);
  if (dueDate != model.updateReminderDueDate || decision.updateRequired != model.applicationUpdateRequired)
    markChanged();
  model.updateReminderDueDate = dueDate;
  model.applicationUpdateRequired = decision.updateRequired;
  if (decision.alert) presentUpdate(*decision.alert);
}

AlertPanelWindowController& AppController::newAlertPanel(const std::string& message,
                                                         const std::string& info) {
  auto panel = std::make_unique<AlertPanelWindowController>(windowContext());
  AlertPanelWindowController& added = *panel;
  addWindowController(std::move(panel), nullptr, RestoreFrame::no);
  added.message = message;
  added.info = info;
  return added;
}

void AppController::closeOlderOf(const AlertPanelWindowController& panel) {
  for (const Window* window : Window::orderedWindows()) {
    auto* const older = dynamic_cast<AlertPanelWindowController*>(window->delegate());
    if (!older || older == &panel || older->message != panel.message || older->info != panel.info) continue;
    older->window()->close();
  }
}

void AppController::showAlert(const std::string& message, const std::string& info) {
  AlertPanelWindowController& panel = newAlertPanel(message, info);
  panel.addButton("OK");
  panel.present([&panel](int) { panel.window()->close(); });
  closeOlderOf(panel);
}

void AppController::presentUpdate(const UpdateAlert& alert) {
  if (alert.kind == UpdateAlert::Kind::info) return showAlert(alert.title, alert.text);
  const bool isBeta = alert.kind == UpdateAlert::Kind::beta;
  AlertPanelWindowController& panel = newAlertPanel(alert.title, alert.text);
  panel.badge = AlertBadge::warning;
  panel.addButton("Visit App Website");
  if (isBeta) panel.addButton("Skip This Beta Cycle");
  panel.addButton(dataModel_->applicationUpdateRequired ? "Remind Me Tomorrow" : "Remind Me in 4 Days");
  panel.present([this, &panel, alert, isBeta](int tag) {
    if (tag == kVisitButton) openUpdatePage(alert);
    if (isBeta && tag != kVisitButton) {
      skipBetaCycle = tag == kSkipButton ? betaCycle(alert.betaVersion) : 0;
      markChanged();
    }
    panel.window()->close();
  });
  closeOlderOf(panel);
}

void AppController::openUpdatePage(const UpdateAlert& alert) {
  // A catalogue without the application's website is no fault of the release's.
  const bool isWebsite = alert.url == dataModel_->applicationWebsiteURL;
  if (!isAddress(alert.url) && !isWebsite) fatalError("a release without a usable address");
  openPage(alert.url);
}

void AppController::openPage(const std::string& url) {
  if (!setup_.workspace.openUrl(url)) errorLog_->addMessage("Unable to open address: " + url);
}

}  // namespace tarvel
