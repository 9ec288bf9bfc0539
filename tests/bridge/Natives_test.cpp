// Natives as the JVM calls them, on a store: what they log, and what they tell a status.
#include <com_corvane_tv_zntopology_ZorbNative.h>
#include <gmock/gmock.h>

#include "tests/support/CapturedLog.h"
#include "tests/support/Jvm.h"
#include "tests/support/StatementSpy.h"
#include "tests/support/StoredNetwork.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/bridge/detail/NativeFrame.h"
#include "zntopo/platform/tvutil/JavaNative.h"

// The name under which the JVM finds a native.
#define NATIVE(name) Java_com_corvane_tv_zntopology_ZorbNative_##name

namespace zntopo::test {
namespace {

using namespace zntopo::bridge;
using testing::Contains;
using testing::HasSubstr;
using Lines = std::vector<std::string>;

class NativesTest : public JvmTest {
 protected:
  NativesTest() {
    store.setReady();
    ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
    ZNTopoAPI_Impl::cache()->clear(true);
  }

  /// What the log says beside the entry to scopes, the exit from them, and that an API is made.
  static Lines said(const CapturedLog& log) {
    Lines lines = log.lines();
    std::erase_if(lines, [](const std::string& line) {
      return line[0] == '+' || line[0] == '-' || line.rfind("Creating ZNTopoAPI", 0) == 0;
    });
    return lines;
  }

