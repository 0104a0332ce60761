#include "viewer/ViewerOptions.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>

#include "publish/FieldParsers.h"

namespace tarvel::viewer {
namespace {

constexpr int kLeastSide = 16;
constexpr int kMostSide = 10'000;
constexpr double kLeastScale = 0.5;
constexpr double kMostScale = 4.0;
constexpr double kLeastFont = 5.0;
constexpr double kMostFont = 40.0;
constexpr int kMinutesPerDay = 24 * 60;

/// What is only text on the command line.
struct Texts {
  std::string shownDate;
  std::string today;
  std::string time = "12:00";
  std::string size;
};

template <class Value>
void addChoice(CLI::App& app, const std::string& name, Value& target,
               const std::map<std::string, Value>& choices, const std::string& description) {
  std::vector<std::string> names;
  names.reserve(choices.size());
  for (const auto& [choice, value] : choices) names.push_back(choice);
  app.add_option_function<std::string>(
         name, [&target, choices](const std::string& choice) { target = choices.at(choice); }, description)
      ->check(CLI::IsMember(names));
}

void declareOptions(CLI::App& app, ViewerOptions& options, Texts& texts) {
  app.add_option("--folder", options.folder, "Folder of published files, with root.b1 in it")->required();
  app.add_option("--rink", options.rinkID, "Number of the rink; the first one if not given");
  addChoice<ShownView>(app, "--view", options.view,
                       {{"week", ShownView::week},
                        {"day", ShownView::day},
                        {"calendar", ShownView::calendar},
                        {"header", ShownView::header}},
                       "What is shown; a header is the week's, or that of several --venues");
  app.add_option("--venues", options.venueIDs, "Numbers of the venues, such as 1,2")->delimiter(',');
  app.add_option("--date", texts.shownDate, "The day, or any day of the week, that is shown")->required();
  app.add_option("--today", texts.today, "The day that it is at the rink; that of --date if not given");
  app.add_option("--time", texts.time, "The time that it is at the rink")->capture_default_str();
  app.add_option("--size", texts.size, "Width and height, such as 1280x800");
  addChoice<Appearance>(app, "--appearance", options.appearance,
                        {{"light", Appearance::light}, {"dark", Appearance::dark}}, "");
  app.add_option("--scale", options.scale, "Device pixels for a logical one")
      ->check(CLI::Range(kLeastScale, kMostScale));
  addChoice<VerticalFit>(app, "--mode", options.fit,
                         {{"fit", VerticalFit::fit}, {"scroll", VerticalFit::scroll}},
                         "Whether the day fits the height or scrolls");
  app.add_option("--font", options.fontSize, "Size of the items' names")
      ->check(CLI::Range(kLeastFont, kMostFont));
  app.add_flag_callback(
      "--times", [&options] { options.times = SessionTimes::shown; },
      "Write the sessions' times into the week");
  addChoice<WeekFiles>(app, "--weeks", options.weekFiles,
                       {{"delivered", WeekFiles::delivered},
                        {"withheld", WeekFiles::withheld},
                        {"missing", WeekFiles::missing},
                        {"damaged", WeekFiles::damaged}},
                       "What becomes of the weeks' files on their way");
  auto* png = app.add_option("--png", options.png, "Write a picture instead of opening a window");
  auto* pdf = app.add_option("--pdf", options.pdf, "Print to this file instead of opening a window");
  pdf->excludes(png);
  addChoice<QPageSize::PageSizeId>(app, "--paper", options.paper,
                                   {{"a4", QPageSize::A4}, {"letter", QPageSize::Letter}}, "Of --pdf");
}

Error notOfForm(const std::string& option, const std::string& text, const std::string& example) {
  return {fmt::format("{}: \"{}\" is not of the form {}", option, text, example)};
}

std::optional<QSize> parseSize(const std::string& text) {
  int width = 0;
  int height = 0;
  int used = 0;
  if (std::sscanf(text.c_str(), "%5dx%5d%n", &width, &height, &used) != 2) return std::nullopt;
  if (static_cast<std::size_t>(used) != text.size()) return std::nullopt;
  const auto allowed = [](int side) { return side >= kLeastSide && side <= kMostSide; };
  return allowed(width) && allowed(height) ? std::optional(QSize(width, height)) : std::nullopt;
}

Status takeTexts(const Texts& texts, ViewerOptions& options) {
  const auto shown = publish::parseDate(texts.shownDate);
  if (!shown) return notOfForm("--date", texts.shownDate, "2026-03-18");
  const auto today = texts.today.empty() ? shown : publish::parseDate(texts.today);
  if (!today) return notOfForm("--today", texts.today, "2026-03-18");
  const auto time = publish::parseTime(texts.time);
  if (!time || *time >= kMinutesPerDay) return notOfForm("--time", texts.time, "10:30");
  options.shownDate = *shown;
  options.today = *today;
  options.time = *time;
  if (!texts.size.empty()) {
    const auto size = parseSize(texts.size);
    if (!size)
      return notOfForm("--size", texts.size, fmt::format("1280x800 ({} to {})", kLeastSide, kMostSide));
    options.size = *size;
  }
  return Done{};
}

}  // namespace

bool ViewerOptions::isDaily() const {
  return view == ShownView::day || (view == ShownView::header && venueIDs.size() > 1);
}

Result<ViewerOptions> parseViewerOptions(std::vector<std::string> arguments) {
  CLI::App app("Shows one view of a rink's schedule, over a folder of published files, at any moment.",
               "tarvel-viewer");
  ViewerOptions options;
  Texts texts;
  declareOptions(app, options, texts);
  // The library takes them from the back.
  std::reverse(arguments.begin(), arguments.end());
  try {
    app.parse(std::move(arguments));
  } catch (const CLI::CallForHelp&) {
    options.help = app.help();
    return options;
  } catch (const CLI::ParseError& error) {
    return Error{error.what()};
  }
  if (const Status taken = takeTexts(texts, options); !taken) return taken.error();
  const bool isSchedule = options.view == ShownView::week || options.view == ShownView::day;
  if (!options.pdf.empty() && !isSchedule) return Error{"--pdf: only a week or a day can be printed"};
  options.folder = std::filesystem::absolute(options.folder).lexically_normal().string();
  if (options.folder.size() > 1 && options.folder.back() == '/') options.folder.pop_back();
  return options;
}

}  // namespace tarvel::viewer
