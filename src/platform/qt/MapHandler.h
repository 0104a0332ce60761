#pragma once
#include <string>

namespace tarvel {

/// Whether the desktop knows an application that opens `geo:` links, by the lists of associations that
/// desktops keep beside their applications. Read anew each time: an application may have been installed.
bool hasMapApplication();

/// The place as a `geo:` link, and on the map website. Degrees.
std::string geoLink(double latitude, double longitude);
std::string mapWebsiteLink(double latitude, double longitude);

}  // namespace tarvel
