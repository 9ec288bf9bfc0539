#pragma once

#include <cstdio>
#include <string>

#include "tests/support/ApiFixture.h"
#include "tests/support/StoredNetwork.h"

/// @file
/// A network whose size is data, for tests that hold every query operation against it.
///
/// A hub with leaves around it and a chain that leads away from it, and two nodes apart:
///
///     leaf 1 .. leaf N --- hub --- hop 1 --- hop 2 ... hop H          isle 1 --- isle 2
///
/// It is a tree: between two nodes there is one path or none.
///
/// Apart from these there is a gate of IPv6 with an address in each subnet, and a host in each.

namespace zntopo::test {

struct Size {
  const char* name;
  int leaves;
  int hops;
  /// The leaves, and their interfaces to the hub, have user variables.
  bool variables;

  int nodes() const { return 1 + leaves + hops + 2 + 1 + leaves; }
  /// The nodes next to the hub: its leaves and the first of the chain.
  int ring() const { return leaves + 1; }
  /// Nodes, interfaces and groups.
  int objects() const { return nodes() + connectedInterfaces() + leaves + 2 + 5 * leaves + 1; }
  int links() const { return leaves + hops + 1; }
  /// Every link's two ends.
  int connectedInterfaces() const { return 2 * links(); }
};

/// How many statements a list of identifiers takes: 50 go into the first and 49 into each later
/// one.
constexpr int batches(int identifiers) {
  return identifiers <= 50 ? (identifiers > 0 ? 1 : 0) : 1 + (identifiers - 50 + 48) / 49;
}

/// What a network is made of, by number. All identifiers are UUIDs: those of different kinds have
/// no order among each other.
enum class Part : int { Hub = 0, Leaf = 1000, Hop = 2000, Isle = 3000, Host = 4000 };

inline std::string nodeID(Part part, int number = 1) {
  return uuid(static_cast<int>(part) + number, 'a');
}
inline std::string nodeName(Part part, int number = 1) {
  constexpr const char* kNames[] = {"hub", "leaf", "hop", "isle", "host"};
  char text[32];
  snprintf(text, sizeof text, "%s-%04d.net", kNames[static_cast<int>(part) / 1000], number);
  return text;
}
/// The interface towards the next node nearer to the hub, or to the other isle.
inline std::string upID(Part part, int number) {
  return uuid(static_cast<int>(part) + number, 'b');
}
/// The interface at the other end of that link.
inline std::string downID(Part part, int number) {
  return uuid(static_cast<int>(part) + number, 'c');
}
/// A leaf's access interface, or the end of the chain's.
inline std::string accessID(Part part, int number) {
  return uuid(static_cast<int>(part) + number, 'd');
}
/// The address of the hub's interface to a leaf, and its identifier.
inline std::string hubAddress(int leafNumber) { return "10.1.0." + std::to_string(leafNumber); }
inline std::string hubAddressID(int leafNumber) { return uuid(leafNumber, 'e'); }
/// The address of a leaf's access interface.
inline std::string leafAddress(int number) { return "10.2.0." + std::to_string(number); }
/// The one of the last node of the chain.
inline constexpr const char* kFarAddress = "10.3.0.1";
/// The second leaf has an IPv6 address with a name.
inline constexpr const char* kV6Address = "2001:db8::1";
inline std::string v6AddressID() { return uuid(1, 'f'); }

/// Each leaf has a subnet, a VLAN, an interface container and an HSRP group of its own.
inline std::string subnetID(int number) { return uuid(5000 + number, 'a'); }
inline std::string vlanID(int number) { return uuid(6000 + number, 'a'); }
inline std::string containerID(int number) { return uuid(7000 + number, 'a'); }
inline std::string hsrpID(int number) { return uuid(8000 + number, 'a'); }

/// The node of IPv6 with an address in each subnet.
inline std::string gateID() { return nodeID(Part::Host, 0); }

/// Fills a store with the network.
void fillNetwork(TestStore& store, const Size& size);

}  // namespace zntopo::test
