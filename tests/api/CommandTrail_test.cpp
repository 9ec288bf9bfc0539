#include "zntopo/api/detail/CommandTrail.h"

#include <gmock/gmock.h>

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"

namespace zntopo::test {
namespace {

using detail::commandLog;
using testing::ElementsAre;

/// The lines of the trail alone.
std::vector<std::string> trail(const CapturedLog& log) {
  std::vector<std::string> result;
  for (const std::string& line : log.lines()) {
    if (line.rfind("#TPC#", 0) == 0) result.push_back(line);
  }
  return result;
}

TEST(CommandTrailTest, EachFormHasItsLine) {
  const CapturedLog log(MC_MINOR);
  commandLog("name");
  commandLog("name", "some arguments");
  commandLog("name", std::set<ObjID>{ObjID("b"), ObjID("a")});
  commandLog("name", std::list<ObjID>{ObjID(7), ObjID(3)});
  commandLog("name", std::list<ObjID>{});
  EXPECT_THAT(trail(log), ElementsAre("#TPC#name\n", "#TPC#name some arguments\n",
                                      "#TPC#name a b \n", "#TPC#name 7 3 \n", "#TPC#name \n"));
}

TEST(CommandTrailTest, ALogThatHearsOnlyGraverThingsHasNoTrail) {
  const CapturedLog log(MC_MAJOR);
  commandLog("name");
  commandLog("name", "arguments");
  commandLog("name", std::set<ObjID>{ObjID("a")});
  EXPECT_THAT(trail(log), ElementsAre());
}

class FacadeTrailTest : public testing::Test {
 protected:
  // The working tables need no ready model, and without a store every query just fails.
  void SetUp() override {
    setenv("TV_TOPO_STORE", "/nonexistent/zntopo/topology.db", 1);
    ZNDBTestAccess::forget();
  }

  ZNTopoAPI api{WorkingDB};
  ZNTopoAPIStatus status;
  std::set<ObjID> ids = {ObjID("x")};
  std::set<ObjID> notFound;
};

TEST_F(FacadeTrailTest, RequestsByIdentifiersNameThem) {
  const CapturedLog log(MC_MINOR);
  api.getNodesByObjIDList(ids, notFound, status, false, false, false, ZNEntity::AllProtocol, -1);
  api.getInterfacesByObjIDList(ids, notFound, status, false, false);
  api.getVlansByObjIDList(ids, notFound, status, false, -1);
  api.getHSRPsByObjIDList(ids, notFound, status, false, -1);
  api.getIfcsByObjIDList(ids, notFound, status, false, -1);
  api.getIfcInfosByObjIDList(ids, status, true, false, 0);
  EXPECT_THAT(trail(log),
              ElementsAre("#TPC#getNodesByObjIDList x \n", "#TPC#getInterfacesByObjIDList x \n",
                          "#TPC#getVlansByObjIDList x \n", "#TPC#getHSRPsByObjIDList x \n",
                          "#TPC#getIfcsByObjIDList x \n", "#TPC#getIfcInfosByObjIDList x \n"));
}

TEST_F(FacadeTrailTest, OfRequestsForEverythingOnlyThoseForVlansAndGroupsAreTold) {
  const CapturedLog log(MC_MINOR);
  api.getNodesByObjIDList(ids, notFound, status, false, false, true, ZNEntity::AllProtocol, -1);
  api.getInterfacesByObjIDList(ids, notFound, status, false, true);
  api.getVlansByObjIDList(ids, notFound, status, true, -1);
  api.getHSRPsByObjIDList(ids, notFound, status, true, -1);
  api.getIfcsByObjIDList(ids, notFound, status, true, -1);
  api.getIfcInfosByObjIDList(ids, status, true, true, 0);
  api.getTopologyInfo(status);
  EXPECT_THAT(trail(log),
              ElementsAre("#TPC#getAllVlans\n", "#TPC#getAllHSRPs\n", "#TPC#getTopologyInfo\n"));
}

TEST_F(FacadeTrailTest, OtherOperationsLeaveNoTrail) {
  const CapturedLog log(MC_MINOR);
  api.getNodeByName("edge", status, -1);
  api.getTopologyState(status);
  api.getAddressByIP("10.0.0.1", status, -1);
  EXPECT_THAT(trail(log), ElementsAre());
}

}  // namespace
}  // namespace zntopo::test
