#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvel {

/// A packed phone number: 4 bits a digit, the last digit in bits 0 to 3, the count of digits in bits 60 to
/// 63; 0 for none. "555-0123" or "(303) 555-0123"; the digits alone for a count other than 7 and 10.
std::string formattedPhone(std::uint64_t phone);
/// Blanks, hyphens and parentheses are skipped; none unless 7 or 10 digits are left. The empty text gives 0.
std::optional<std::uint64_t> parsePhone(std::string_view text);

}  // namespace tarvel
