#pragma once

#include <utility>

#include "tests/operations/Operations.h"
#include "tests/support/ObjectTexts.h"

/// @file
/// What the rows of Operations.h are made of: the costs of the library's building blocks, and
/// answers of its results.

namespace zntopo::test {

/// One statement in a holder of its own: a look-up of identifiers, a loader.
constexpr Cost kStatement{1, 1};
/// The first query of a process, or after the cache was cleared, reads the state row.
constexpr Cost kState = kStatement;
/// One batch of nodes: the nodes, their links, containers and VLANs. The VLAN loader asks for the
/// engine's vendor in a holder of its own.
constexpr Cost kNodes{4, 5};
/// All nodes at once: nobody asks for the vendor.
constexpr Cost kAllNodes{4, 4};
/// The addresses of what one statement has read.
constexpr Cost kAddresses = kStatement;

/// The user variables of what one statement has read, if leaves or their interfaces are among it.
constexpr Cost variables(const Size& size) { return kStatement * (size.variables ? 1 : 0); }
/// One batch with leaves in it.
constexpr Cost leafNodes(const Size& size) { return kNodes + variables(size); }
/// The user variables of all leaves after one unbounded read: the loader cuts the request into
/// batches and asks for the whole of it in each.
constexpr Cost allVariables(const Size& size) { return variables(size) * batches(size.leaves); }

// Formulas and numbers that many rows share.

inline constexpr Formula kNothing = [](const Size&) { return Cost{}; };
inline constexpr Formula kOneStatement = [](const Size&) { return kStatement; };
inline constexpr Formula kStateAndOneStatement = [](const Size&) { return kState + kStatement; };

inline constexpr auto kOne = [](const Size&) { return 1; };
inline constexpr auto kNone = [](const Size&) { return 0; };
inline constexpr auto kLeaves = [](const Size& size) { return size.leaves; };

// Answers.

inline Answer sorted(const ZNTopoAPIStatus& status, std::vector<std::string> items) {
  std::sort(items.begin(), items.end());
  return {status.getStatus(), std::move(items)};
}

template <typename Handle>
Answer one(const ZNTopoAPIStatus& status, const Handle& handle) {
  return {status.getStatus(), handle.isNull()
                                  ? std::vector<std::string>()
                                  : std::vector<std::string>{handle->getObjID().getStrValue()}};
}

template <typename Handles>
Answer many(const ZNTopoAPIStatus& status, const Handles& handles) {
  return sorted(status, idsOf(handles));
}

template <typename Address>
Answer oneAddress(const ZNTopoAPIStatus& status, const ZNRefPtr<Address>& address) {
  return {status.getStatus(), address.isNull() ? std::vector<std::string>()
                                               : std::vector<std::string>{address->getAddressID()}};
}

template <typename Addresses>
Answer manyAddresses(const ZNTopoAPIStatus& status, const Addresses& addresses) {
  std::vector<std::string> ids;
  for (const auto& address : addresses) ids.push_back(address->getAddressID());
  return sorted(status, std::move(ids));
}

/// The keys of a map of what a loader found.
template <typename Map>
Answer keysOf(const ZNTopoAPIStatus& status, const Map& map) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : map) {
    if (!value.isNull() && !value->empty()) keys.push_back(key);
  }
  return sorted(status, std::move(keys));
}

// The same of a question, which fills the status and gives the object or its container.

template <typename Ask>
auto asked(const Ask& ask) {
  ZNTopoAPIStatus status;
  auto result = ask(status);
  return std::pair(status, std::move(result));
}

template <typename Ask>
Answer one(const Ask& ask) {
  const auto [status, result] = asked(ask);
  return one(status, result);
}
template <typename Ask>
Answer many(const Ask& ask) {
  const auto [status, result] = asked(ask);
  return many(status, *result);
}
template <typename Ask>
Answer oneAddress(const Ask& ask) {
  const auto [status, result] = asked(ask);
  return oneAddress(status, result);
}
template <typename Ask>
Answer manyAddresses(const Ask& ask) {
  const auto [status, result] = asked(ask);
  return manyAddresses(status, *result);
}
template <typename Ask>
Answer keysOf(const Ask& ask) {
  const auto [status, result] = asked(ask);
  return keysOf(status, *result);
}

/// No item, only how it went.
inline Answer done(const ZNTopoAPIStatus& status) { return {status.getStatus(), {}}; }

// Objects to ask: those of the desk, or fetched anew.

inline ZNRefPtr<ZNNode> nodeOf(const Desk& desk, const ZNRefPtr<ZNNode>& shared,
                               const std::string& id) {
  ZNTopoAPIStatus status;
  return shared.isNull() ? desk.api.getNodeByObjID(ObjID(id), status) : shared;
}
inline ZNRefPtr<ZNNode> hubOf(const Desk& desk) {
  return nodeOf(desk, desk.hub, nodeID(Part::Hub));
}
inline ZNRefPtr<ZNNode> leafOf(const Desk& desk) {
  return nodeOf(desk, desk.leaf, nodeID(Part::Leaf));
}

/// The hub's interface to the first leaf.
inline ZNRefPtr<ZNInterface> interfaceOf(const Desk& desk) {
  ZNTopoAPIStatus status;
  return desk.interface.isNull()
             ? desk.api.getInterfaceByObjID(ObjID(downID(Part::Leaf, 1)), status)
             : desk.interface;
}
/// Its address.
inline ZNRefPtr<ZNAddress> addressOf(const Desk& desk) {
  ZNTopoAPIStatus status;
  return desk.address.isNull() ? desk.api.getAddressByObjID(ObjID(hubAddressID(1)), status)
                               : desk.address;
}

inline std::set<ObjID> leafIDs(const Size& size) {
  std::set<ObjID> ids;
  for (int i = 1; i <= size.leaves; ++i) ids.insert(ObjID(nodeID(Part::Leaf, i)));
  return ids;
}
inline std::list<ObjID> listOf(const std::set<ObjID>& ids) { return {ids.begin(), ids.end()}; }

}  // namespace zntopo::test
