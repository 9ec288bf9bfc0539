#include "tests/model/ModelFixture.h"
#include "zntopo/model/TopologyAttributeType.h"
#include "zntopo/model/ZNHSRP.h"
#include "zntopo/model/ZNHSRPAddrEqualObjID.h"

namespace zntopo {

/// What tests may do with a group beyond its public surface.
class ZNHSRPPeer {
 public:
  static ZNTopoAPIStatus setStateWithoutPriority(ZNHSRP& group, ZNHSRPAddressInfo& info,
                                                 ZNHSRPAddressInfo::HSRPState state, int certainty,
                                                 bool updateDB) {
    return group.setHSRPStateHelper(info, state, certainty, updateDB, ActiveDB);
  }
};

}  // namespace zntopo

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Info = ZNHSRPAddressInfo;

Info member(const char* interface, Info::HSRPState state, int priority = 100, int certainty = 50,
            const std::string& track = "") {
  return Info(9, ObjID(interface), ObjID(std::string("address of ") + interface), priority, state,
              track, certainty);
}

template <typename List>
std::vector<std::string> interfacesOf(const List& list) {
  std::vector<std::string> ids;
  for (const Info& info : list) ids.push_back(info.getIFObjID().getStrValue());
  return ids;
}

using TrackList = std::vector<std::pair<ObjID, int>>;

TrackList tracked(const std::string& text) {
  TrackList list;
  const Info info = member("i", Info::Active, 1, 1, text);
  for (const TrackInterfaceInfo& entry : info.getTrackInterfaceInfoList()) {
    list.emplace_back(entry.ifObjID, entry.ifPriority);
  }
  return list;
}

TEST(ZNHSRPAddressInfoTest, FieldsAreReadAsTheyWereGiven) {
  const Info info = member("i", Info::Speak, 110, 70, "[1001,10]");
  EXPECT_EQ(ObjID("address of i"), info.getAddressID());
  EXPECT_EQ(ObjID("i"), info.getIFObjID());
  EXPECT_EQ(9, info.getHSRPNumber());
  EXPECT_EQ(Info::Speak, info.getHSRPState());
  EXPECT_EQ(110, info.getHSRPPriority());
  EXPECT_EQ(70, info.getHSRPStateCertainty());
  EXPECT_EQ("[1001,10]", info.getHSRPTrackInterfaceAsString());
}

TEST(ZNHSRPAddressInfoTest, EachStateButUnavailableHasItsText) {
  const std::pair<int, const char*> texts[] = {{1, "Initial"},   {2, "Learn"},   {3, "Listen"},
                                               {4, "Speak"},     {5, "StandBy"}, {6, "Active"},
                                               {7, "MiscState"}, {8, "Unknown"}, {9, "NoResponse"},
                                               {10, "Unknown"},  {0, "Unknown"}};
  for (const auto& [number, text] : texts) {
    EXPECT_EQ(text, member("i", static_cast<Info::HSRPState>(number)).getHSRPStateAsString());
  }
}

TEST(ZNHSRPAddressInfoTest, NumbersThatAreNoStateAndThatOfUnavailableGiveMiscState) {
  for (const int number : {1, 2, 3, 4, 5, 6, 9}) {
    EXPECT_EQ(number, Info::getHSRPStateFromInt(number));
  }
  for (const int number : {-1, 0, 7, 8, 10}) {
    EXPECT_EQ(Info::MiscState, Info::getHSRPStateFromInt(number)) << number;
  }
}

TEST(ZNHSRPAddressInfoTest, TrackedInterfacesComeInWrittenOrder) {
  EXPECT_EQ(TrackList({{ObjID(1001), 10}, {ObjID(1002), 20}}), tracked("[1001,10][1002,20]"));
  EXPECT_EQ(TrackList({{ObjID("eth0"), -5}, {ObjID(), 0}}), tracked("x [eth0,-5], [,] y"));
  EXPECT_EQ(TrackList({{ObjID(1), 2147483647}}), tracked("[1,99999999999]"));
}

