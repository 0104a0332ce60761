#include "model/PhoneNumber.h"

namespace tarvel {

namespace {
constexpr int kCountShift = 60;
constexpr int kDigitBits = 4;
constexpr std::uint64_t kDigitMask = 0xF;
constexpr std::size_t kLocalDigits = 7;
constexpr std::size_t kFullDigits = 10;
}  // namespace

std::string formattedPhone(std::uint64_t phone) {
  if (phone == 0) return {};
  const auto count = static_cast<std::size_t>(phone >> kCountShift);
  std::string digits;
  for (std::size_t i = count; i > 0; --i) {
    digits += static_cast<char>('0' + ((phone >> ((i - 1) * kDigitBits)) & kDigitMask) % 10);
  }
  if (count == kLocalDigits) return digits.substr(0, 3) + "-" + digits.substr(3);
  if (count == kFullDigits)
    return "(" + digits.substr(0, 3) + ") " + digits.substr(3, 3) + "-" + digits.substr(6);
  return digits;
}

std::optional<std::uint64_t> parsePhone(std::string_view text) {
  if (text.empty()) return 0;
  std::uint64_t digits = 0;
  std::size_t count = 0;
  for (const char c : text) {
    if (c == ' ' || c == '(' || c == ')' || c == '-') continue;
    if (c < '0' || c > '9') return std::nullopt;
    if (++count > kFullDigits) return std::nullopt;
    digits = (digits << kDigitBits) | static_cast<std::uint64_t>(c - '0');
  }
  if (count != kLocalDigits && count != kFullDigits) return std::nullopt;
  return digits | (static_cast<std::uint64_t>(count) << kCountShift);
}

}  // namespace tarvel
