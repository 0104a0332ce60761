#pragma once
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "auxwindows/LogRow.h"

namespace tarvel {

/// A class whose live objects the debug report counts.
struct CountedClass {
  std::string_view name;
  std::int64_t (*liveCount)();
};

struct CountedGroup {
  std::string_view heading;
  std::vector<CountedClass> classes;
};

/// All classes that count, in the report's order.
std::span<const CountedGroup> instanceTable();

/// Rows of reports.
Message headingRow(const QString& text);
Message dataRow(const QString& text);

/// The report's list: the groups' headings, and a row for each class that has a live object.
std::vector<Message> memoryRows(std::span<const CountedGroup> groups);

}  // namespace tarvel
