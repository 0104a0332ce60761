#include "Rules.h"

#include <array>
#include <map>
#include <regex>
#include <set>

namespace tarvel::house {

namespace {

using Rooms = std::set<std::string, std::less<>>;

const Rooms kCore = {"platform", "foundation", "model", "refresh"};

/// How a fatal error reaches the user before the process ends, and how the machine's zone is found out.
const std::set<std::string, std::less<>> kPortsOfTheCore = {"src/platform/FatalError.cpp",
                                                            "src/platform/TimeZone.cpp"};

/// Each room, and what it may include beside itself.
const std::map<std::string, Rooms, std::less<>> kArrows = {
    {"platform", {}},
    {"platform/posix", {"platform"}},
    {"platform/qt", {"platform"}},
    {"foundation", {"platform"}},
    {"model", {"platform", "foundation"}},
    {"refresh", {"platform", "foundation", "model"}},
    {"ui", {"platform", "platform/qt", "foundation"}},
    {"auxwindows", {"platform", "platform/qt", "foundation", "model", "refresh", "ui"}},
    {"schedule", {"platform", "platform/qt", "foundation", "model", "refresh", "ui", "auxwindows"}},
    {"mainwindow",
     {"platform", "platform/qt", "foundation", "model", "refresh", "ui", "auxwindows", "schedule"}},
    {"todaywindow",
     {"platform", "platform/qt", "foundation", "model", "refresh", "ui", "auxwindows", "schedule"}},
    {"app",
     {"platform", "platform/qt", "platform/posix", "foundation", "model", "refresh", "ui", "auxwindows",
      "schedule", "mainwindow", "todaywindow"}},
};

constexpr std::string_view kSourceRoot = "src/";

/// "platform/qt" of "platform/qt/QtRunLoop.h"; empty for a path without a folder.
std::string folderOf(std::string_view path) {
  const auto slash = path.rfind('/');
  return slash == std::string_view::npos ? std::string() : std::string(path.substr(0, slash));
}

/// The room of a file below "src/"; empty for any other file.
std::string roomOf(const SourceFile& file) {
  if (!file.path.starts_with(kSourceRoot)) return {};
  return folderOf(std::string_view(file.path).substr(kSourceRoot.size()));
}

std::string at(const SourceFile& file, std::size_t line, std::string_view reason) {
  return file.path + ":" + std::to_string(line + 1) + ": " + std::string(reason);
}

struct Forbidden {
  std::regex pattern;
  std::string_view reason;
};

Findings linesMatching(const SourceFile& file, const std::vector<Forbidden>& table) {
  Findings findings;
  for (std::size_t i = 0; i < file.lines.size(); ++i) {
    for (const Forbidden& entry : table)
      if (std::regex_search(file.lines[i], entry.pattern)) findings.push_back(at(file, i, entry.reason));
  }
  return findings;
}

std::size_t indentation(std::string_view line) {
  const auto first = line.find_first_not_of(' ');
  return first == std::string_view::npos ? line.size() : first;
}

/// The line on which the declaration begins that ends on line `last`: a head may be broken over several.
std::size_t headOf(const SourceFile& file, std::size_t last) {
  static const std::regex kEnd(R"(^\s*(//|#)|[;{}:]$|^$)");
  std::size_t first = last;
  while (first > 0 && !std::regex_search(file.lines[first - 1], kEnd)) --first;
  return first;
}

/// True for the head of a namespace, a type or a table rather than a function.
bool opensScope(const SourceFile& file, std::size_t first, std::size_t last) {
  static const std::regex kScope(R"(^\s*(namespace|extern|(class|struct|union|enum)\b))");
  static const std::regex kTable(R"(=\s*\{$)");
  if (std::regex_search(file.lines[last], kTable)) return true;
  while (first < last && file.lines[first].find("template <") != std::string::npos) ++first;
  return std::regex_search(file.lines[first], kScope);
}

}  // namespace

Findings includesAgainstTheArrows(const SourceFile& file) {
  static const std::regex kInclude("^\\s*#include \"([^\"]+)\"");
  const std::string room = roomOf(file);
  if (room.empty()) return {};
  const auto arrows = kArrows.find(room);
  if (arrows == kArrows.end()) return {at(file, 0, "a room that the table of arrows doesn't know")};
  Findings findings;
  for (std::size_t i = 0; i < file.lines.size(); ++i) {
    std::smatch match;
    if (!std::regex_search(file.lines[i], match, kInclude)) continue;
    const std::string target = folderOf(match[1].str());
    // Without a folder: what the build generates for the file, such as a form or the toolkit's tables.
    if (target.empty() || target == room || arrows->second.contains(target)) continue;
    findings.push_back(at(file, i, room + " may not include " + match[1].str()));
  }
  return findings;
}

Findings toolkitInTheCore(const SourceFile& file) {
  if (!kCore.contains(roomOf(file)) && roomOf(file) != "platform/posix") return {};
  static const std::vector<Forbidden> kTable = {
      {std::regex("#include [<\"]Q[A-Z]"), "the core knows no toolkit"},
      {std::regex("#include [<\"]Qt"), "the core knows no toolkit"}};
  return linesMatching(file, kTable);
}

Findings bypassedPorts(const SourceFile& file) {
  static const std::vector<Forbidden> kCoreTable = {
      {std::regex(R"(\b(system|steady|high_resolution)_clock\b)"), "time comes from the Clock port"},
      {std::regex(
           R"(\b(clock_gettime|gettimeofday|localtime(_r)?|gmtime(_r)?)\b|std::time\(|[^\w.>:]time\()"),
       "time comes from the Clock port"},
      {std::regex(R"(\b(i|o)?fstream\b|std::filesystem|\bf?open(at)?\(|\bopendir\()"),
       "the disk comes from the FileSystem port"},
      {std::regex(R"(\bsocket\(|getaddrinfo\()"), "the network comes from the HttpClient port"},
      {std::regex(R"(random_device|mt19937|std::rand\b|\bs?rand\(|getrandom)"),
       "the core makes no random choices"},
      {std::regex(R"(std::j?thread\b|std::async|sleep_(for|until)|\bu?sleep\()"),
       "threads and waits come from the ports"},
      {std::regex(R"(\bgetenv\(|std::cout|std::cerr|\bprintf\()"), "the environment comes from the ports"},
  };
  static const std::vector<Forbidden> kViewTable = {
      {std::regex(R"(QDateTime::current|QDate::currentDate|QTime::currentTime|QElapsedTimer|_clock::now)"),
       "time comes from the Clock port"},
      {std::regex("QRandomGenerator|random_device"), "nothing here is random"},
      {std::regex("QNetworkAccessManager|QTcpSocket"), "the network comes from the HttpClient port"},
  };
  static const Rooms kViews = {"ui", "auxwindows", "schedule", "mainwindow", "todaywindow"};
  const std::string room = roomOf(file);
  if (kPortsOfTheCore.contains(file.path)) return {};
  if (kCore.contains(room)) return linesMatching(file, kCoreTable);
  if (kViews.contains(room)) return linesMatching(file, kViewTable);
  return {};
}

Findings headerWithoutGuard(const SourceFile& file) {
  if (!file.isHeader() || (!file.lines.empty() && file.lines.front() == "#pragma once")) return {};
  return {at(file, 0, "a header begins with #pragma once")};
}

Findings leftoverNotes(const SourceFile& file) {
  // Put together, so that this line doesn't find itself.
  static const std::vector<Forbidden> kTable = {
      {std::regex(std::string(R"(\b(TO)") + R"(DO|FIX)" + R"(ME|X)" + R"(XX)\b)"), "a note to oneself"}};
  return linesMatching(file, kTable);
}

Findings longFile(const SourceFile& file, std::size_t most) {
  if (file.lines.size() <= most) return {};
  return {at(file, most, "the file has " + std::to_string(file.lines.size()) + " lines")};
}

Findings longFunctions(const SourceFile& file, std::size_t most) {
  Findings findings;
  for (std::size_t opening = 0; opening < file.lines.size(); ++opening) {
    if (!file.lines[opening].ends_with("{")) continue;
    const std::size_t first = headOf(file, opening);
    if (opensScope(file, first, opening)) continue;
    const std::string closing = std::string(indentation(file.lines[first]), ' ') + "}";
    std::size_t last = opening + 1;
    while (last < file.lines.size() && !file.lines[last].starts_with(closing)) ++last;
    const std::size_t count = last - first + 1;
    if (count > most)
      findings.push_back(at(file, first, "a function of " + std::to_string(count) + " lines"));
    opening = last;
  }
  return findings;
}

}  // namespace tarvel::house
