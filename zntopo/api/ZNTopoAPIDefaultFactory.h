#pragma once

#include "zntopo/api/ZNTopoAPIODBCFactory.h"

namespace zntopo {

/// The factory that applications use: forwards to the one of the store.
class ZNTOPO_EXPORT ZNTopoAPIDefaultFactory : public ZNTopoAPIFactory {
 public:
  ZNTopoAPIDefaultFactory();
  ~ZNTopoAPIDefaultFactory() override;
  ZNTopoAPIDefaultFactory(const ZNTopoAPIDefaultFactory&) = delete;
  ZNTopoAPIDefaultFactory& operator=(const ZNTopoAPIDefaultFactory&) = delete;

  ZNTopoAPIStatus initZNTopoAPI(const ZNTopoConfig& theConfig) override;
  ZNTopoAPIStatus initZNTopoAPI() override;
  ZNRefPtr<ZNTopoAPI> getRDInstance(ZNTopoAPIStatus& theStatus, TopoDBType theDBType) override;

 private:
  ZNTopoAPIODBCFactory* myImpl;
};

}  // namespace zntopo
