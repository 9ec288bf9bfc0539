#pragma once

#include <list>
#include <string>

#include "tests/support/ApiFixture.h"

/// @file
/// The network that every query is asked about.

namespace zntopo::test {

// What stands in it once.

inline const std::string kAlpha = uuid(1);
inline const std::string kBeta = uuid(2);
inline const std::string kGamma = uuid(3);
inline const std::string kVlan = uuid(1, 'd');
inline const std::string kGroup = uuid(2, 'd');
inline const std::string kContainer = uuid(3, 'd');
inline const std::string kMesh = uuid(4, 'd');
inline const std::string kSubnet = uuid(5, 'd');
inline const std::string kV6Address = uuid(1, 'f');
inline const std::string kDnsAddress = uuid(2, 'f');

/// The interface of a node towards another.
inline std::string interfaceID(int from, int to) { return uuid(1000 * from + to, 'b'); }
/// The IPv4 address of that interface.
inline std::string addressID(int from, int to) { return uuid(1000 * from + to, 'c'); }

inline std::list<ObjID> nodeIDs() { return {ObjID(kAlpha), ObjID(kBeta), ObjID(kGamma)}; }
inline std::list<ObjID> interfaceIDs() {
  return {ObjID(interfaceID(1, 2)), ObjID(interfaceID(2, 1)), ObjID(interfaceID(3, 2))};
}

/// Fills a store with a network of three nodes in a row, alpha.net, beta and gamma, and at least
/// a row of everything that a query reads.
/// @param more so many further nodes on alpha.net, with all that hangs on a node, so that each
/// query has as many rows to fetch.
void fillLittleNetwork(TestStore& store, int more = 0);

}  // namespace zntopo::test
