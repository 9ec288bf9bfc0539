#pragma once

#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/cache/ZNTopoConfig.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/model/TopoDBType.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// Gives out shared instances of the API, one for each table set.
class ZNTOPO_EXPORT ZNTopoAPIFactory {
 public:
  virtual ~ZNTopoAPIFactory() = default;

  /// Makes the factory usable and puts a configuration in force, on each call anew. Touches no
  /// store.
  virtual ZNTopoAPIStatus initZNTopoAPI(const ZNTopoConfig& theConfig) = 0;
  /// The same with the default configuration.
  virtual ZNTopoAPIStatus initZNTopoAPI() = 0;
  /// The instance of a table set, made on the first call; it lives as long as the process.
  /// ZN_API_NOT_INITED and a null handle before initZNTopoAPI().
  virtual ZNRefPtr<ZNTopoAPI> getRDInstance(ZNTopoAPIStatus& theStatus, TopoDBType theDBType) = 0;
};

}  // namespace zntopo
