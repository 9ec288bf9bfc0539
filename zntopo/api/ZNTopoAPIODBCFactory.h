#pragma once

#include "zntopo/api/ZNTopoAPIFactory.h"

namespace zntopo {

/// The factory over the relational store. What it holds belongs to the process: all objects of
/// this class give out the same instances. Several threads may call it at once.
class ZNTOPO_EXPORT ZNTopoAPIODBCFactory : public ZNTopoAPIFactory {
 public:
  ZNTopoAPIStatus initZNTopoAPI(const ZNTopoConfig& theConfig) override;
  ZNTopoAPIStatus initZNTopoAPI() override;
  ZNRefPtr<ZNTopoAPI> getRDInstance(ZNTopoAPIStatus& theStatus, TopoDBType theDBType) override;

 private:
  struct Shared;
  static Shared& shared();
};

}  // namespace zntopo
