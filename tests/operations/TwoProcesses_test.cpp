// One process changes states, another has the objects in its cache.

#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "tests/support/ApiFixture.h"
#include "tests/support/EventBroker.h"
#include "tests/support/Eventually.h"
#include "tests/support/FreshProcess.h"
#include "zntopo/notify/TopoNotificationClientFactory.h"
#include "zntopo/notify/TopologyAttrChangeNotification.h"
#include "zntopo/notify/TopologyStatusNotification.h"

namespace zntopo::test {
namespace {

const ObjID kNode(uuid(1));
const ObjID kInterface(uuid(2));
const ObjID kAddress(uuid(3));
const ObjID kGroup(uuid(4));
const ObjID kLeft(uuid(5));
const ObjID kRight(uuid(6));
constexpr int kRelation = 3;

void fillStore(TestStore& store) {
  store.setReady();
  store.addNode(kNode.toString(), "node", {{"Status", 1}, {"SNMPState", 0}});
  store.addInterface(kInterface.toString(), kNode.toString(), "eth0",
                     {{"IfAdminState", 1}, {"IfOperStatus", 1}});
  store.addAddress(kAddress.toString(), kInterface.toString(), kNode.toString(), "192.0.2.1",
                   {{"PingState", 0}});
  store.addEntity(kGroup.toString(), "group", E_HSRP, {{"Status", 1}});
  store.insert("hsrpaddress", {{"ObjID", kGroup.toString()},
                               {"AddressID", kAddress.toString()},
                               {"AddressIfObjID", kInterface.toString()},
                               {"HSRPNumber", 7},
                               {"HSRPPriority", 100},
                               {"state", 6},
                               {"HSRPStateCertainty", 100}});
  for (const ObjID& id : {kLeft, kRight}) {
    store.insert("nwifc", {{"ObjId", id.toString()}, {"EntityName", "container"}});
  }
  store.insert("nwifcasc", {{"LeftIFContainerObjID", kLeft.toString()},
                            {"RightIFContainerObjID", kRight.toString()},
                            {"RelType", kRelation},
                            {"State", 1}});
}

// What the library gives, from the cache or the store.

ZNRefPtr<ZNNode> node() {
  ZNTopoAPIStatus status;
  return ZNTopoAPI().getNodeByObjID(kNode, status);
}
ZNRefPtr<ZNInterface> interface() {
  ZNTopoAPIStatus status;
  return ZNTopoAPI().getInterfaceByObjID(kInterface, status);
}
ZNRefPtr<ZNAddress> address() {
  ZNTopoAPIStatus status;
  return ZNTopoAPI().getAddressByObjID(kAddress, status);
}
ZNRefPtr<ZNHSRP> group() {
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  return ZNTopoAPI().getHSRPsByObjIDList({kGroup}, notFound, status, false, -1)->front();
}
ZNRefPtr<ZNIfcAssocInfo> association() {
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto containers = ZNTopoAPI().getIfcsByObjIDList({kLeft}, notFound, status, false, -1);
  return containers->front()->getAllIfcAssocInfos().front();
}

/// What an object is in the cache, without a look at the store.
template <typename Object, typename Describe>
std::string cached(bool (ZNTopoCache::*lookup)(const ObjID&, ZNRefPtr<Object>&) const,
                   const ObjID& id, const Describe& describe) {
  ZNRefPtr<Object> object;
  return (ZNTopoAPI_Impl::cache()->*lookup)(id, object) ? describe(*object) : "not cached";
}

std::string cachedNode() {
  return cached<ZNNode>(&ZNTopoCache::inNodeIDCache, kNode, [](const ZNNode& one) {
    return one.getOverallStatus().toString() + " " + std::to_string(one.getSnmpState());
  });
}
std::string cachedInterface() {
  return cached<ZNInterface>(&ZNTopoCache::inInterfaceIDCache, kInterface, [](const auto& one) {
    return std::to_string(one.getIfAdminStatus()) + " " + std::to_string(one.getIfOperStatus());
  });
}
std::string cachedAddress() {
  return cached<ZNAddress>(&ZNTopoCache::inAddressIDCache, kAddress,
                           [](const auto& one) { return std::to_string(one.getPingState()); });
}
std::string cachedGroup() {
  return cached<ZNHSRP>(&ZNTopoCache::inHSRPObjIDCache, kGroup, [](const ZNHSRP& one) {
    const ZNHSRPAddressInfo member = one.getHSRPAddrInfoList().front();
    return member.getHSRPStateAsString() + " " + std::to_string(member.getHSRPStateCertainty()) +
           " " + std::to_string(member.getHSRPPriority());
  });
}
std::string cachedContainer() {
  return cached<ZNIfc>(&ZNTopoCache::inIfcObjIDCache, kLeft, [](const ZNIfc& one) {
    return std::to_string(one.getAllIfcAssocInfos().front()->getAssocState());
  });
}

ZNTopoAPIStatus setMember(ZNHSRPAddressInfo::HSRPState state, int certainty, int priority) {
  const auto one = group();
  ZNHSRPAddressInfo member = one->getHSRPAddrInfoList().front();
  return one->setHSRPStateAndPriority(member, state, certainty, priority, true, ActiveDB);
}

/// One change in the one process, and what the other sees in its cache behind the event.
struct Step {
  ZNTopoAPIStatus (*set)();
  const char* event;
  std::string (*inCache)();
  const char* before;
  const char* behind;
};

const Step kSteps[] = {
    {[] { return node()->setOverallStatus(ObjectStatus::Major, 0, true, ActiveDB); },
     "status of 1: Normal to Major", cachedNode, "Normal 0", "Major 0"},
    {[] { return node()->setSnmpState(AGENT_DOWN, true); }, "attribute 5 of 1: 3", cachedNode,
     "Major 0", "Major 3"},
    {[] { return interface()->setIfAdminStatus(IfAdminStatus::Down, true); }, "attribute 2 of 2: 2",
     cachedInterface, "1 1", "2 1"},
    {[] { return interface()->setIfOperStatus(lowerLayerDown, true); }, "attribute 3 of 2: 7",
     cachedInterface, "2 1", "2 7"},
    {[] { return address()->setPingState(Ping_NotResponding, true); }, "attribute 4 of 25: 1",
     cachedAddress, "0", "1"},
    {[] { return setMember(ZNHSRPAddressInfo::StandBy, 100, 100); }, "attribute 0 of 11: 5",
     cachedGroup, "Active 100 100", "StandBy 100 100"},
    {[] { return setMember(ZNHSRPAddressInfo::StandBy, 60, 100); }, "attribute 1 of 11: 60",
     cachedGroup, "StandBy 100 100", "StandBy 60 100"},
    {[] { return setMember(ZNHSRPAddressInfo::StandBy, 60, 90); }, "attribute 6 of 11: 90",
     cachedGroup, "StandBy 60 100", "StandBy 60 90"},
    {[] { return group()->setOverallStatus(ObjectStatus::Critical, 0, true, ActiveDB); },
     "status of 11: Normal to Critical", cachedGroup, "StandBy 60 90", "not cached"},
    // Nothing is known of associations in the cache: the event alone tells.
    {[] { return association()->updateState(2, true); }, "attribute 7 of 12: 2", cachedContainer,
     "1", "1"},
};

std::string described(const TopologyNotification& event) {
  const std::string source = " of " + std::to_string(event.getSrcEntityType()) + ": ";
  if (auto* status = dynamic_cast<const TopologyStatusNotification*>(&event)) {
    return "status" + source + status->getPrevStatus()->toString() + " to " +
           status->getStatus()->toString();
  }
  auto* const attribute = dynamic_cast<const TopologyAttrChangeNotification*>(&event);
  return attribute == nullptr ? "something else"
                              : "attribute " + std::to_string(attribute->getAttrType()) + source +
                                    std::to_string(attribute->getAttrValInt());
}

/// A process that makes one step after the other, each when it is told to.
class Setter {
 public:
  Setter() {
    EXPECT_EQ(pipe(orders_), 0);
    EXPECT_EQ(pipe(answers_), 0);
    pid_ = fork();
    if (pid_ == 0) serve();
    close(orders_[0]);
    close(answers_[1]);
  }
  ~Setter() {
    close(orders_[1]);
    close(answers_[0]);
    if (isStuck_) kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  Setter(const Setter&) = delete;
  Setter& operator=(const Setter&) = delete;

  /// The status of the next step; -1 if there is none within a minute.
  int step() {
    const char order = 'x';
    int status = -1;
    pollfd answer = {answers_[0], POLLIN, 0};
    constexpr int minute = 60'000;
    isStuck_ = write(orders_[1], &order, 1) != 1 || poll(&answer, 1, minute) != 1;
    if (isStuck_) return -1;
    return read(answers_[0], &status, sizeof status) == sizeof status ? status : -1;
  }

 private:
  [[noreturn]] void serve() const {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    close(orders_[1]);
    char order = 0;
    for (const Step& step : kSteps) {
      if (read(orders_[0], &order, 1) != 1) break;
      const int status = step.set().getStatus();
      if (write(answers_[1], &status, sizeof status) != sizeof status) break;
    }
    ZNTopoAPI::release();
    _exit(0);
  }

  bool isStuck_ = false;
  int orders_[2] = {-1, -1};
  int answers_[2] = {-1, -1};
  pid_t pid_ = -1;
};

void expectEachStep(Setter& setter, TopologyNotificationClient& client) {
  for (const Step& step : kSteps) {
    EXPECT_EQ(step.inCache(), step.before) << step.event;
    ASSERT_EQ(setter.step(), ZN_API_SUCCESS) << step.event;
    ASSERT_TRUE(eventually([&] { return client.getNumberOfNotification() > 0; }))
        << "there is no event: " << step.event;
    const auto event = client.getNextNotification();
    // The cache first: the change is there when the event is.
    EXPECT_EQ(step.inCache(), step.behind) << step.event;
    EXPECT_EQ(described(*event), step.event);
  }
}

class TwoProcessesTest : public testing::TestWithParam<Engine> {};
ZNTOPO_ON_ENGINES(TwoProcessesTest, kEngines);

TEST_P(TwoProcessesTest, TheOneSeesInItsCacheWhatTheOtherSetBeforeItSeesTheEvent) {
  inFreshProcess([] {
    ZNTOPO_NEED_ENGINE(GetParam());
    ZNTOPO_NEED_BROKER();
    TestStore store(GetParam());
    fillStore(store);
    store.disconnect();
    const EventBroker broker;
    setEnv("TV_EVENT_BROKER", broker.name());
    // Before this process has threads and connections.
    Setter setter;
    const auto held = node();
    ASSERT_FALSE(held.isNull() || interface().isNull() || address().isNull());
    ASSERT_FALSE(group().isNull() || association().isNull());
    ZNTopoAPIStatus status;
    const auto client =
        TopoNotificationClientFactory::instance()->createNotificationClient(ALL, status);
    ASSERT_TRUE(status.isOK());
    ASSERT_TRUE(TopoNotificationClientFactory::instance()->receiveNotification().isOK());
    expectEachStep(setter, *client);
    // It is the object itself that has changed.
    EXPECT_EQ(held->getOverallStatus().getStatus(), ObjectStatus::Major);
    EXPECT_EQ(held->getSnmpState(), AGENT_DOWN);
    ZNTopoAPI::release();
  });
}

}  // namespace
}  // namespace zntopo::test
