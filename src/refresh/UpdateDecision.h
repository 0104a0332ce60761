#pragma once
#include <optional>
#include <string>
#include <vector>

#include "refresh/RootFile.h"

namespace tarvel {

/// What the comparison of the running application with the published releases goes by.
struct UpdateFacts {
  PackedVersion runningVersion = 0;
  PackedVersion systemVersion = 0;
  PackedDate today = kNoDate;
  PackedDate reminderDueDate = kNoDate;  ///< no automatic reminder before that day; none if there is no date
  PackedVersion skippedBetaCycle = 0;    ///< the user wants to hear of no beta up to this cycle; 0 for none
  bool isManualRefresh = false;
  bool isCheckForAppUpdate = false;
  std::string applicationWebsiteURL;
};

/// What the user is told.
struct UpdateAlert {
  enum class Kind {
    info,    ///< the answer to an explicit check; nothing to choose
    update,  ///< a release, or the reason for there being none
    beta,
  };
  Kind kind = Kind::info;
  std::string title;
  std::string text;
  std::string url;                ///< of the page to visit; none for `info`
  PackedVersion betaVersion = 0;  ///< of `beta`
};

struct UpdateDecision {
  bool updateRequired = false;  ///< this version may not go on reading the published data
  std::vector<std::string> logLines;
  std::optional<PackedDate> reminderDueDate;  ///< to be kept from now on; none leaves the one there is
  std::optional<UpdateAlert> alert;
};

/// Decides whether this application may go on reading data, and what its user is told of newer releases. The
/// reminder's date is that of the alert, whatever the user answers.
UpdateDecision decideUpdate(const RootFile& root, const UpdateFacts& facts);

/// A beta's version without its beta bits: that of the release which it leads to.
PackedVersion betaCycle(PackedVersion version);

}  // namespace tarvel
