#pragma once
#include <stdexcept>

namespace tarvel {

/// The input of a `DataDecoder` ends early or lies about a length. The only thing thrown across a room's
/// border.
class DecodeError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace tarvel
