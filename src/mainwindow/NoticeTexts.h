#pragma once
#include <string>

#include "model/Notice.h"
#include "ui/AttributedText.h"

namespace tarvel {

// How a notice's texts look in the list of a rink's notices:
inline const TextAttributes kNoticeSummaryAttributes{14.0, FontWeight::bold, kLabel, kLeftStyle};
inline const TextAttributes kNoticeDetailAttributes{12.0, FontWeight::regular, kLabel, kLeftSpacing6Style};
inline const TextAttributes kNoticeDateAttributes{9.0, FontWeight::regular, kSecondaryLabel, kRightStyle};
// and in the banner, whose background is the same in both appearances:
inline const TextAttributes kBannerSummaryAttributes{14.0, FontWeight::bold, white(1.0), kLeftStyle};
inline const TextAttributes kBannerDetailAttributes{12.0, FontWeight::regular, white(1.0),
                                                    kLeftSpacing3Style};

/// "Posted 3/2/25".
std::string noticeDateText(const Notice& notice);
/// All that a notice says, a paragraph each, for screen readers.
QString spokenNotice(const Notice& notice);

}  // namespace tarvel
