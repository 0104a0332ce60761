#include <cstddef>
#include <cstdint>

#include "Targets.h"

/// The fuzzer's entry for one target, whose function's name the build gives.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarvel::fuzz::TARVEL_FUZZ_TARGET({data, size});
  return 0;
}
