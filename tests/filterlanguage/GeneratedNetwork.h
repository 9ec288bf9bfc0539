#pragma once

#include "tests/support/TestStore.h"

namespace zntopo::test {

/// A store with a generated campus of 60 nodes, in which some things have gone wrong and some are
/// not known: states, links, names, new nodes, nodes without addresses of one IP version.
const StoreSeed& generatedNetwork();

}  // namespace zntopo::test
