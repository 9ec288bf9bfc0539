#include "zntopo/bridge/detail/Arguments.h"

#include <gmock/gmock.h>

#include "tests/support/CapturedLog.h"
#include "tests/support/Jvm.h"
#include "zntopo/bridge/detail/NativeFrame.h"

namespace zntopo::test {
namespace {

using namespace zntopo::bridge;
using testing::Contains;

class ArgumentsTest : public JvmTest {
 protected:
  static std::string path(const std::string& name) { return "com/corvane/tv/zntopology/" + name; }

  jobject constant(const std::string& type, const char* name) {
    jclass const found = jni->FindClass(path(type).c_str());
    return jni->GetStaticObjectField(
        found, jni->GetStaticFieldID(found, name, ("L" + path(type) + ";").c_str()));
  }
  void set(jobject filter, const char* method, const std::string& descriptor, jvalue value) {
    jmethodID const id = jni->GetMethodID(jni->GetObjectClass(filter), method, descriptor.c_str());
    jni->CallVoidMethodA(filter, id, &value);
    ASSERT_FALSE(jni->ExceptionCheck());
  }
  void setText(jobject filter, const char* method, const std::string& text) {
    set(filter, method, "(Ljava/lang/String;)V", {.l = newJavaText(jni, text)});
  }
  void setConstant(jobject filter, const char* method, const std::string& type, const char* name) {
    set(filter, method, "(L" + path(type) + ";)V", {.l = constant(type, name)});
  }
};

TEST_F(ArgumentsTest, AFilterThatIgnoresAllFieldsLeavesTheDefaults) {
  ZNTopoFilter filter;
  EXPECT_TRUE(populateFilter(env, make("TopoFilter"), filter));
  const ZNTopoFilter defaults;
  for (int field = 0; field < 12; ++field) {
    EXPECT_TRUE(filter.isFieldIgnored(static_cast<ZNTopoFilter::Field>(field))) << field;
  }
  EXPECT_EQ(filter.getIPLevel(), defaults.getIPLevel());
  EXPECT_EQ(filter.getAddressType(), defaults.getAddressType());
}

TEST_F(ArgumentsTest, EachFieldOfAFilterCrossesButCapabilities) {
  const CapturedLog log(MC_INFO);
  jobject const filterArg = make("TopoFilter");
  setConstant(filterArg, "setIPLevel", "IPLevel", "IPV4");
  setConstant(filterArg, "setAddressType", "AddressType", "DNS");
  setConstant(filterArg, "setV6ScopeType", "IPv6ScopeType", "SITE_LOCAL");
  setConstant(filterArg, "setEntityType", "EntityType", "E_VLAN");
  setText(filterArg, "setRegexEntityName", "core%");
  setText(filterArg, "setRegexAddressStr", "10.%");
  setText(filterArg, "setPrefixAddress", "2001:db8::");
  set(filterArg, "setPrefixLength", "(I)V", {.i = 48});
  set(filterArg, "setCapabilityNames", "(Ljava/util/List;)V", {.l = nullptr});
  set(filterArg, "setExcludeCapabilityNames", "(Ljava/util/List;)V", {.l = nullptr});
  ZNTopoFilter filter;
  EXPECT_TRUE(populateFilter(env, filterArg, filter));
  EXPECT_EQ(filter.getIPLevel(), ZNEntity::IPv4);
  EXPECT_EQ(filter.getAddressType(), ZNAddress::DNS);
  EXPECT_EQ(filter.getV6ScopeType(), InetAddressIPv6::SiteLocal);
  EXPECT_EQ(filter.getEntityType(), E_Vlan);
  EXPECT_EQ(filter.getRegexEntityName(), "core%");
  EXPECT_EQ(filter.getAddressStr(), "10.%");
  EXPECT_EQ(filter.getPrefixAddressStr(), "2001:db8::");
  EXPECT_EQ(filter.getPrefixLength(), 48);
  EXPECT_TRUE(filter.isFieldIgnored(ZNTopoFilter::F_Capability));
  EXPECT_TRUE(filter.isFieldIgnored(ZNTopoFilter::F_ExCapability));
  EXPECT_EQ(log.lines(), (std::vector<std::string>{
                             "Filter RegexName Set! \n", "Filter RegexAddressString Set! \n",
                             "Filter IPLevel Set! \n", "EntityType Filter Set! \n",
                             "Filter V6ScopeType Set \n", "Filter AddressType Set! \n",
                             "Filter PrefixLength Set! \n", "Filter PrefixAddressString Set! \n"}));
}

TEST_F(ArgumentsTest, ANullValueOfAFilterSetsNothing) {
  jobject const filterArg = make("TopoFilter");
  set(filterArg, "setRegexEntityName", "(Ljava/lang/String;)V", {.l = nullptr});
  set(filterArg, "setIPLevel", "(L" + path("IPLevel") + ";)V", {.l = nullptr});
  ZNTopoFilter filter;
  EXPECT_TRUE(populateFilter(env, filterArg, filter));
  EXPECT_TRUE(filter.isFieldIgnored(ZNTopoFilter::F_RegexEntityName));
  EXPECT_TRUE(filter.isFieldIgnored(ZNTopoFilter::F_IPLevel));
}

TEST_F(ArgumentsTest, AStatusOfSuccessIsNumberZeroWithAnEmptyText) {
  jobject const statusArg = make("ZorbTopoStatus");
  setStatus(env, statusArg, {ZN_API_NO_PATH, "more"});
  EXPECT_EQ(shown(statusArg), "19 No layer 2 path is found: more");
  setStatus(env, statusArg, {});
  EXPECT_EQ(shown(statusArg), "0 Successful API Call");
}

TEST_F(ArgumentsTest, AStatusThatIsNoneIsToldNothing) {
  setStatus(env, nullptr, {ZN_API_NO_PATH, ""});
  setStatus(env, make("ZorbTopoCache"), {ZN_API_NO_PATH, ""});
  EXPECT_FALSE(jni->ExceptionCheck());
}

TEST_F(ArgumentsTest, AFieldThatCantBeReadLeavesTheValue) {
  bool flag = true;
  EXPECT_EQ(javaNativeGetInstanceBoolean(env, make("TopologyConfiguration"), "none", flag), -1);
  EXPECT_EQ(javaNativeGetInstanceBoolean(env, nullptr, "enableTopoCache", flag), -1);
  EXPECT_TRUE(flag);
  std::string text = "before";
  EXPECT_EQ(javaNativeGetInstanceString(env, make("TopoFilter"), "prefixLength", text), -1);
  EXPECT_EQ(javaNativeGetInstanceString(env, make("ObjID"), "myID", text), 0);
  EXPECT_EQ(text, "before");
}

TEST_F(ArgumentsTest, AnObjectFieldIsSetByItsNameAndDescriptor) {
  const CapturedLog log(MC_CRITICAL);
  jobject const info = make("ZorbTopoInfo");
  const char* const text = "Ljava/lang/String;";
  EXPECT_EQ(javaNativeSetInstanceObject(env, info, "topologyState", newJavaText(jni, "up"), text),
            0);
  std::string value;
  EXPECT_EQ(javaNativeGetInstanceString(env, info, "topologyState", value), 0);
  EXPECT_EQ(value, "up");
  EXPECT_EQ(javaNativeSetInstanceObject(env, info, "none", nullptr, text), -1);
  EXPECT_EQ(javaNativeSetInstanceObject(env, nullptr, "none", nullptr, text), -1);
  EXPECT_EQ(log.lines(), (std::vector<std::string>{"Error in GetFieldID() - Ljava/lang/String; \n",
                                                   "Error in GetObjectClass() - none \n"}));
}

TEST_F(ArgumentsTest, AnArrayOfIdentifiersIsASetOrAList) {
  const CapturedLog log(MC_INFO);
  jclass const type = jni->FindClass("java/lang/Object");
  jobjectArray const ids = jni->NewObjectArray(4, type, nullptr);
  for (const int i : {0, 2}) {
    const LocalRef<> id = env.make<T_ObjID>(env.text("n1"));
    jni->SetObjectArrayElement(ids, i, id.get());
    ASSERT_FALSE(jni->ExceptionCheck());
  }
  const LocalRef<jstring> other = env.text("no identifier");
  jni->SetObjectArrayElement(ids, 3, other.get());
  ASSERT_FALSE(jni->ExceptionCheck());
  EXPECT_EQ(*createObjIDListNative(env, ids),
            (std::list<ObjID>{ObjID("n1"), ObjID(), ObjID("n1"), ObjID()}));
  EXPECT_EQ(createObjIDListNative(env, nullptr)->size(), 0U);
  EXPECT_THAT(createObjIDSetNative(env, ids)->count(ObjID("n1")), 1U);
  EXPECT_THAT(log.lines(), Contains("jsize length = 4 \n"));
  EXPECT_THAT(log.lines(), Contains("String = n1 \n"));
  EXPECT_THAT(log.lines(), Contains("javaNativeGetInstanceString() fail \n"));
  EXPECT_THAT(log.lines(), Contains("Size of ObjID list = 4 \n"));
}

}  // namespace
}  // namespace zntopo::test
