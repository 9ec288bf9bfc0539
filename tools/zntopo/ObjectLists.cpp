#include "tools/zntopo/ObjectLists.h"

#include <tuple>
#include <utility>

#include "tools/zntopo/Names.h"
#include "tools/zntopo/fields/EntityFields.h"

namespace zntopo::tools {

namespace {

std::vector<InterfaceDetails> interfaceDetails(
    Session& session, const std::vector<ZNRefPtr<ZNInterface>>& interfaces) {
  Identifiers ids;
  for (const auto& interface : interfaces) ids.add(interface->getObjID());
  auto addresses = addressesOf(session, ids);
  std::vector<InterfaceDetails> result;
  result.reserve(interfaces.size());
  for (const auto& interface : interfaces) {
    result.push_back(
        {.object = interface, .addresses = std::move(addresses[interface->getObjID().toString()])});
  }
  return result;
}

Listing<InterfaceDetails> listingOf(const std::vector<InterfaceDetails>& interfaces) {
  Listing<InterfaceDetails> listing(interfaceFields());
  for (const InterfaceDetails& one : interfaces) listing.add(one);
  return listing;
}

/// The interface that has an address. A subnet has its own address itself.
ObjID interfaceOf(const ZNAddress& address) {
  const auto* const inet = dynamic_cast<const InetAddress*>(&address);
  return inet && inet->isSubnetAddress() ? ObjID() : address.getAssEntityID();
}

}  // namespace

Listing<ZNNode> nodeListing(std::vector<ZNRefPtr<ZNNode>> nodes) {
  sortBy(nodes, [](const ZNRefPtr<ZNNode>& node) { return naturalKey(*node); });
  Listing<ZNNode> listing(nodeFields());
  for (const auto& node : nodes) listing.add(*node);
  return listing;
}

Listing<InterfaceDetails> interfaceListing(Session& session,
                                           std::vector<ZNRefPtr<ZNInterface>> interfaces,
                                           const ZNNode& node) {
  sortBy(interfaces, [](const ZNRefPtr<ZNInterface>& one) { return naturalKey(*one); });
  std::vector<InterfaceDetails> details = interfaceDetails(session, interfaces);
  for (InterfaceDetails& one : details) {
    one.node = node.getName();
    one.isOfOneNode = true;
  }
  return listingOf(details);
}

Listing<InterfaceDetails> interfaceListing(Session& session,
                                           const std::vector<ZNRefPtr<ZNInterface>>& interfaces) {
  std::vector<InterfaceDetails> details = interfaceDetails(session, interfaces);
  Identifiers nodeIds;
  for (const InterfaceDetails& one : details) nodeIds.add(one.object->getParentObjID());
  const auto nodes = nodesById(session, nodeIds);
  for (InterfaceDetails& one : details) {
    const auto node = nodes.find(one.object->getParentObjID().toString());
    if (node != nodes.end()) one.node = node->second->getName();
  }
  sortBy(details, [](const InterfaceDetails& one) {
    return std::tuple(Natural{one.node}, naturalKey(*one.object));
  });
  return listingOf(details);
}

Listing<AddressDetails> addressListing(Session& session,
                                       const std::vector<ZNRefPtr<ZNAddress>>& addresses) {
  Identifiers owners;
  for (const auto& address : addresses) owners.add(interfaceOf(*address));
  const Names names(session, owners);
  std::vector<AddressDetails> details;
  details.reserve(addresses.size());
  for (const auto& address : addresses) {
    details.push_back({address, names.end(interfaceOf(*address))});
  }
  sortBy(details, [](const AddressDetails& one) {
    return std::tuple(naturalKey(one.end), one.object->getAddressType(),
                      Natural{one.object->getAddressAsString()});
  });
  Listing<AddressDetails> listing(addressFields());
  for (const AddressDetails& one : details) listing.add(one);
  return listing;
}

void fillNodes(Session& session, const Identifiers& ids, Answer& answer) {
  auto nodes = nodeList(session, ids);
  answer.status = completeness(session, "nwnode", nodes.size(), ids.texts().size());
  nodeListing(std::move(nodes)).fill(answer, "nodes", "node");
}

void fillInterfaces(Session& session, const Identifiers& ids, Answer& answer) {
  const auto interfaces = interfaceList(session, ids);
  answer.status = completeness(session, "nwinterface", interfaces.size(), ids.texts().size());
  interfaceListing(session, interfaces).fill(answer, "interfaces", "interface");
}

void fillAddresses(Session& session, const Identifiers& ids, Answer& answer) {
  addressListing(session, addressList(session, ids)).fill(answer, "addresses", "address");
}

}  // namespace zntopo::tools
