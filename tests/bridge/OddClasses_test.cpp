// Builders and natives in a JVM whose class library is not whole: classes are missing, or lack a
// constructor, a method or a field, or throw when they are made.
#include <com_corvane_tv_zntopology_ZorbNative.h>
#include <gmock/gmock.h>

#include "tests/support/CapturedLog.h"
#include "tests/support/Jvm.h"
#include "tests/support/StoredNetwork.h"
#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"

extern "C" jobject JNICALL Java_com_corvane_tv_zntopology_ZorbNative_getNativeTopoInfo(JNIEnv*,
                                                                                       jobject,
                                                                                       jobject);

namespace zntopo::test {
namespace {

using namespace zntopo::bridge;
using testing::Contains;
using Lines = std::vector<std::string>;

class OddClassesTest : public JvmTest {
 protected:
  /// Has a filter ask for a constant, which is null.
  void ask(jobject filter, const char* setter, const std::string& type) {
    const LocalRef<jclass> filterType(jni, jni->GetObjectClass(filter));
    jmethodID const method = jni->GetMethodID(
        filterType.get(), setter, ("(Lcom/corvane/tv/zntopology/" + type + ";)V").c_str());
    const jvalue none{};
    jni->CallVoidMethodA(filter, method, &none);
    ASSERT_FALSE(jni->ExceptionCheck());
  }

