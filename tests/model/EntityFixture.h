#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <list>
#include <regex>
#include <string>
#include <vector>

#include "tests/support/FakeTopologyGateway.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/model/InetAddressIPv4.h"
#include "zntopo/model/InetAddressIPv6.h"
#include "zntopo/model/ZNEntity.h"

namespace zntopo {

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

/// A test with the recording gateway emptied.
class EntityModelTest : public testing::Test {
 protected:
  EntityModelTest() { gateway().reset(); }
  ~EntityModelTest() override { gateway().reset(); }

  static FakeTopologyGateway& gateway() { return FakeTopologyGateway::instance(); }

  static ZNRefPtr<ZNAddress> ipv4(const std::string& id, const std::string& text) {
    return new InetAddressIPv4(text, false, ObjID(id), ObjID("owner"), ActiveDB);
  }

  static ZNRefPtr<ZNAddress> ipv6(const std::string& id, const std::string& text,
                                  InetAddressIPv6::ScopeType scope) {
    return new InetAddressIPv6(text, scope, 64, false, ObjID(id), ObjID("owner"), ObjID(),
                               ActiveDB);
  }

  static std::vector<std::string> idsOf(const std::vector<ZNRefPtr<ZNAddress>>& addresses) {
    std::vector<std::string> ids;
    for (const auto& address : addresses) ids.push_back(address->getAddressID().getStrValue());
    return ids;
  }
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

/// What some work logs at a level and above it, without the times.
inline std::string heardFrom(MCDebugLevel level, const std::function<void()>& work) {
  MCLog::init(level);
  testing::internal::CaptureStdout();
  work();
  MCLog::setDebuggingLevel(MC_NONE);
  static const std::regex time("[A-Z][a-z]{2} [A-Z][a-z]{2} [ 0-9]{2} [0-9:]{8} [0-9]{4} ");
  return std::regex_replace(testing::internal::GetCapturedStdout(), time, "");
}

/// Expects that some work logs a text, and that it does so at exactly this level.
inline void expectLogged(MCDebugLevel level, const std::string& text,
                         const std::function<void()>& work) {
  EXPECT_EQ(text, heardFrom(level, work));
  EXPECT_EQ("", heardFrom(static_cast<MCDebugLevel>(level + 1), work));
}

}  // namespace zntopo
