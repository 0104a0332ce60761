#include "foundation/ObserverCensus.h"

namespace tarvel {

void ObserverCensus::checkObservers(std::string_view className) {
  lines_.push_back({"   " + std::string(className), ReportLine::Style::row});
}

std::vector<ReportLine> ObserverCensus::report(NotificationCenter& center) {
  lines_ = {{"", ReportLine::Style::heading}, {"Observers", ReportLine::Style::heading}};
  center.postNotification(kCheckObservers);
  return lines_;
}

}  // namespace tarvel