TEST(ZNHSRPAddressInfoTest, AStopInTheMiddleKeepsWhatWasParsed) {
  EXPECT_EQ(TrackList(), tracked("1001,10"));
  EXPECT_EQ(TrackList(), tracked("[1001,10"));
  EXPECT_EQ(TrackList(), tracked("[1001]"));
  EXPECT_EQ(TrackList({{ObjID(1001), 10}}), tracked("[1001,10][1002,20"));
  EXPECT_EQ(TrackList({{ObjID(1001), 10}}), tracked("[1001,10][1002]"));
}

TEST(ZNHSRPAddressInfoTest, AGroupWhoseCommaStandsBehindItHasNoEntry) {
  EXPECT_EQ(TrackList({{ObjID(2), 20}}), tracked("[1][2,20]"));
  EXPECT_EQ(TrackList(), tracked("[1],"));
}

TEST(ZNHSRPAddressInfoTest, AnEmptyTrackTextIsNotLogged) {
  EXPECT_EQ("", heardFrom(MC_VERBOSE, [] { EXPECT_EQ(TrackList(), tracked("")); }));
}

TEST(ZNHSRPAddressInfoTest, TheParsingIsLogged) {
  expectLogged(MC_INFO,
               "Track IF Info Str = [1001,10] \n[ pos = 0 \n] pos = 8 \n, pos = 5 \n"
               "Track IF ID=1001\nTrack IF Priority=10\n",
               [] { tracked("[1001,10]"); });
}

TEST(ZNHSRPAddressInfoTest, AMemberIsKnownByItsInterface) {
  const Info info = member("i", Info::Active);
  EXPECT_TRUE(ZNHSRPAddrEqualObjID(ObjID("i"))(info));
  EXPECT_FALSE(ZNHSRPAddrEqualObjID(ObjID("address of i"))(info));
}

class ZNHSRPTest : public ModelTest {
 protected:
  static ZNEntity entity() { return EntityParts().entity(); }

  ZNTopoAPIStatus update(Info& info, Info::HSRPState state, int certainty, int priority,
                         bool updateDB = false) {
    return group_.setHSRPStateAndPriority(info, state, certainty, priority, updateDB, ActiveDB);
  }
  Info firstMember() const { return group_.getHSRPAddrInfoList().front(); }

  ZNHSRP group_{entity(),
                {member("active", Info::Active), member("standby", Info::StandBy),
                 member("listen", Info::Listen), member("unavailable", Info::Unavailable)}};
  Info info_ = member("active", Info::Active);
};

TEST_F(ZNHSRPTest, AnEmptyGroupHasNumberZeroAndEmptyViews) {
  const ZNHSRP group(entity());
  EXPECT_EQ(E_HSRP, group.getEntityType());
  EXPECT_EQ(E_HSRP, ZNHSRP().getEntityType());
  EXPECT_EQ(0, group.getHSRPNumber());
  EXPECT_THAT(group.getActiveAddressInfoList(), IsEmpty());
  EXPECT_THAT(group.getStandbyAddressInfoList(), IsEmpty());
  EXPECT_THAT(group.getMiscStateAddressInfoList(), IsEmpty());
  EXPECT_THAT(group.getHSRPAddrInfoList(), IsEmpty());
  EXPECT_EQ("", group.toShortString());
}

TEST_F(ZNHSRPTest, MembersStandInTheViewOfTheirState) {
  EXPECT_EQ(E_HSRP, group_.getEntityType());
  EXPECT_EQ(9, group_.getHSRPNumber());
  EXPECT_THAT(interfacesOf(group_.getActiveAddressInfoList()), ElementsAre("active"));
  EXPECT_THAT(interfacesOf(group_.getStandbyAddressInfoList()), ElementsAre("standby"));
  EXPECT_THAT(interfacesOf(group_.getMiscStateAddressInfoList()),
              ElementsAre("listen", "unavailable"));
  EXPECT_THAT(interfacesOf(group_.getHSRPAddrInfoList()),
              ElementsAre("active", "standby", "listen", "unavailable"));
}

