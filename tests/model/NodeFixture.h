#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <list>
#include <string>

#include "tests/support/FakeTopologyGateway.h"
#include "zntopo/model/InetAddressIPv4.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/ZNNode.h"

namespace zntopo {

inline ZNEntity entityOf(const ObjID& id, EntityType type, TopoDBType dbType = ActiveDB,
                         const std::string& description = "-") {
  const ObjectStatus normal;
  return ZNEntity(id, "zone", ObjID(0), "name of " + id.getStrValue(), description, type, normal,
                  normal, normal, normal, 1, 2, 3, 0, ZNEntity::IPv4, dbType);
}

inline ZNRefPtr<ZNInterface> interfaceOf(const ObjID& id, const ObjID& nodeID = ObjID("node"),
                                         const IFProperty& property = IFProperty()) {
  ZNRefPtr<ZNInterface> interface(new ZNInterface(entityOf(id, E_Interface), property));
  interface->setPartOf(AssEndPoint("node", nodeID, E_Node));
  return interface;
}

inline ZNRefPtr<ZNAddress> v4Address(const ObjID& id, const std::string& text,
                                     const ObjID& owner = ObjID("if")) {
  return new InetAddressIPv4(text, false, id, owner, ActiveDB);
}

template <typename Handles>
std::list<std::string> idsOf(const Handles& handles) {
  std::list<std::string> ids;
  for (const auto& handle : handles) ids.push_back(handle->getObjID().getStrValue());
  return ids;
}

/// A test with the recording gateway emptied.
class NodeModelTest : public testing::Test {
 protected:
  NodeModelTest() { gateway().reset(); }

  static FakeTopologyGateway& gateway() { return FakeTopologyGateway::instance(); }
};

}  // namespace zntopo
