#pragma once

#include "tests/operations/Operations.h"
#include "tests/support/CachePeer.h"
#include "tests/support/FilterConfiguration.h"
#include "tests/support/Places.h"
#include "tests/support/RecordedPauses.h"

namespace zntopo::test {

/// A network of a size in a store, the language of filters where it is looked for, and an empty
/// cache whose clock stands still, so that the state row is read when the cache is cleared and at
/// no other time.
class OperationTest : public ApiTest {
 protected:
  static long stillClock() { return 1000000; }

  void SetUp() override {
    ApiTest::SetUp();
    if (!store) return;
    ZNTopoCachePeer(*ZNTopoAPI_Impl::cache()).setClock(stillClock);
  }

  void fill(const Size& size) { fillNetwork(*store, size); }

  Desk deskOf(const Size& size) { return Desk{size, api, impl}; }

  /// Nothing is kept from now on, and the state row is read.
  void keepNothing() {
    ZNTopoAPI::setCacheSize(0, 0, 0, 0, 0, 0, 0);
    api.clearCache();
    impl.validate(status);
  }

  const FilterConfiguration filters{"etc", inSourceTree("data/filter")};
  ZNTopoAPI api;
  const RecordedPauses pauses;
};

}  // namespace zntopo::test
