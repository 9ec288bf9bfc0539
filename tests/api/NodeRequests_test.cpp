#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class NodeRequestsTest : public ApiTest {};
ZNTOPO_ON_ENGINES(NodeRequestsTest, kMainEngines);

TEST_P(NodeRequestsTest, ARequestThatIsRefusedAtTheDoorLeavesWhatWasNotFound) {
  notFound = {ObjID("of before")};
  EXPECT_THAT(*impl.getNodesByObjIDList({}, notFound, status, false, false, false,
                                        ZNEntity::AllProtocol, -1),
              IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_EQ(status.getAuxMsg(), "The NodeObjIDList is empty\n");
  EXPECT_THAT(notFound, ElementsAre(ObjID("of before")));

  store->execute("update state set TopologyReady = 0");
  impl.clearCache();
  EXPECT_THAT(*impl.getNodesByObjIDList({ObjID(uuid(1))}, notFound, status, false, false, false,
                                        ZNEntity::AllProtocol, -1),
              IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
  EXPECT_THAT(notFound, ElementsAre(ObjID("of before")));
}

TEST_P(NodeRequestsTest, ARequestForNeighboursLeavesItsArgumentsInTheTrail) {
  const CapturedLog log(MC_MINOR);
  ZNTopoAPI().getNodeNeighbors("core switch", status, 2, -7);
  EXPECT_EQ(status.getStatus(), ZN_API_OBJ_NOT_EXIST);
  EXPECT_THAT(log.lines(), Contains("#TPC#getNodeNeighbors core switch 2 -7\n"));
}

TEST_P(NodeRequestsTest, AVendorThatCannotBeHadIsLogged) {
  const auto isVendorLine = StartsWith(" Failed to get vendorName.:../ZNTopoAPI_Attachments:");
  {
    const CapturedLog log(MC_MAJOR);
    impl.getVlanInfosByObjIDList_Int({ObjID(uuid(1))}, status, true, false);
    EXPECT_TRUE(status.isOK());
    EXPECT_THAT(log.lines(), Not(Contains(isVendorLine)));
  }
  breakConnections();
  const CapturedLog log(MC_MAJOR);
  impl.getVlanInfosByObjIDList_Int({ObjID(uuid(1))}, status, true, false);
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
  EXPECT_THAT(log.lines(), Contains(isVendorLine));
}

}  // namespace
}  // namespace zntopo::test
