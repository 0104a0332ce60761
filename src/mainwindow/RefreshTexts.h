#pragma once
#include <string>

#include "model/Refreshable.h"

namespace tarvel {

/// How current a thing is, in a short line: "Updated 5 minutes ago", "Refreshing…", "Unable to contact server
/// — next try in 9 minutes". `now` is the wall clock's.
std::string refreshStatusText(const RefreshableProtocol& thing, Instant now);

/// What the empty list of rinks says in place of rows.
std::string emptyListText(const RefreshableProtocol& catalogue, const std::string& serverURL);

/// Seconds until one of these texts reads differently, the thing itself unchanged.
double secondsUntilTextChanges(const RefreshableProtocol& thing, Instant now);

}  // namespace tarvel