  TestStore store;
  jobject const status = make("ZorbTopoStatus");
};

// ---- setting up ----

TEST_F(NativesTest, InitZorbLogsWhatItIsTold) {
  const CapturedLog log(MC_TRACE_L1);
  EXPECT_EQ(NATIVE(initZorb)(jni, nullptr, 30, env.text("harbor").get()), 1);
  EXPECT_EQ(said(log), Lines{"Entering Native::initZorb() with latency = 30, domain = harbor \n"});
}

TEST_F(NativesTest, ANewLevelOfTheLogIsLoggedAtItself) {
  const CapturedLog log(MC_MINOR);
  NATIVE(setNativeMClogLevel)(jni, nullptr, 2);
  EXPECT_EQ(MCLog::debugLevel(), MC_TRACE_L1);
  EXPECT_EQ(said(log), Lines{"New logging level changed from 4 to 2\n"});
  NATIVE(setNativeMClogLevel)(jni, nullptr, 5);
  EXPECT_EQ(MCLog::debugLevel(), MC_MAJOR);
  EXPECT_EQ(said(log).size(), 1U);
}

TEST_F(NativesTest, AConfigurationSetsItsFiveSwitches) {
  const CapturedLog log(MC_INFO);
  jobject const java = make("TopologyConfiguration");
  for (const char* field : {"enableNodeVlanInfoLoad", "enableNodeL2ConnectionInfoLoad",
                            "enableTopoCache", "enableJavaInterfaceCache"}) {
    ASSERT_EQ(javaNativeSetInstanceBooleanOrDeleteAndException(jni, "C", java, field, false), 0);
  }
  NATIVE(setTopologyConfigurationNative)(jni, nullptr, java);
  const ZNTopoConfig config = ZNTopoAPI::getTopoConfiguration();
  EXPECT_FALSE(config.toLoadNodeVlanInfo());
  EXPECT_FALSE(config.toLoadNodeL2ConnectionInfo());
  EXPECT_FALSE(config.getEnableFIFOCacheSwap());
  EXPECT_FALSE(config.toUseCache());
  EXPECT_FALSE(usesJavaInterfaceCache());
  EXPECT_THAT(said(log),
              Contains("javaNativeGetInstanceBoolean() - enableJavaInterfaceCache set to [F] \n"));

  NATIVE(setTopologyConfigurationNative)(jni, nullptr, make("TopologyConfiguration"));
  EXPECT_TRUE(ZNTopoAPI::getTopoConfiguration().toUseCache());
  EXPECT_TRUE(usesJavaInterfaceCache());
  EXPECT_THAT(said(log),
              Contains("javaNativeGetInstanceBoolean() - enableJavaInterfaceCache set to [T] \n"));
}

TEST_F(NativesTest, AnObjectWithoutTheSwitchesKeepsThemAndTheLogNamesThem) {
  ZNTopoConfig before;
  before.setUseCache(false);
  before.setLoadNodeVlanInfo(false);
  ZNTopoAPI::setTopoConfiguration(before);
  const CapturedLog log(MC_INFO);
  NATIVE(setTopologyConfigurationNative)(jni, nullptr, make("ObjID"));
  EXPECT_FALSE(ZNTopoAPI::getTopoConfiguration().toUseCache());
  EXPECT_FALSE(ZNTopoAPI::getTopoConfiguration().toLoadNodeVlanInfo());
  EXPECT_TRUE(ZNTopoAPI::getTopoConfiguration().toLoadNodeL2ConnectionInfo());
  EXPECT_EQ(
      said(log),
      (Lines{"javaNativeGetInstanceBoolean() fail \n", "javaNativeGetInstanceBoolean() fail \n",
             "javaNativeGetInstanceBoolean() - enableTopoCacheFIFOSwap fail \n",
             "javaNativeGetInstanceBoolean() - enableTopoCache fail \n",
             "javaNativeGetInstanceBoolean() - enableJavaInterfaceCache fail \n"}));
}

// ---- failures ----

TEST_F(NativesTest, ASubnetThatIsNotWhollyReadIsNullWithTheStatus) {
  store.addEntity("s", "net", 7);
  jobject const cache = make("ZorbTopoCache");
  const LocalRef<> id = createID(env, ObjID("s"));
  const auto ask = [&] {
    return LocalRef<>(jni, NATIVE(getSubnetNativeByObjID)(jni, nullptr, id.get(), status, cache));
  };
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "from address");
  EXPECT_FALSE(ask());
  EXPECT_THAT(shown(status), HasSubstr("15 Error in executing SQL statement"));
  EXPECT_FALSE(env.call<M_hasSubnetID>(cache, env.text("s")));
  spy.succeed();
  ZNTopoAPI_Impl::cache()->clear(true);
  EXPECT_TRUE(ask());
  EXPECT_EQ(shown(status), "0 Successful API Call");
}

/// A native that answers with a list, and what the log calls the operation behind it.
struct ListNative {
  const char* shownAs;
  jobject (*call)(JNIEnv* jni, jobject status);
};

constexpr ListNative kListNatives[] = {
    {"Problem in Status returned from getSubnetsByObjIDList",
     [](JNIEnv* jni, jobject status) {
       return NATIVE(getSubnetsNativeByObjIDs)(jni, nullptr, nullptr, 0, status, nullptr, 0, 1, -1);
     }},
    {"Problem in Status returned from getInterfacesByObjIDList",
     [](JNIEnv* jni, jobject status) {
       return NATIVE(getInterfacesByObjIDListNative)(jni, nullptr, nullptr, 0, 1, status, nullptr);
     }},
    {"Problem in Status returned from getIfcInfosByObjIDList",
     [](JNIEnv* jni, jobject status) {
       return NATIVE(getIfcInfosByObjIDListNative)(jni, nullptr, nullptr, 0, 1, 0, status);
     }},
    {"Problem in Status returned from getIfcsByType",
     [](JNIEnv* jni, jobject status) {
       return NATIVE(getIfcsByTypeNative)(jni, nullptr, 2, status, nullptr);
     }},
    {"Problem in Status returned from getIfcsByObjIDList",
     [](JNIEnv* jni, jobject status) {
       return NATIVE(getIfcsByObjIDListNative)(jni, nullptr, nullptr, status, nullptr);
     }},
    {"Problem in Status returned from getHSRPsByObjIDList",
     [](JNIEnv* jni, jobject status) {
       return NATIVE(getHSRPsNativeByObjIDs)(jni, nullptr, nullptr, 1, status, nullptr);
     }},
    {"Problem in Status returned from resolveIPv6ToDNS",
     [](JNIEnv* jni, jobject status) {
       return NATIVE(resolveIPv6ToDNSNative)(jni, nullptr, nullptr, status);
     }},
    {"Problem in Status returned from getAddrsByObjIDs",
     [](JNIEnv* jni, jobject status) {
       return NATIVE(getAddrsNativeByObjIDs)(jni, nullptr, nullptr, status, nullptr);
     }},
    {"(getL2PathNative) Problem in Status returned from getL2Path",
     [](JNIEnv* jni, jobject status) {
       return NATIVE(getL2PathNative)(jni, nullptr, nullptr, nullptr, status, nullptr, 0);
     }},
    {"(getL2PathBetweenNodesNative) Problem in Status returned from getL2Path",
     [](JNIEnv* jni, jobject status) {
       return NATIVE(getL2PathBetweenNodesNative)(jni, nullptr, nullptr, nullptr, status, nullptr,
                                                  0);
     }},
};

TEST_F(NativesTest, AListThatFailsIsNullAndTheLogNamesTheOperation) {
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "");
  const char* const text = "Ljava/lang/String;";
  for (const ListNative& native : kListNatives) {
    const CapturedLog log(MC_MAJOR);
    EXPECT_EQ(native.call(jni, status), nullptr) << native.shownAs;
    EXPECT_NE(shown(status), "0 Successful API Call") << native.shownAs;
    EXPECT_THAT(log.text(), HasSubstr(std::string(native.shownAs) + "\n     " +
                                      get(status, "getStatusMsg", text) + "\n     " +
                                      get(status, "getAuxMsg", text)));
  }
}

