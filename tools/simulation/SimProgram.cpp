#include "simulation/SimProgram.h"

#include "app/StoreCleanup.h"
#include "platform/AtomicFile.h"
#include "refresh/UpdateDecision.h"
#include "simulation/StoredFiles.h"

namespace tarvel::sim {

namespace {
constexpr std::int64_t kMaxErrorMessages = 500;
constexpr std::uint16_t kErrorLogPermissions = 0700;
}  // namespace

SimProgram::SimProgram(const Services& services)
    : services_(services),
      stateFile_(services.files, kStore),
      log(MessageLog::create(services, join(kStore, kLogFileName), "error-log", kMaxErrorMessages,
                             kErrorLogPermissions)),
      clock(services),
      model(services, *log, clock, kStore, catalogueServer(false)),
      master(services, model),
      networkReturn(services, model) {
  log->delegate = this;
}

SimProgram::~SimProgram() {
  log->delegate = nullptr;
  model.stateChanged = nullptr;
}

void SimProgram::start() {
  if (const Status made = createFoldersSafely(services_.files, kStore); !made) {
    log->addMessage("Can not create directory: " + kStore + " -- " + made.error().description);
  }
  removeLeftoversOfCrash(services_.files, kStore);
  const auto state = stateFile_.read();
  model.stateChanged = [this] { markChanged(); };
  master.decideUpdate = [this](const RootFile& root) { decideUpdate(root); };
  model.start(state ? &*state : nullptr);
  freesMemory_ = true;
  clock.tick();
  autoSave_ = std::make_unique<AutoSaveController>(services_.mainLoop, *this, "app controller");
}

void SimProgram::quit() {
  model.prepareToQuit();
  autoSave_->finish();
  autoSave_.reset();
  saveState();
  saveLog();
  cleanUpStore(services_.files, kStore, services_.console);
}

void SimProgram::decideUpdate(const RootFile& root) {
  const UpdateFacts facts{
      kAppVersion, packedVersion(6, 1, 0), todayDate(services_.pretendTime), model.updateReminderDueDate,
      0,           model.isManualRefresh,  model.isCheckForAppUpdate,        model.applicationWebsiteURL};
  const UpdateDecision decision = tarvel::decideUpdate(root, facts);
  const PackedDate dueDate = decision.reminderDueDate.value_or(model.updateReminderDueDate);
  if (dueDate != model.updateReminderDueDate || decision.updateRequired != model.applicationUpdateRequired)
    markChanged();
  model.updateReminderDueDate = dueDate;
  model.applicationUpdateRequired = decision.updateRequired;
}

void SimProgram::markChanged() {
  changed_ = true;
  if (autoSave_) autoSave_->changed();
}

void SimProgram::messageLogChanged() {
  if (autoSave_) autoSave_->changed();
}

void SimProgram::autoSave() {
  if (changed_) {
    saveState();
    changed_ = false;
  }
  saveLog();
}

void SimProgram::saveState() {
  PropertyList::Dictionary state;
  model.addToState(state);
  if (const Status saved = stateFile_.write(std::move(state)); !saved) {
    log->addMessage("Unable to save file: " + stateFile_.path() + " -- " + saved.error().description);
  }
}

void SimProgram::saveLog() {
  if (log->logChanged && log->save()) log->logChanged = false;
}

std::size_t SimProgram::ownTimers() const {
  return std::size_t{freesMemory_} + std::size_t{log->savePending()} +
         std::size_t{autoSave_ && autoSave_->isWaiting()} + std::size_t{networkReturn.isWaiting()};
}

}  // namespace tarvel::sim