TEST_F(ZNHSRPTest, ANewListReplacesTheWholeListAndTheViews) {
  group_.setZNHSRPAddressInfoList({member("other", Info::StandBy)});
  EXPECT_THAT(group_.getActiveAddressInfoList(), IsEmpty());
  EXPECT_THAT(interfacesOf(group_.getStandbyAddressInfoList()), ElementsAre("other"));
  EXPECT_THAT(group_.getMiscStateAddressInfoList(), IsEmpty());
}

TEST_F(ZNHSRPTest, ACopyHasItsOwnMembers) {
  const ZNHSRP copy(group_);
  ZNHSRP assigned;
  assigned = group_;
  group_.setZNHSRPAddressInfoList({});
  EXPECT_EQ(4u, copy.getHSRPAddrInfoList().size());
  EXPECT_THAT(interfacesOf(assigned.getActiveAddressInfoList()), ElementsAre("active"));
}

TEST_F(ZNHSRPTest, AMemberThatChangesItsStateMovesToTheOtherView) {
  EXPECT_TRUE(update(info_, Info::Speak, 50, 100).isOK());
  EXPECT_THAT(group_.getActiveAddressInfoList(), IsEmpty());
  EXPECT_THAT(interfacesOf(group_.getMiscStateAddressInfoList()),
              ElementsAre("active", "listen", "unavailable"));
  EXPECT_EQ(Info::Speak, info_.getHSRPState());
  EXPECT_THAT(gateway().calls(), ElementsAre("getTopoMode(1)"));
}

TEST_F(ZNHSRPTest, StateAndCertaintyCanBeSetWithThePriorityThatIsThere) {
  EXPECT_TRUE(group_.setHSRPState(info_, Info::StandBy, 60, false, ActiveDB).isOK());
  EXPECT_EQ(Info::StandBy, firstMember().getHSRPState());
  EXPECT_EQ(60, firstMember().getHSRPStateCertainty());
  EXPECT_EQ(100, firstMember().getHSRPPriority());
}

TEST_F(ZNHSRPTest, WhileTheTopologyIsNotReadyNothingChanges) {
  gateway().topoMode = 1;
  const ZNTopoAPIStatus status = update(info_, Info::Speak, 101, 1, true);
  EXPECT_EQ(ZN_API_DB_NOT_READY, status.getStatus());
  EXPECT_EQ("", status.getAuxMsg());
  EXPECT_EQ(Info::Active, info_.getHSRPState());
  EXPECT_EQ(Info::Active, firstMember().getHSRPState());
}

TEST_F(ZNHSRPTest, CertaintyAndPriorityHaveTheirRangesAndCertaintyIsTestedFirst) {
  EXPECT_TRUE(update(info_, Info::Active, 100, 64000).isOK());
  EXPECT_TRUE(update(info_, Info::Active, 0, 0).isOK());
  const std::tuple<int, int, const char*> wrong[] = {
      {101, 1, "Certainty value not in valid range"},
      {-1, 1, "Certainty value not in valid range"},
      {1, 64001, "Priority value not in valid range"},
      {1, -1, "Priority value not in valid range"},
      {101, 64001, "Certainty value not in valid range"}};
  for (const auto& [certainty, priority, text] : wrong) {
    const ZNTopoAPIStatus status = update(info_, Info::Speak, certainty, priority, true);
    EXPECT_EQ(ZN_API_ILLEGAL_INPUT, status.getStatus());
    EXPECT_EQ(text, status.getAuxMsg());
    EXPECT_EQ(Info::Active, info_.getHSRPState());
    EXPECT_EQ(0, firstMember().getHSRPPriority());
  }
}

TEST_F(ZNHSRPTest, TheSameValuesAreLoggedAndNothingIsWritten) {
  expectLogged(MC_INFO, "No update required. Priority, State and certain remain the same ",
               [&] { EXPECT_TRUE(update(info_, Info::Active, 50, 100, true).isOK()); });
  EXPECT_EQ(0, gateway().callCount("setHSRPAddressInfo"));
}

