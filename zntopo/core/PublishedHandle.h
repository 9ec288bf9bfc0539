#pragma once

#include <utility>

#include "zntopo/core/Published.h"
#include "zntopo/core/ZNRefPtr.h"

namespace zntopo {

/// A handle that a read-only operation may replace while others go through it: it reads and
/// assigns like a ZNRefPtr<T>, and the objects before the current one are kept.
///
/// Assignment is for the one who builds the owner; publish() is for use under a lock.
template <typename T>
class PublishedHandle {
 public:
  PublishedHandle() = default;
  PublishedHandle(const ZNRefPtr<T>& handle) { *this = handle; }  // NOLINT
  PublishedHandle& operator=(const ZNRefPtr<T>& handle) {
    handle_.edit() = handle;
    return *this;
  }

  operator const ZNRefPtr<T>&() const { return get(); }  // NOLINT(google-explicit-constructor)
  const ZNRefPtr<T>& get() const { return handle_.get(); }
  T& operator*() const { return *get(); }
  T* operator->() const { return get().getObjectPointer(); }
  T* getObjectPointer() const { return get().getObjectPointer(); }
  bool isNull() const { return get().isNull(); }

  /// Makes the handle current, or one before it that is the same by a comparison of handles.
  template <typename Same>
  void publish(ZNRefPtr<T> handle, Same same) {
    handle_.publish(std::move(handle), same);
  }

 private:
  Published<ZNRefPtr<T>> handle_;
};

}  // namespace zntopo
