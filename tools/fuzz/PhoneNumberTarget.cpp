#include <cstring>

#include "Checks.h"
#include "Targets.h"
#include "model/PhoneNumber.h"

namespace tarvel::fuzz {

/// The input is a text, and its first eight bytes are a packed number too.
void phoneNumber(ByteView input) {
  const std::string text(input.begin(), input.end());
  if (const auto phone = parsePhone(text))
    require(parsePhone(formattedPhone(*phone)) == phone, "a number comes back from its text");
  std::uint64_t packed = 0;
  if (input.size() < sizeof packed) return;
  std::memcpy(&packed, input.data(), sizeof packed);
  const std::string shown = formattedPhone(packed);
  require(shown.size() <= std::string_view("(303) 555-0123").size() + 1, "a number's text is short");
  require(shown.find_first_not_of("0123456789()- ") == std::string::npos, "and holds nothing but a number");
}

}  // namespace tarvel::fuzz