  const CapturedLog log{MC_MINOR};
};

TEST_F(OddClassesTest, AClassThatIsMissingIsLoggedAndNull) {
  EXPECT_FALSE(createConnData(env, *record("si", "sn", "di", "dn")));
  EXPECT_EQ(log.lines(), Lines{"Unable to access ZorbConnData in createConnData! \n"});
  EXPECT_FALSE(jni->ExceptionCheck());
}

TEST_F(OddClassesTest, AConstructorThatIsMissingIsLoggedAndNull) {
  EXPECT_FALSE(env.make<T_EntityType>(jint{1}));
  EXPECT_EQ(log.lines(), Lines{"Unable to access EntityType constructor in createEntityType! \n"});
}

TEST_F(OddClassesTest, WhatIsMissingInOneElementIsLeftOutOfTheList) {
  const ZNRefPtr<ZNConnData> link = record("si", "sn", "di", "dn");
  EXPECT_EQ(shown(createConnDataList(env, {link, link})), "[]");
  EXPECT_EQ(log.lines(), (Lines{"Unable to access ZorbConnData in createConnData! \n",
                                "Failed to create ZorbConnData in createConnDataList \n",
                                "Unable to access ZorbConnData in createConnData! \n",
                                "Failed to create ZorbConnData in createConnDataList \n"}));
}

TEST_F(OddClassesTest, ACacheWithoutItsMethodsMakesNothing) {
  EXPECT_FALSE(createNodeNative(env, madeNode("n1"), nullptr));
  EXPECT_EQ(log.lines(), Lines{"Unable to retrieve ZorbTopoCache methods! \n"});
}

TEST_F(OddClassesTest, AnExceptionOfAConstructorStaysForTheCaller) {
  EXPECT_FALSE(createCapabilities(env, {ZNCapability("isOSPF"), ZNCapability("isBGP")}));
  EXPECT_EQ(raised(), "java.lang.IllegalArgumentException: isOSPF");
  EXPECT_EQ(log.lines(), Lines{"Could not create Capability! \n"});
}

TEST_F(OddClassesTest, AnExceptionThatIsDescribedEndsThere) {
  testing::internal::CaptureStderr();
  EXPECT_FALSE(env.make<T_ZorbHSRPState>(jint{6}));
  EXPECT_FALSE(jni->ExceptionCheck());
  EXPECT_THAT(testing::internal::GetCapturedStderr(),
              testing::HasSubstr("java.lang.IllegalArgumentException: state 6"));
  EXPECT_EQ(log.lines(), Lines{"Could not create ZorbHSRPState! \n"});
}

TEST_F(OddClassesTest, AStatusWithoutItsMethodIsLogged) {
  setStatus(env, make("ZorbTopoStatus"), {ZN_API_NO_PATH, ""});
  EXPECT_EQ(log.lines(), Lines{"Unable to access ZorbTopoStatus setStatus method! \n"});
}

TEST_F(OddClassesTest, AnIdentifierWithoutItsMethodIsLoggedAndNotRead) {
  ObjID id;
  EXPECT_FALSE(readObjID(env, make("ObjID"), "getNodeNativeByQRMObjID", id));
  EXPECT_EQ(log.lines(), Lines{"Unable to access ObjID getStringValue method! \n"});
}

TEST_F(OddClassesTest, AnIdentifierWithoutItsFieldIsAnEmptyOne) {
  EXPECT_TRUE(getNativeObjID(env, make("ObjID")).isNull());
}

TEST_F(OddClassesTest, AnEntityThatThrowsIsNullWhateverItsPartsAre) {
  MCLog::setDebuggingLevel(MC_MAJOR);
  const ZNRefPtr<ZNEntity> vlan(new ZNVlan());
  testing::internal::CaptureStderr();
  EXPECT_FALSE(createEntity(env, vlan, nullptr));
  EXPECT_THAT(testing::internal::GetCapturedStderr(),
              testing::HasSubstr("java.lang.IllegalArgumentException: entity"));
  EXPECT_FALSE(jni->ExceptionCheck());
  EXPECT_EQ(log.lines(), Lines{"Could not create Entity! \n"});
}

TEST_F(OddClassesTest, AConfigurationWithoutASwitchKeepsItAndSetsTheOthers) {
  ZNTopoConfig before;
  before.setUseCache(false);
  ZNTopoAPI::setTopoConfiguration(before);
  MCLog::setDebuggingLevel(MC_INFO);
  Java_com_corvane_tv_zntopology_ZorbNative_setTopologyConfigurationNative(
      jni, nullptr, make("TopologyConfiguration"));
  const ZNTopoConfig config = ZNTopoAPI::getTopoConfiguration();
  EXPECT_FALSE(config.toUseCache());
  EXPECT_FALSE(config.toLoadNodeVlanInfo());
  EXPECT_FALSE(config.toLoadNodeL2ConnectionInfo());
  EXPECT_TRUE(config.getEnableFIFOCacheSwap());
  EXPECT_FALSE(usesJavaInterfaceCache());
  EXPECT_THAT(log.lines(), Contains("javaNativeGetInstanceBoolean() - enableTopoCache fail \n"));
}

TEST_F(OddClassesTest, AConstantWithoutItsClassOrItsNumberIsLoggedAndNotAskedFor) {
  jobject const filterArg = make("TopoFilter");
  ask(filterArg, "setIPLevel", "IPLevel");
  ask(filterArg, "setEntityType", "EntityType");
  ask(filterArg, "setV6ScopeType", "IPv6ScopeType");
  ask(filterArg, "setAddressType", "AddressType");
  ZNTopoFilter filter;
  EXPECT_TRUE(populateFilter(env, filterArg, filter));
  for (const auto field : {ZNTopoFilter::F_IPLevel, ZNTopoFilter::F_EntityType,
                           ZNTopoFilter::F_V6ScopeType, ZNTopoFilter::F_AddressType}) {
    EXPECT_TRUE(filter.isFieldIgnored(field)) << field;
  }
  EXPECT_EQ(log.lines(), (Lines{"Unable to access IPLevel::toInt in populateFilter! \n",
                                "Unable to access EntityType::toInt in populateFilter! \n",
                                "Unable to access IPv6ScopeType in populateFilter! \n",
                                "Unable to access AddressType in populateFilter! \n"}));
}

TEST_F(OddClassesTest, ASizeThatCantBeFilledIsAnException) {
  TestStore store;
  store.setReady();
  EXPECT_EQ(Java_com_corvane_tv_zntopology_ZorbNative_getNativeTopoInfo(jni, nullptr, nullptr),
            nullptr);
  EXPECT_EQ(raised(),
            "java.lang.IllegalStateException: Could not set the field myNumNode of ZorbTopoInfo");
}

}  // namespace
}  // namespace zntopo::test
