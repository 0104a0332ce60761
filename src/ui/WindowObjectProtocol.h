#pragma once

namespace tarvel {

/// A window controller that shows one object, by which the window that already shows it is found.
class WindowObjectProtocol {
 public:
  virtual ~WindowObjectProtocol() = default;
  /// The object's identity, compared and never looked into; null while the window shows none.
  virtual const void* windowObject() const = 0;
};

}  // namespace tarvel
