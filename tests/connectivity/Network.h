#pragma once

#include <algorithm>
#include <list>
#include <utility>

#include "tests/support/ApiFixture.h"
#include "tests/support/ObjectTexts.h"
#include "tests/support/StoredNetwork.h"

/// @file
/// What the tests of connectivity share.

namespace zntopo::test {

/// An implementation whose walks tests may call.
class WalkImpl : public OpenImpl {
 public:
  using OpenImpl::OpenImpl;

  using ZNTopoAPI_Impl::createNewNodeList;
  using ZNTopoAPI_Impl::doesSubnetPassFilter;
  using ZNTopoAPI_Impl::findPath;
  using ZNTopoAPI_Impl::getNeighbors2;
  using ZNTopoAPI_Impl::getSubnetConnectivity;
  using ZNTopoAPI_Impl::prepareProcessingList;
  using ZNTopoAPI_Impl::processedNode;
};

using NodeList = std::list<ZNRefPtr<ZNNode>>;

/// A ready store, and nodes that are read anew each time.
class ConnectivityTest : public ApiTest {
 protected:
  void SetUp() override {
    ApiTest::SetUp();
    if (!store) return;
    net.emplace(*store);
    ZNTopoAPI::getTopoConfiguration().setNodeCacheSize(0);
  }

  WalkImpl api;
  std::optional<StoredNetwork> net;
};

}  // namespace zntopo::test
