#include "app/StateFile.h"

#include <algorithm>
#include <utility>

#include "platform/AtomicFile.h"

namespace tarvel {

namespace {

bool isDictionary(const PropertyList& value) {
  return value.dictionary() != nullptr;
}

}  // namespace

AppState AppState::from(const PropertyList::Dictionary& dictionary) {
  AppState state;
  const auto* settings = dictionaryAt(dictionary, "windowSettings");
  if (settings && std::all_of(settings->begin(), settings->end(),
                              [](const auto& entry) { return isDictionary(entry.second); })) {
    state.windowSettings = *settings;
  }
  const auto* windows = arrayAt(dictionary, "openWindows");
  if (windows && std::all_of(windows->begin(), windows->end(), isDictionary)) {
    for (const PropertyList& window : *windows) state.windowsToReopen.push_back(*window.dictionary());
  }
  state.kioskMode = booleanAt(dictionary, "kioskMode").value_or(false);
  state.skipBetaCycle = integerAt(dictionary, "skipBetaCycle").value_or(0);
  return state;
}

StateFile::StateFile(FileSystem& files, const Path& supportFolder)
    : files_(files), path_(join(supportFolder, "appState.plist")) {}

std::optional<PropertyList::Dictionary> StateFile::read() const {
  const Result<Bytes> content = files_.read(path_);
  if (!content) return std::nullopt;
  const std::optional<PropertyList> list = PropertyList::parse(*content);
  if (!list || !list->dictionary()) return std::nullopt;
  return *list->dictionary();
}

Status StateFile::write(PropertyList::Dictionary dictionary) const {
  const Result<Bytes> content = PropertyList(std::move(dictionary)).xml();
  if (!content) return content.error();
  return writeAtomically(files_, path_, *content);
}

}  // namespace tarvel
