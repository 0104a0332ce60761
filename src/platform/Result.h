#pragma once
#include <string>
#include <utility>
#include <variant>

namespace tarvel {

/// Why an operation on the environment failed, in words for a log line: "No space left on device".
struct Error {
  std::string description;
};

/// A value, or the reason why there is none. Nothing is thrown for what the environment refuses.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}
  Result(Error error) : state_(std::in_place_index<1>, std::move(error)) {}

  bool ok() const { return state_.index() == 0; }
  explicit operator bool() const { return ok(); }
  /// Only when `ok()`.
  const T& value() const& { return std::get<0>(state_); }
  T&& value() && { return std::get<0>(std::move(state_)); }
  const T& operator*() const& { return value(); }
  /// By value, so that a loop over `*call()` doesn't look at what is gone.
  T operator*() && { return std::get<0>(std::move(state_)); }
  const T* operator->() const { return &value(); }
  /// Only when not `ok()`.
  const Error& error() const { return std::get<1>(state_); }

 private:
  std::variant<T, Error> state_;
};

struct Done {};
/// The outcome of an operation that gives nothing back: `Done{}` or an `Error`.
using Status = Result<Done>;

}  // namespace tarvel
