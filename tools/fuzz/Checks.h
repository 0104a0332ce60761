#pragma once
#include <optional>
#include <string>

#include "MemoryMeter.h"
#include "foundation/DecodeError.h"
#include "platform/Bytes.h"

namespace tarvel::fuzz {

/// What `fatalError` throws in these programs, so that one run sees many inputs that stop the application.
struct ProgramStop {
  std::string reason;
};

/// Ends the program, telling the broken promise, unless it was kept.
void require(bool kept, const char* promise);

/// True for the two stops that a server's file may bring about: a negative count, an unknown session kind.
bool isAllowed(const ProgramStop& stop);

/// Memory that reading `input` may take at most: in proportion to its size.
std::size_t allowance(ByteView input);

/// What `decode` makes of the input; none if it refuses it. Holds the reader to its allowance of memory.
template <class Decode>
auto decoded(ByteView input, Decode decode) -> std::optional<decltype(decode(input))> {
  const MemoryMeter meter;
  std::optional<decltype(decode(input))> file;
  try {
    file = decode(input);
  } catch (const DecodeError&) {
    // Refused.
  } catch (const ProgramStop& stop) {
    if (!isAllowed(stop)) throw;
  }
  require(meter.peak() <= allowance(input), "reading takes memory in proportion to the input");
  return file;
}

/// The same; and what was read, written and read again, has to be what it was. `encode` writes every field,
/// so that equal bytes are equal files.
template <class Decode, class Encode>
auto roundTrip(ByteView input, Decode decode, Encode encode) {
  auto file = decoded(input, decode);
  if (!file) return file;
  const Bytes written = encode(*file);
  const auto again = decoded(written, decode);
  require(again.has_value(), "what was written can be read");
  require(encode(*again) == written, "what was written is read as it was");
  return file;
}

}  // namespace tarvel::fuzz
