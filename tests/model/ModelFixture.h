#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <list>
#include <string>
#include <vector>

#include "tests/support/CapturedLog.h"
#include "tests/support/FakeTopologyGateway.h"
#include "tests/support/ObjectTexts.h"
#include "zntopo/model/InetAddressIPv4.h"
#include "zntopo/model/InetAddressIPv6.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/ZNNode.h"

/// @file
/// Objects of the model as tests want them, and the gateway that they ask.

namespace zntopo::test {

/// What a test's entity is made of; a test changes what it is about.
struct EntityParts {
  ObjID id{"entity"};
  std::string zone = "zone 3";
  ObjID qrmObjId{77};
  std::string name = "core-1";
  std::string description = "the core switch";
  EntityType type = E_Node;
  ObjectStatus overall{ObjectStatus::Major};
  ObjectStatus v6Compound{ObjectStatus::Warning};
  ObjectStatus v6Global{ObjectStatus::Marginal};
  ObjectStatus v6Site{ObjectStatus::Critical};
  long createTime = 100;
  long changeTime = 200;
  long statusChangeTime = 300;
  int routeDistinguisher = 9;
  ZNEntity::IPLevel level = ZNEntity::IPv4;
  TopoDBType dbType = WorkingDB;

  ZNEntity entity() const {
    return ZNEntity(id, zone, qrmObjId, name, description, type, overall, v6Compound, v6Global,
                    v6Site, createTime, changeTime, statusChangeTime, routeDistinguisher, level,
                    dbType);
  }

  void update(ZNEntity& entity, const std::list<ObjID>& addresses = {},
              const std::vector<UserDefVar>& vars = {}) const {
    entity.updateZNEntity(id, zone, qrmObjId, name, description, type, overall, v6Compound,
                          v6Global, v6Site, createTime, changeTime, statusChangeTime,
                          routeDistinguisher, level, addresses, vars, dbType);
  }
};

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

inline ZNRefPtr<ZNAddress> ipv4(const ObjID& id, const std::string& text,
                                const ObjID& owner = ObjID("owner")) {
  return new InetAddressIPv4(text, false, id, owner, ActiveDB);
}

inline ZNRefPtr<ZNAddress> ipv6(const ObjID& id, const std::string& text,
                                InetAddressIPv6::ScopeType scope) {
  return new InetAddressIPv6(text, scope, 64, false, id, ObjID("owner"), ObjID(), ActiveDB);
}

inline std::vector<std::string> addressIDsOf(const std::vector<ZNRefPtr<ZNAddress>>& addresses) {
  std::vector<std::string> ids;
  for (const auto& address : addresses) ids.push_back(address->getAddressID().getStrValue());
  return ids;
}

/// An element of the XML forms; the value as it stands there.
inline std::string attribute(const std::string& name, const std::string& type,
                             const std::string& value) {
  return "<Attr name=\"" + name + "\" type=\"" + type + "\" value=\"" + value + "\" /> \n";
}

/// A test with the recording gateway emptied.
class ModelTest : public testing::Test {
 protected:
  ModelTest() { gateway().reset(); }
  ~ModelTest() override { gateway().reset(); }

  static FakeTopologyGateway& gateway() { return FakeTopologyGateway::instance(); }
};

/// Tells whether its mutex is held.
class LockProbe : public ZNEntity {
 public:
  explicit LockProbe(const ZNEntity& entity) : ZNEntity(entity) {}
  bool isLocked() {
    if (pthread_mutex_trylock(myMutex.getMutex()) != 0) return true;
    pthread_mutex_unlock(myMutex.getMutex());
    return false;
  }
};

/// Expects that some work logs a text, and that it does so at exactly this level.
inline void expectLogged(MCDebugLevel level, const std::string& text,
                         const std::function<void()>& work) {
  EXPECT_EQ(text, heardFrom(level, work));
  EXPECT_EQ("", heardFrom(static_cast<MCDebugLevel>(level + 1), work));
}

}  // namespace zntopo::test
