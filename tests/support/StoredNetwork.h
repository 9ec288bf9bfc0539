#pragma once

#include <list>
#include <string>
#include <vector>

#include "tests/support/TestStore.h"
#include "zntopo/model/ZNConnection.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/ZNNode.h"

/// @file
/// Small networks of nodes and links: in a store, or of objects alone.

namespace zntopo::test {

/// The name of a node: with a full stop in it, so that nothing but the whole name finds it.
inline std::string nameOf(const std::string& node) { return node + ".net"; }

/// A link as "source interface-destination interface".
inline std::string textOf(const ZNConnection& connection) {
  return connection.getSrcInterfaceObjID().getStrValue() + "-" +
         connection.getDestInterfaceObjID().getStrValue();
}
inline std::vector<std::string> textsOf(const std::list<ZNConnection>& connections) {
  std::vector<std::string> texts;
  for (const ZNConnection& connection : connections) texts.push_back(textOf(connection));
  return texts;
}

/// Fills a store. The interface of a node towards another is called "node:other".
class StoredNetwork {
 public:
  explicit StoredNetwork(TestStore& store) : store_(store) {}

  void node(const std::string& id, const Values& more = {}) {
    store_.addNode(id, nameOf(id), more);
  }
  void router(const std::string& id) { node(id, {{"isIPV4Router", 1}}); }
  void interface(const std::string& id, const std::string& node, const Values& more = {}) {
    Values row = {{"isL2Connected", 1}};
    for (const auto& [name, value] : more) row.insert_or_assign(name, value);
    store_.addInterface(id, node, id, row);
  }
  /// A link between an interface of its own on each side; a number tells parallel links apart.
  void link(const std::string& left, const std::string& right, const std::string& number = "") {
    const std::string leftInterface = left + ":" + right + number;
    const std::string rightInterface = right + ":" + left + number;
    interface(leftInterface, left);
    interface(rightInterface, right);
    store_.addLink(leftInterface, rightInterface, left, right);
  }
  void chain(const std::vector<std::string>& nodes) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      node(nodes[i]);
      if (i > 0) link(nodes[i - 1], nodes[i]);
    }
  }
  /// An interface without a link that owns an IPv4 address.
  void address(const std::string& node, const std::string& ip) {
    const std::string id = node + ":" + ip;
    store_.addInterface(id, node, id, {{"hasAddress", 1}});
    store_.addAddress(ip, id, node, ip);
  }

 private:
  TestStore& store_;
};

/// A record of a link.
inline ZNRefPtr<ZNConnData> record(const ObjID& srcInterface, const ObjID& srcNode,
                                   const ObjID& destInterface, const ObjID& destNode,
                                   bool isNodeSide = true) {
  return new ZNConnData(srcInterface, destInterface, srcNode, destNode, isNodeSide);
}

/// A node that no store has, with its records.
inline ZNRefPtr<ZNNode> madeNode(const ObjID& id,
                                 const std::vector<ZNRefPtr<ZNConnData>>& records = {},
                                 unsigned long capabilities = 0) {
  NodeProperty property;
  property.capabilitySet = ZNNodeCapabilitySet(capabilities);
  const ZNEntity entity(id, "", ObjID(0), nameOf(id.getStrValue()), "", E_Node, ObjectStatus(),
                        ObjectStatus(), ObjectStatus(), ObjectStatus(), 0, 0, 0, 0, ZNEntity::IPv4,
                        ActiveDB);
  ZNRefPtr<ZNNode> node(new ZNNode(entity, property));
  node->setConnDataList(records);
  return node;
}

/// An interface that no store has.
inline ZNRefPtr<ZNInterface> madeInterface(const ObjID& id, const ObjID& nodeID) {
  const ZNEntity entity(id, "", ObjID(), id.getStrValue(), "", E_Interface, ObjectStatus(),
                        ObjectStatus(), ObjectStatus(), ObjectStatus(), 0, 0, 0, 0, ZNEntity::IPv4,
                        ActiveDB);
  ZNRefPtr<ZNInterface> interface(new ZNInterface(entity));
  interface->setPartOf(AssEndPoint("", nodeID, E_Node));
  return interface;
}

}  // namespace zntopo::test
