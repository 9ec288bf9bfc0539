#pragma once

#include "zntopo/api/ZNTopoAPI_Impl.h"

namespace zntopo {

/// Gives out shared implementations, one for each table set, without any initialisation.
/// Several threads may call it at once.
class ZNTopoAPIImplFactory {
 public:
  /// The instance of a table set, made on the first call; it lives as long as the process.
  ZNRefPtr<ZNTopoAPI_Impl> getImplInstance(ZNTopoAPIStatus& theStatus, TopoDBType theDBType);

 private:
  struct Shared;
  static Shared& shared();
};

}  // namespace zntopo
