#pragma once
#include <optional>
#include <vector>

#include "app/Version.h"
#include "platform/FileSystem.h"
#include "platform/PropertyList.h"

namespace tarvel {

/// The application's own part of the state that it keeps from one run to the next. The catalogue's and the
/// rinks' keys stand beside these in the same dictionary.
struct AppState {
  PropertyList::Dictionary windowSettings;                ///< class name to a dictionary
  std::vector<PropertyList::Dictionary> windowsToReopen;  ///< rearmost first
  bool kioskMode = false;
  PackedVersion skipBetaCycle = 0;

  /// A key that is missing or of another type takes its default; the others don't suffer.
  static AppState from(const PropertyList::Dictionary& dictionary);
};

/// The file "appState.plist".
class StateFile {
 public:
  /// The disk outlives the object.
  StateFile(FileSystem& files, const Path& supportFolder);

  /// None if there is no such file, it can't be read or parsed, or is no dictionary.
  std::optional<PropertyList::Dictionary> read() const;
  /// Replaces the file as one step; the old one stands on failure.
  Status write(PropertyList::Dictionary dictionary) const;

  const Path& path() const { return path_; }

 private:
  FileSystem& files_;
  Path path_;
};

}  // namespace tarvel
