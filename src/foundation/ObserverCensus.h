#pragma once
#include <string>
#include <vector>

#include "foundation/NotificationCenter.h"

namespace tarvel {

/// One line of a report: a heading, or a row of data under it.
struct ReportLine {
  enum class Style { heading, row };
  std::string text;
  Style style = Style::row;
  friend bool operator==(const ReportLine&, const ReportLine&) = default;
};

/// The list of live observers that the debug report asks for. One in the process, main thread only.
class ObserverCensus {
 public:
  /// Adds an observer's class: three blanks and the name. For handlers of "check observers".
  void checkObservers(std::string_view className);
  /// Begins a new list, asks every observer through "check observers", and returns the list as it stands: the
  /// two heading lines. The answers need the main thread, which is busy with this very report; they come in
  /// afterwards and are thrown away by the next report. The section thus never shows a class name. That is
  /// how the report is known to its readers, and the order of the steps stays.
  std::vector<ReportLine> report(NotificationCenter& center);

  const std::vector<ReportLine>& lines() const { return lines_; }

 private:
  std::vector<ReportLine> lines_;
};

}  // namespace tarvel
