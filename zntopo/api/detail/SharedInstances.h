#pragma once

#include "zntopo/core/ZNMutex.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/TopoDBType.h"

namespace zntopo::detail {

/// The shared instances of one class, one for each table set, and the lock that guards them.
/// A factory keeps one of these for the process, made on first use and never destroyed.
template <typename T>
struct SharedInstances {
  /// The instance of a table set, made on the first call. With the lock held.
  ZNRefPtr<T> instance(TopoDBType type) {
    ZNRefPtr<T>& kept = type == ActiveDB ? active : working;
    if (kept.isNull()) kept = ZNRefPtr<T>(new T(type == ActiveDB ? ActiveDB : WorkingDB));
    return kept;
  }

  ZNMutex myLock;
  ZNRefPtr<T> active;
  ZNRefPtr<T> working;
};

}  // namespace zntopo::detail
