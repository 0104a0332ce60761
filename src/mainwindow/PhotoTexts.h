#pragma once
#include <string>

#include "model/DownloadStatus.h"
#include "ui/AttributedText.h"

namespace tarvel {

inline const TextAttributes kPhotoCaptionTitle{10.0, FontWeight::regular, kLabel, kLeftStyle};
inline const TextAttributes kPhotoCaptionDescr{9.0, FontWeight::regular, kSecondaryLabel, kLeftStyle};
inline const TextAttributes kPhotoCount{9.0, FontWeight::regular, kSecondaryLabel, kLeftStyle};
inline const TextAttributes kPhotoPlaceholder{9.0, FontWeight::regular, kSecondaryLabel, kCentredStyle};
inline const TextAttributes kPhotoPageTitle{12.0, FontWeight::regular, kLabel, kCentredStyle};
inline const TextAttributes kPhotoPageDescr{9.0, FontWeight::regular, kSecondaryLabel, kCentredStyle};

/// What stands in a photo's place while there is no image, by how its download stands.
std::string missingImageText(const DownloadStatus& status);
/// "1 Photo", "12 Photos".
std::string countText(std::size_t count, const std::string& one);
/// "3 of 12", for the photo at `index`, counted from 0.
std::string positionText(std::int64_t index, std::size_t count);
/// The album's title, or "(Untitled Album)".
std::string albumTitle(const std::string& title);

}  // namespace tarvel
