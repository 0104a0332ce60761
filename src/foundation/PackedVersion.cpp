#include "foundation/PackedVersion.h"

#include <fmt/format.h>

namespace tarvel {

std::string versionText(PackedVersion version) {
  const auto number = [version](int shift) {
    return (static_cast<std::uint64_t>(version) >> shift) & 0xFFFF;
  };
  std::string text = fmt::format("{}.{}.{}", number(48), number(32), number(16));
  if (const auto beta = number(0); beta != 0) text += fmt::format(" Beta {}", beta);
  return text;
}

}  // namespace tarvel
