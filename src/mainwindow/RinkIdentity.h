#pragma once
#include <memory>

namespace tarvel {

/// Whether both mean the same object, or both none. One that has gone is another than none, and than any that
/// came after it.
template <class T>
bool isSameRink(const std::weak_ptr<T>& a, const std::shared_ptr<T>& b) {
  return !a.owner_before(b) && !b.owner_before(a);
}

}  // namespace tarvel