TEST_F(NativesTest, TheStateThatCantBeReadIsNullWithTheStatus) {
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "");
  EXPECT_EQ(NATIVE(getTopologyStateNative)(jni, nullptr, status), nullptr);
  EXPECT_THAT(shown(status), HasSubstr("15 Error in executing SQL statement"));
}

TEST_F(NativesTest, TheSizeThatCantBeReadIsNullWithTheStatusAndNoException) {
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "");
  const CapturedLog log(MC_CRITICAL);
  EXPECT_EQ(NATIVE(getNativeTopoInfo)(jni, nullptr, status), nullptr);
  EXPECT_THAT(shown(status), HasSubstr("15 Error in executing SQL statement"));
  EXPECT_THAT(said(log), Contains("getTopologyInfo() fail \n"));
  EXPECT_EQ(raised(), "null");
}

TEST_F(NativesTest, ANullListIsToldByTheStatusOfWalksAlone) {
  const CapturedLog log(MC_INFO);
  const Answer answer(env, status);
  const auto none = [](ZNTopoAPI&, ZNTopoAPIStatus&) { return ZNTopoAPI::OwnedConnectionList(); };
  const auto create = [&](const auto& list) { return createList(env, list); };
  EXPECT_FALSE(listAnswer(env, answer, {"getVlansByObjIDList"}, none, create));
  EXPECT_EQ(shown(status), "0 Successful API Call");
  EXPECT_FALSE(listAnswer(env, answer, {"getNodeNeighbors", true}, none, create));
  EXPECT_EQ(shown(status),
            "4 Node or Interface object is null during path processing: Null List from C++ API");
  EXPECT_EQ(said(log), (Lines{"Null List from C++ API \n", "Null List from C++ API \n"}));
}

// ---- what builders log ----

TEST_F(NativesTest, ANodeIsBuiltOnceForACacheAndTheLogSaysSo) {
  const ZNRefPtr<ZNNode> node = madeNode("n1");
  jobject const cache = make("ZorbTopoCache");
  const CapturedLog log(MC_INFO);
  const LocalRef<> first = createNodeNative(env, node, cache);
  EXPECT_THAT(said(log), Contains("calling ctor of entity\n"));
  EXPECT_THAT(said(log), Contains("Overall status = Normal\n"));
  EXPECT_THAT(said(log), Contains("StatusChangeTime = 0\n"));
  EXPECT_EQ(said(log).back(), "ADDING NODE TO JAVA CACHE - n1.net \n");
  const std::size_t before = said(log).size();
  EXPECT_TRUE(jni->IsSameObject(createNodeNative(env, node, cache).get(), first.get()));
  ASSERT_EQ(said(log).size(), before + 1);
  EXPECT_EQ(said(log).back(), "FOUND NODE IN JAVA CACHE - n1.net \n");
}

TEST_F(NativesTest, TheGroupsOfAnInterfaceAreSetAndTheLogSaysSo) {
  store.addInterface("i1", "n1", "eth0", {{"isHSRP", 1}});
  store.insert("hsrpaddress", {{"ObjID", "g1"}, {"AddressID", "a1"}, {"AddressIFObjID", "i1"}});
  ZNTopoAPI api;
  ZNTopoAPIStatus outcome;
  const auto interface = api.getInterfaceByObjID(ObjID("i1"), outcome);
  ASSERT_TRUE(outcome.isOK()) << outcome.getAuxMsg();
  const CapturedLog log(MC_INFO);
  const LocalRef<> twin = createInterfaceNative(env, interface, nullptr);
  EXPECT_EQ(get(twin, "getHSRPObjIDList", "Ljava/util/List;"), "[g1]");
  EXPECT_THAT(said(log), Contains("Setting HSRP Object List for interface \n"));
}

TEST_F(NativesTest, IdentifiersThatWereNotFoundAreLogged) {
  const CapturedLog log(MC_INFO);
  const LocalRef<> list = createObjIDList(env, {});
  populateObjIDList(env, {ObjID("x"), ObjID("y")}, list.get());
  EXPECT_EQ(shown(list), "[x, y]");
  EXPECT_EQ(said(log), (Lines{"ID = x\n", "ID = y\n"}));
}

}  // namespace
}  // namespace zntopo::test
