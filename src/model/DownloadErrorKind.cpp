#include "model/DownloadErrorKind.h"

#include <array>
#include <cstddef>

namespace tarvel {

namespace {
struct Texts {
  std::string_view caseName;
  std::string_view shown;
};
constexpr std::array<Texts, 4> kTexts = {{{"noError", ""},
                                          {"connectionError", "Unable to contact server"},
                                          {"serverError", "Server error"},
                                          {"invalidData", "Invalid data"}}};
}  // namespace

DownloadErrorKind downloadErrorKindOf(std::int64_t raw) {
  const bool known = raw >= 0 && raw < static_cast<std::int64_t>(kTexts.size());
  return known ? static_cast<DownloadErrorKind>(raw) : DownloadErrorKind::noError;
}

std::string_view textOf(DownloadErrorKind kind) {
  return kTexts[static_cast<std::size_t>(kind)].shown;
}
std::string_view caseNameOf(DownloadErrorKind kind) {
  return kTexts[static_cast<std::size_t>(kind)].caseName;
}

}  // namespace tarvel
