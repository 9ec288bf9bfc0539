#include "zntopo/bridge/detail/Builders.h"

#include <gmock/gmock.h>

#include <limits>

#include "tests/support/Jvm.h"
#include "tests/support/StoredNetwork.h"
#include "zntopo/model/InetAddressDNS.h"
#include "zntopo/model/InetAddressIPv4.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"
#include "zntopo/model/PhysicalAddress.h"

namespace zntopo::test {
namespace {

using namespace zntopo::bridge;

class BuildersTest : public JvmTest {};

ZNEntity entityOf(const ObjID& id, EntityType type) {
  return ZNEntity(id, "", ObjID(), "name", "", type, ObjectStatus(), ObjectStatus(), ObjectStatus(),
                  ObjectStatus(), 1, 2, 3, 4, ZNEntity::IPv4, ActiveDB);
}

TEST_F(BuildersTest, ANullIdentifierIsMadeWithoutAText) {
  const LocalRef<> id = createID(env, ObjID());
  EXPECT_EQ(get(id, "getStringValue", "Ljava/lang/String;"), "null");
  EXPECT_EQ(get(createID(env, ObjID("n1")), "getStringValue", "Ljava/lang/String;"), "n1");
  EXPECT_EQ(shown(createID(env, ObjID(17L))), "17");
}

TEST_F(BuildersTest, ANullHandleIsNull) {
  EXPECT_FALSE(createEntity(env, {}, nullptr));
  EXPECT_FALSE(createNodeNative(env, {}, nullptr));
  EXPECT_FALSE(createInterfaceNative(env, {}, nullptr));
  EXPECT_FALSE(createAddress(env, {}, nullptr));
  EXPECT_FALSE(createSubnetNative(env, {}, nullptr));
  EXPECT_FALSE(createVlan(env, {}, nullptr));
  EXPECT_FALSE(createHSRP(env, {}, nullptr));
  EXPECT_FALSE(createIfcNative(env, {}, nullptr));
}

TEST_F(BuildersTest, TimesAreMillisecondsUpToTheLastThatJavaCanCount) {
  constexpr long kLast = std::numeric_limits<long>::max();
  const ZNRefPtr<ZNEntity> entity(new ZNEntity(
      "v1", "", ObjID(), "name", "", E_Vlan, ObjectStatus(), ObjectStatus(), ObjectStatus(),
      ObjectStatus(), 1800000000, kLast, -kLast, 4, ZNEntity::IPv4, ActiveDB));
  const LocalRef<> twin = createEntity(env, entity, nullptr);
  const LocalRef<jclass> type(jni, jni->GetObjectClass(twin.get()));
  const auto time = [&](const char* getter) {
    const jlong value =
        jni->CallLongMethod(twin.get(), jni->GetMethodID(type.get(), getter, "()J"));
    EXPECT_FALSE(jni->ExceptionCheck());
    return value;
  };
  EXPECT_EQ(time("getCreateTime"), 1800000000000);
  EXPECT_EQ(time("getChangeTime"), std::numeric_limits<jlong>::max());
  EXPECT_EQ(time("getStatusChangeTime"), std::numeric_limits<jlong>::min());
}

TEST_F(BuildersTest, AnEmptyListIsAnEmptyCollectionOfItsClass) {
  const auto isEmpty = [&](const LocalRef<>& collection, const std::string& type) {
    EXPECT_EQ(classOf(collection), type);
    EXPECT_EQ(shown(collection), "[]");
  };
  isEmpty(createList(env, {}), "Vector");
  isEmpty(createNodeList(env, {}, nullptr), "Vector");
  isEmpty(createInterfaceList(env, {}, nullptr), "Vector");
  isEmpty(createAddressList(env, {}, nullptr), "Vector");
  isEmpty(createSubnetList(env, {}, nullptr), "Vector");
  isEmpty(createVlanList(env, {}, nullptr), "Vector");
  isEmpty(createHSRPList(env, {}, nullptr), "Vector");
  isEmpty(createIfcList(env, {}, nullptr), "Vector");
  isEmpty(createObjIDList(env, {}), "Vector");
  isEmpty(createConnDataList(env, {}), "Vector");
  isEmpty(createCapabilities(env, {}), "Vector");
  isEmpty(createAuditTrailList(env, {}), "Vector");
  isEmpty(createVlanInfoList(env, {}), "ArrayList");
  isEmpty(createIfcInfoList(env, {}), "ArrayList");
  isEmpty(createTextList(env, {}), "ArrayList");
  isEmpty(createObjIDSet(env, {}), "HashSet");
}

TEST_F(BuildersTest, AnAddressOfAnotherTypeIsANullInTheList) {
  const ZNRefPtr<ZNAddress> physical(new PhysicalAddress("00:11"));
  const ZNRefPtr<ZNAddress> ipv4(new InetAddressIPv4("10.0.0.1", ActiveDB));
  EXPECT_EQ(shown(createAddressList(env, {physical, ipv4, {}}, nullptr)), "[null, 10.0.0.1, null]");
}

TEST_F(BuildersTest, AMonitoredAddressWrapsThePlainOne) {
  const InetAddressIPv6 plain("2001:db8::1", InetAddressIPv6::Global, 64, ActiveDB);
  const ZNRefPtr<ZNAddress> plainHandle(new InetAddressIPv6(plain));
  EXPECT_EQ(classOf(createAddress(env, plainHandle, nullptr)), "InetAddressIPv6");
  const PingStatus pingStatus(ObjectStatus(ObjectStatus::Major), 12, 34);
  const ZNRefPtr<ZNAddress> monitored(new MonitoredInetAddressIPv6(
      plain, MonitoredInetAddressIPv6::Stale, MonitoredInetAddressIPv6::Deprecated,
      MonitoredInetAddressIPv6::Stateful, pingStatus, ObjID("17")));
  const LocalRef<> twin = createAddress(env, monitored, nullptr);
  EXPECT_EQ(classOf(twin), "MonitoredInetAddressIPv6");
  EXPECT_EQ(get(twin, "getAddressAsString", "Ljava/lang/String;"), "2001:db8::1");
  const std::string ours = "Lcom/corvane/tv/zntopology/";
  EXPECT_EQ(get(twin, "getNetToMediaState", (ours + "IPv6NetToMediaState;").c_str()), "STALE");
  EXPECT_EQ(get(twin, "getAddrType", (ours + "IPv6AddrType;").c_str()), "STATEFUL");
  EXPECT_EQ(get(twin, "getAddrStatus", (ours + "IPv6AddrStatus;").c_str()), "DEPRECATED");
  EXPECT_EQ(get(twin, "getPingStatus", (ours + "PingStatus;").c_str()),
            "PingStatus[status=MAJOR, lastPingTime=12, lastStatusUpdateTime=34]");
  EXPECT_EQ(get(twin, "getQRMObjID", (ours + "ObjID;").c_str()), "17");
}

TEST_F(BuildersTest, ALinkBeginsAtTheNodesSide) {
  EXPECT_EQ(shown(createConnData(env, *record("si", "sn", "di", "dn", true))),
            "ZorbConnData[srcNodeID=sn, srcInterfaceID=si, destNodeID=dn, destInterfaceID=di]");
  EXPECT_EQ(shown(createConnData(env, *record("si", "sn", "di", "dn", false))),
            "ZorbConnData[srcNodeID=dn, srcInterfaceID=di, destNodeID=sn, destInterfaceID=si]");
  EXPECT_EQ(shown(createList(env, {ZNConnection(*record("si", "sn", "di", "dn", false))})),
            "[ZorbConnection[connData=ZorbConnData[srcNodeID=dn, srcInterfaceID=di, "
            "destNodeID=sn, destInterfaceID=si]]]");
}

TEST_F(BuildersTest, AUserVariableKeepsItsKind) {
  const auto twin = [&](const VarValue& value) {
    return shown(createUserDefVar(env, UserDefVar("v", value)));
  };
  EXPECT_EQ(twin(VarValue(short{7})), "UserDefVar[name=v, value=7]");
  EXPECT_EQ(twin(VarValue(-7)), "UserDefVar[name=v, value=-7]");
  EXPECT_EQ(twin(VarValue(7LL)), "UserDefVar[name=v, value=0]");
  EXPECT_EQ(twin(VarValue("text")), "UserDefVar[name=v, value=text]");
  EXPECT_EQ(twin(VarValue(0.5F)), "UserDefVar[name=v, value=0.5]");
  EXPECT_EQ(twin(VarValue(true)), "UserDefVar[name=v, value=true]");
}

TEST_F(BuildersTest, AUserVariableWithoutAFormInJavaHasANullValue) {
  const VarValue octets("abc", 3U);
  VarValue capability;
  capability._type = VarValue::VT_Capability;
  EXPECT_EQ(shown(createUserDefVar(env, UserDefVar("v", octets))),
            "UserDefVar[name=v, value=null]");
  EXPECT_EQ(shown(createUserDefVar(env, UserDefVar("v", capability))),
            "UserDefVar[name=v, value=null]");
}

TEST_F(BuildersTest, OnlyNodesAndInterfacesHaveCapabilities) {
  const ZNRefPtr<ZNNode> node = madeNode("n1", {}, NodeCapability::OSPF);
  EXPECT_EQ(get(createNodeNative(env, node, nullptr), "getCapabilities", "Ljava/util/List;"),
            "[Capability[name=isOSPF]]");
  const ZNRefPtr<ZNVlan> vlan(new ZNVlan(entityOf("v1", E_Vlan)));
  EXPECT_EQ(get(createVlan(env, vlan, nullptr), "getCapabilities", "Ljava/util/List;"), "[]");
}

TEST_F(BuildersTest, AnObjectWithoutAnIdentifierIsNeverLookedFor) {
  // What the cache holds under the text of an empty identifier.
  jobject const cache = make("ZorbTopoCache");
  const LocalRef<> none;
  const LocalRef<> id = env.make<T_ObjID>(env.text(ObjID().getStrValue()));
  const LocalRef<> entity =
      env.make<T_ZorbEntity>(id, none, none, none, none, none, none, none, none, none, none, none,
                             none, jlong{0}, jlong{0}, none, none, none, jlong{0}, jint{0});
  const LocalRef<> other = env.make<T_ZorbVlan>(entity, none);
  ASSERT_TRUE(env.call<M_addVlan>(cache, other));
  const LocalRef<> found = env.call<M_hasVlanID>(cache, env.text(ObjID().getStrValue()));
  ASSERT_TRUE(jni->IsSameObject(found.get(), other.get()));

  const ZNRefPtr<ZNVlan> vlan(new ZNVlan(entityOf(ObjID(), E_Vlan)));
  const LocalRef<> made = createVlan(env, vlan, cache);
  ASSERT_TRUE(made);
  EXPECT_FALSE(jni->IsSameObject(made.get(), other.get()));
}

TEST_F(BuildersTest, ManyInterfacesNeedFewLocalReferences) {
  std::list<ZNRefPtr<ZNInterface>> interfaces;
  for (int i = 0; i < 100000; ++i) {
    const ObjID id(i + 1);
    interfaces.push_back(
        new ZNInterface(entityOf(id, E_Interface), {record(id, "n1", "far", "n2")}));
  }
  const LocalRef<> list = createInterfaceList(env, interfaces, nullptr);
  jclass const type = jni->GetObjectClass(list.get());
  EXPECT_EQ(jni->CallIntMethod(list.get(), jni->GetMethodID(type, "size", "()I")), 100000);
  ASSERT_FALSE(jni->ExceptionCheck());
  // What the checks of the JVM say of references is looked at when the test ends.
}

TEST_F(BuildersTest, AnAuditTrailHasItsActionsInTheirOrder) {
  const ZNRefPtr<ZNAuditTrail> trail(new ZNAuditTrail("n1", E_Node));
  trail->addAuditAction(ZNAuditAction(12, ZNAuditAction::ObjectCreation, 0, "first"));
  trail->addAuditAction(
      ZNAuditAction(34, ZNAuditAction::AssociationChange, ZNAuditAction::L2Connection, "second"));
  EXPECT_EQ(
      shown(createAuditTrailList(env, {trail, {}})),
      "[ZorbAuditTrail[objID=n1, objectType=E_NODE, actions=["
      "ZorbAuditAction[time=12, type=OBJECT_CREATION, detailType=NOT_APPLICABLE, info=first], "
      "ZorbAuditAction[time=34, type=ASSOCIATION_CHANGE, detailType=L2_CONNECTION, "
      "info=second]]]]");
}

TEST_F(BuildersTest, AStateHasItsNumberAndItsTime) {
  EXPECT_EQ(
      shown(createTopologyState(env, ZNTopologyState(ZNTopologyState::READY, 1234567890123L, {}))),
      "TopologyState[state=0, changeTime=1234567890123]");
}

TEST_F(BuildersTest, IdentifiersAreAppendedToAListAndToNothingElse) {
  const LocalRef<> list = createObjIDList(env, {ObjID("before")});
  populateObjIDList(env, {ObjID("x"), ObjID("y")}, list.get());
  EXPECT_EQ(shown(list), "[before, x, y]");
  const LocalRef<> set = createObjIDSet(env, {});
  populateObjIDList(env, {ObjID("x")}, set.get());
  populateObjIDList(env, {ObjID("x")}, nullptr);
  EXPECT_EQ(shown(set), "[]");
}

TEST_F(BuildersTest, CountsBecomeTwoArrays) {
  char** names = nullptr;
  int* counts = nullptr;
  ASSERT_EQ(createNameCountArrayFromMap({{"1", 24}, {"2", 3}}, &names, &counts), 2);
  EXPECT_STREQ(names[0], "1");
  EXPECT_STREQ(names[1], "2");
  EXPECT_EQ(counts[0], 24);
  EXPECT_EQ(counts[1], 3);
  freeNameCountArray(names, counts, 2);
  EXPECT_EQ(createNameCountArrayFromMap({}, &names, &counts), 0);
  EXPECT_EQ(names, nullptr);
  freeNameCountArray(names, counts, 0);
}

TEST_F(BuildersTest, APendingExceptionStopsABuilder) {
  jni->ThrowNew(jni->FindClass("java/lang/IllegalStateException"), "of the caller");
  const ZNRefPtr<ZNNode> node = madeNode("n1", {record("i1", "n1", "i2", "n2")});
  EXPECT_FALSE(createNodeNative(env, node, nullptr));
  EXPECT_FALSE(createObjIDList(env, {ObjID("x")}));
  EXPECT_FALSE(createList(env, {ZNConnection(*record("si", "sn", "di", "dn"))}));
  // It is the caller's, and still there.
  EXPECT_TRUE(jni->ExceptionCheck());
  jni->ExceptionClear();
}

}  // namespace
}  // namespace zntopo::test
