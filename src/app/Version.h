#pragma once
#include <string>

#include "foundation/PackedVersion.h"

namespace tarvel {

/// The version of this build. It has to agree with the one that the build is configured with.
inline constexpr PackedVersion kAppVersion = packedVersion(6, 1, 0);

/// The first three numbers of a system's release, such as "6.1.0-18-amd64"; what is missing or no number, and
/// all behind it, counts as 0, and a number too large for its bits as the largest that fits.
PackedVersion packedSystemVersion(const std::string& release);
/// The version of the running kernel.
PackedVersion systemVersion();

}  // namespace tarvel
