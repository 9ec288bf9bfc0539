#pragma once

#include <mutex>

namespace zntopo::detail {

/// Guards, for a scope, what the read-only operations of one object fill in. A leaf: nothing else
/// is locked and nothing above the model is called while it is held. Many objects share one
/// mutex, so it is not for two objects at once either.
class LeafLock {
 public:
  explicit LeafLock(const void* object);

 private:
  std::lock_guard<std::mutex> lock_;
};

}  // namespace zntopo::detail
