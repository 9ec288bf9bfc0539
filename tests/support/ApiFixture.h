#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/StatementSpy.h"
#include "tests/support/TestStore.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"

namespace zntopo::test {

/// An implementation with nothing hidden.
class OpenImpl : public ZNTopoAPI_Impl {
 public:
  using ZNTopoAPI_Impl::ZNTopoAPI_Impl;

  using ZNTopoAPI_Impl::addErrorListMessage;
  using ZNTopoAPI_Impl::getAddressesByWhereClause;
  using ZNTopoAPI_Impl::getAddrsByAssociatedObjIDList;
  using ZNTopoAPI_Impl::getEntitiesByWhereClause;
  using ZNTopoAPI_Impl::getIfcEntitiesByWhereClause;
  using ZNTopoAPI_Impl::getInterfacesByWhereQuery;
  using ZNTopoAPI_Impl::getObjIDs;
  using ZNTopoAPI_Impl::getSubnetEndPoints;
  using ZNTopoAPI_Impl::getSubnetEndPointsByObjIDList;
  using ZNTopoAPI_Impl::useAddress;
  using ZNTopoAPI_Impl::useInterface;
  using ZNTopoAPI_Impl::useNode;
  using ZNTopoAPI_Impl::useSubnet;
  using ZNTopoAPI_Impl::validate;

  const TableSet& tables() const { return *this; }
};

/// A UUID for a number: the letter tells kinds of objects apart and has to be one of a to f.
inline std::string uuid(int number, char kind = 'a') {
  char text[64];
  snprintf(text, sizeof text, "%c%07d-0000-4000-8000-%012d", kind, number, number);
  return text;
}

/// A fresh, ready store on one engine, and an empty cache with the default configuration.
class ApiTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    store.emplace(GetParam());
    store->setReady();
    ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
    ZNTopoAPI_Impl::cache()->clear(true);
  }

  /// From now on no connection can be had; what is in the pool is gone.
  void breakConnections() {
    setenv("TV_TOPO_STORE", "/nonexistent/zntopo/topology.db", 1);
    ZNDBTestAccess::forget();
  }

  std::optional<TestStore> store;
  OpenImpl impl;
  OpenImpl working{WorkingDB};
  /// Holds something of before, which a query has to reset.
  ZNTopoAPIStatus status{ZN_API_NO_PATH, "of before\n"};
  std::set<ObjID> notFound;
};

}  // namespace zntopo::test