TEST_F(ZNHSRPTest, AMemberThatIsNotInTheGroupIsReportedAndStaysChanged) {
  Info stranger = member("stranger", Info::Active);
  const ZNTopoAPIStatus status = update(stranger, Info::Speak, 1, 2, true);
  EXPECT_EQ(ZN_API_OBJ_NOT_EXIST, status.getStatus());
  EXPECT_EQ("setHSRPState() could not find hsrp address", status.getAuxMsg());
  EXPECT_EQ(Info::Speak, stranger.getHSRPState());
  EXPECT_EQ(1, stranger.getHSRPStateCertainty());
  EXPECT_EQ(2, stranger.getHSRPPriority());
  EXPECT_EQ(4u, group_.getHSRPAddrInfoList().size());
  EXPECT_EQ(0, gateway().callCount("setHSRPAddressInfo"));
}

TEST_F(ZNHSRPTest, AWriteTellsEachThingThatChangedInItsOrder) {
  EXPECT_TRUE(update(info_, Info::Speak, 60, 110, true).isOK());
  EXPECT_THAT(gateway().calls(),
              ElementsAre("getTopoMode(1)", "setHSRPAddressInfo(1, address of active, 4, 60, 110)",
                          "ensureNotificationClient()",
                          "sendAttributeNotification(11, entity, " + std::to_string(HSRP_State) +
                              ", 4, address of active, 0)",
                          "sendAttributeNotification(11, entity, " +
                              std::to_string(HSRP_Certainity) + ", 60, address of active, 0)",
                          "sendAttributeNotification(11, entity, " + std::to_string(HSRP_Priority) +
                              ", 110, address of active, 0)"));
}

TEST_F(ZNHSRPTest, WithoutThePriorityStateAndCertaintyAreSetUnchecked) {
  Info info = member("active", Info::Active, 110);
  EXPECT_TRUE(ZNHSRPPeer::setStateWithoutPriority(group_, info, Info::Speak, 101, true).isOK());
  EXPECT_EQ(Info::Speak, firstMember().getHSRPState());
  EXPECT_EQ(101, firstMember().getHSRPStateCertainty());
  EXPECT_EQ(100, firstMember().getHSRPPriority());
  EXPECT_EQ(110, info.getHSRPPriority());
  EXPECT_EQ(2, gateway().callCount("sendAttributeNotification"));
  expectLogged(MC_INFO, "No update required. State and certain remain the same ", [&] {
    EXPECT_TRUE(ZNHSRPPeer::setStateWithoutPriority(group_, info, Info::Speak, 101, true).isOK());
  });
  gateway().topoMode = 1;
  EXPECT_EQ(ZN_API_DB_NOT_READY,
            ZNHSRPPeer::setStateWithoutPriority(group_, info, Info::Active, 1, true).getStatus());
}

TEST_F(ZNHSRPTest, ANewCertaintyAloneSendsOneNotification) {
  EXPECT_TRUE(update(info_, Info::Active, 60, 100, true).isOK());
  EXPECT_EQ(1, gateway().callCount("sendAttributeNotification"));
  EXPECT_EQ("sendAttributeNotification(11, entity, " + std::to_string(HSRP_Certainity) +
                ", 60, address of active, 0)",
            gateway().calls().back());
}

TEST_F(ZNHSRPTest, AFailedWriteOrClientIsReportedAndAFailedSendIsNot) {
  const std::tuple<const char*, bool, int> failures[] = {{"setHSRPAddressInfo", true, 0},
                                                         {"ensureNotificationClient", true, 0},
                                                         {"sendAttributeNotification", false, 3}};
  for (const auto& [operation, isReported, sends] : failures) {
    SCOPED_TRACE(operation);
    gateway().reset();
    gateway().failWith(operation, ZN_API_SQL_EXEC_ERROR, "aux");
    Info info = member("active", Info::Active);
    group_.setZNHSRPAddressInfoList({info});
    const ZNTopoAPIStatus status = update(info, Info::Speak, 60, 110, true);
    EXPECT_EQ(isReported ? ZN_API_SQL_EXEC_ERROR : ZN_API_SUCCESS, status.getStatus());
    EXPECT_EQ(sends, gateway().callCount("sendAttributeNotification"));
    EXPECT_EQ(Info::Speak, info.getHSRPState());
    EXPECT_EQ(Info::Speak, firstMember().getHSRPState());
  }
}

}  // namespace
}  // namespace zntopo::test
