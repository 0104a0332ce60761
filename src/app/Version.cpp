#include "app/Version.h"

#include <sys/utsname.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace tarvel {

PackedVersion packedSystemVersion(const std::string& release) {
  std::array<std::uint16_t, 3> numbers{};
  const char* at = release.data();
  const char* const end = at + release.size();
  for (auto& number : numbers) {
    std::uint64_t value = 0;
    const auto [behind, error] = std::from_chars(at, end, value);
    if (behind == at) break;
    constexpr std::uint64_t kLargest = std::numeric_limits<std::uint16_t>::max();
    number = static_cast<std::uint16_t>(error == std::errc{} ? std::min(value, kLargest) : kLargest);
    if (behind == end || *behind != '.') break;
    at = behind + 1;
  }
  return packedVersion(numbers[0], numbers[1], numbers[2]);
}

PackedVersion systemVersion() {
  utsname name{};
  return uname(&name) == 0 ? packedSystemVersion(name.release) : PackedVersion{0};
}

}  // namespace tarvel
