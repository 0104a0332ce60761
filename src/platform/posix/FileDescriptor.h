#pragma once
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace tarvel {

/// Owns an open file of the system and closes it. -1 is none.
class FileDescriptor {
 public:
  explicit FileDescriptor(int number = -1) : number_(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~FileDescriptor() {
    if (number_ >= 0) ::close(number_);
  }

  bool valid() const { return number_ >= 0; }
  int number() const { return number_; }
  /// Hands the number over to the caller, who closes it.
  int release() { return std::exchange(number_, -1); }

 private:
  int number_;
};

/// Calls until a signal no longer interrupts: the result of the first call that ends for another reason.
template <class Call>
auto retryingInterrupted(Call call) {
  for (;;) {
    const auto result = call();
    if (result != -1 || errno != EINTR) return result;
  }
}

}  // namespace tarvel
