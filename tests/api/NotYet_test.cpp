#include <gtest/gtest.h>

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/model/TopologyGateway.h"

namespace zntopo {
namespace {

/// Operations that are declared and not carried out: each says so and names itself.
class NotYetTest : public testing::Test {
 protected:
  void expectNotYet(const ZNTopoAPIStatus& answer, const std::string& operation) {
    EXPECT_EQ(answer.getStatus(), ZN_API_NOT_SUPPORTED_OPERATION) << operation;
    EXPECT_EQ(answer.getAuxMsg(), operation + " is not supported yet\n");
  }

  ZNTopoAPI api;
  ZNTopoAPI_Impl impl;
  ZNTopoAPIStatus status{ZN_API_NO_PATH, "of before\n"};
};

TEST_F(NotYetTest, QueriesAnswerWithEmptyContainersThatExist) {
#define ZNTOPO_EXPECT_EMPTY(operation, ...)          \
  do {                                               \
    status = ZNTopoAPIStatus(ZN_API_NO_PATH, "old"); \
    const auto result = api.operation(__VA_ARGS__);  \
    ASSERT_TRUE(result) << #operation;               \
    EXPECT_TRUE(result->empty()) << #operation;      \
    expectNotYet(status, #operation);                \
  } while (false)
  ZNTOPO_EXPECT_EMPTY(getAuditTrail, 0, 0, ZNAuditAction::TypeDontCare,
                      ZNAuditTrail::ObjectTypeDontCare, status);
#undef ZNTOPO_EXPECT_EMPTY
}

TEST_F(NotYetTest, UpdatesOfTheStoreReturnTheirStatus) {
  ZNNode node;
  ZNInterface interface;
  int id = 1;
  expectNotYet(impl.setHSRPAddressInfo(ZNHSRPAddressInfo()), "setHSRPAddressInfo");
  expectNotYet(impl.setNWInterfaceState(ObjID("x"), 1, 0), "setNWInterfaceState");
  expectNotYet(impl.setAddressState(ObjID("x"), 1), "setAddressState");
  expectNotYet(impl.setNWNodeStatus(ObjID("x"), 1, 5), "setNWNodeStatus");
  expectNotYet(impl.setEntityStatus(ObjID("x"), 1, 2, ZNEntity::Overall, E_Node),
               "setEntityStatus");
  expectNotYet(impl.setL2DomainIdOfNode(node, id), "setL2DomainIdOfNode");
  expectNotYet(impl.setL2DomainIdOfInterface(interface, id), "setL2DomainIdOfInterface");
  expectNotYet(impl.setNWIfcAssocInfoState(ObjID("x"), ObjID("y"), 1, 2), "setNWIfcAssocInfoState");
}

TEST_F(NotYetTest, CacheUpdatesAndStatisticsSayTheSame) {
  expectNotYet(api.preLoadTopoCache(true, true, true, true, true), "preLoadTopoCache");
  api.updateCacheObjectStatus(ObjID("x"), false, E_Node, 1, 2, ZNEntity::Overall, status, false);
  expectNotYet(status, "updateCacheObjectStatus");
  impl.updateCacheObjectAttribute(ObjID("x"), E_Node, Snmp_State, 1, ObjID(), status);
  expectNotYet(status, "updateCacheObjectAttribute");
  EXPECT_EQ(api.getTopologyInfo(status).getNumberOfNode(), 0);
  expectNotYet(status, "getTopologyInfo");
  EXPECT_EQ(impl.getStatistic("select 1", status), 0);
  expectNotYet(status, "getStatistic");
}

}  // namespace
}  // namespace zntopo
