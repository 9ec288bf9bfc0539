// The numbers and texts of the Java class library against the library's own.
#include <cstdlib>
#include <map>

#include "tests/support/Jvm.h"
#include "zntopo/api/ZNAuditTrail.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/model/IfStatus.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"
#include "zntopo/model/SnmpState.h"
#include "zntopo/model/TopologyAttributeType.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/model/ZNHSRPAddressInfo.h"

namespace zntopo::test {
namespace {

using Numbers = std::map<std::string, int>;

class ConstantsTest : public JvmTest {
 protected:
  /// The constants of a class as "NAME number" pairs, by reflection.
  Numbers constantsOf(const std::string& name) {
    Numbers numbers;
    jclass const type = jni->FindClass(("com/corvane/tv/zntopology/" + name).c_str());
    jclass const classType = jni->FindClass("java/lang/Class");
    jmethodID const getFields =
        jni->GetMethodID(classType, "getFields", "()[Ljava/lang/reflect/Field;");
    auto* const fields = static_cast<jobjectArray>(jni->CallObjectMethod(type, getFields));
    EXPECT_FALSE(jni->ExceptionCheck());
    jclass const fieldType = jni->FindClass("java/lang/reflect/Field");
    jmethodID const getName = jni->GetMethodID(fieldType, "getName", "()Ljava/lang/String;");
    jmethodID const toInt = jni->GetMethodID(type, "toInt", "()I");
    for (jsize i = 0; i < jni->GetArrayLength(fields); ++i) {
      const bridge::LocalRef<> field(jni, jni->GetObjectArrayElement(fields, i));
      const bridge::LocalRef<jstring> text(
          jni, static_cast<jstring>(jni->CallObjectMethod(field.get(), getName)));
      EXPECT_FALSE(jni->ExceptionCheck());
      const std::string constant = nativeText(jni, text.get());
      jfieldID const id = jni->GetStaticFieldID(
          type, constant.c_str(), ("Lcom/corvane/tv/zntopology/" + name + ";").c_str());
      const bridge::LocalRef<> value(jni, jni->GetStaticObjectField(type, id));
      numbers[constant] = jni->CallIntMethod(value.get(), toInt);
      EXPECT_FALSE(jni->ExceptionCheck());
    }
    return numbers;
  }
};

TEST_F(ConstantsTest, EachEnumerationHasTheNumbersOfTheLibrary) {
  EXPECT_EQ(constantsOf("EntityType"), (Numbers{{"E_UNKNOWN", E_Unknown},
                                                {"E_NODE", E_Node},
                                                {"E_INTERFACE", E_Interface},
                                                {"E_LOGICAL_INTERFACE", E_LogicalInterface},
                                                {"E_VLAN", E_Vlan},
                                                {"E_CARD", E_Card},
                                                {"E_PSU", E_PSU},
                                                {"E_SUBNET", E_Subnet},
                                                {"E_MODULE", E_Module},
                                                {"E_MESH", E_Mesh},
                                                {"E_HSRP", E_HSRP},
                                                {"E_IFC", E_IfC},
                                                {"E_ADDRESS", E_Address}}));
  EXPECT_EQ(constantsOf("ObjectStatus"), (Numbers{{"NO_STATUS", ObjectStatus::NoStatus},
                                                  {"NORMAL", ObjectStatus::Normal},
                                                  {"UNKNOWN", ObjectStatus::Unknown},
                                                  {"WARNING", ObjectStatus::Warning},
                                                  {"MARGINAL", ObjectStatus::Marginal},
                                                  {"MAJOR", ObjectStatus::Major},
                                                  {"CRITICAL", ObjectStatus::Critical},
                                                  {"UNMANAGED", ObjectStatus::Unmanaged},
                                                  {"RESTRICTED", ObjectStatus::Restricted},
                                                  {"TESTING", ObjectStatus::Testing},
                                                  {"DISABLED", ObjectStatus::Disabled}}));
  EXPECT_EQ(constantsOf("IPLevel"), (Numbers{{"ALL_PROTOCOL", ZNEntity::AllProtocol},
                                             {"IPV4", ZNEntity::IPv4},
                                             {"IPV6", ZNEntity::IPv6}}));
  EXPECT_EQ(constantsOf("SnmpState"), (Numbers{{"RESPONDING", RESPONDING},
                                               {"NOT_RESPONDING", NOT_RESPONDING},
                                               {"UNREACHABLE", UNREACHABLE},
                                               {"AGENT_DOWN", AGENT_DOWN},
                                               {"DISABLED", SnmpState::Disabled}}));
  EXPECT_EQ(constantsOf("PingState"), (Numbers{{"PING_RESPONDING", Ping_Responding},
                                               {"PING_NOT_RESPONDING", Ping_NotResponding},
                                               {"PING_UNREACHABLE", Ping_Unreachable},
                                               {"PING_AGENT_DOWN", Ping_AgentDown},
                                               {"PING_DISABLED", Ping_Disabled}}));
  EXPECT_EQ(constantsOf("IFAdminStatus"),
            (Numbers{{"UP", Up}, {"DOWN", Down}, {"TESTING", Testing}}));
  EXPECT_EQ(constantsOf("IFOperStatus"), (Numbers{{"UP", up},
                                                  {"DOWN", down},
                                                  {"TESTING", testing},
                                                  {"UNKNOWN", unknown},
                                                  {"DORMANT", dormant},
                                                  {"NOT_PRESENT", notPresent},
                                                  {"LOWER_LAYER_DOWN", lowerLayerDown}}));
  using Hsrp = ZNHSRPAddressInfo;
  EXPECT_EQ(constantsOf("ZorbHSRPState"), (Numbers{{"INITIAL", Hsrp::Initial},
                                                   {"LEARN", Hsrp::Learn},
                                                   {"LISTEN", Hsrp::Listen},
                                                   {"SPEAK", Hsrp::Speak},
                                                   {"STAND_BY", Hsrp::StandBy},
                                                   {"ACTIVE", Hsrp::Active},
                                                   {"MISC_STATE", Hsrp::MiscState},
                                                   {"UNAVAILABLE", Hsrp::Unavailable},
                                                   {"NO_RESPONSE", Hsrp::NoResponse}}));
}

TEST_F(ConstantsTest, EachEnumerationOfAddressesHasTheNumbersOfTheLibrary) {
  EXPECT_EQ(constantsOf("AddressType"), (Numbers{{"UNKNOWN", ZNAddress::Unknown},
                                                 {"IPV4", ZNAddress::IPv4},
                                                 {"IPV6", ZNAddress::IPv6},
                                                 {"PHYSICAL", ZNAddress::Physical},
                                                 {"ID_NAME", ZNAddress::IDName},
                                                 {"FDN", ZNAddress::FDN},
                                                 {"DNS", ZNAddress::DNS}}));
  EXPECT_EQ(constantsOf("IPv6ScopeType"), (Numbers{{"UNKNOWN", InetAddressIPv6::Unknown},
                                                   {"LINK_LOCAL", InetAddressIPv6::LinkLocal},
                                                   {"SITE_LOCAL", InetAddressIPv6::SiteLocal},
                                                   {"GLOBAL", InetAddressIPv6::Global}}));
  using Monitored = MonitoredInetAddressIPv6;
  EXPECT_EQ(constantsOf("IPv6NetToMediaState"), (Numbers{{"REACHABLE", Monitored::Reachable},
                                                         {"STALE", Monitored::Stale},
                                                         {"DELAY", Monitored::Delay},
                                                         {"PROBE", Monitored::Probe},
                                                         {"INVALID", Monitored::Invalid},
                                                         {"UNKNOWN", Monitored::Unknown}}));
  EXPECT_EQ(constantsOf("IPv6AddrStatus"),
            (Numbers{{"PREFERRED", Monitored::Preferred},
                     {"DEPRECATED", Monitored::Deprecated},
                     {"INACCESSIBLE", Monitored::Inaccessible},
                     {"UNKNOWN", Monitored::UnknownIPv6AddrStatus}}));
  EXPECT_EQ(constantsOf("IPv6AddrType"), (Numbers{{"STATELESS", Monitored::Stateless},
                                                  {"STATEFUL", Monitored::Stateful},
                                                  {"UNKNOWN", Monitored::UnknownIPv6AddrType}}));
}

TEST_F(ConstantsTest, EachEnumerationOfChangesHasTheNumbersOfTheLibrary) {
  using Action = ZNAuditAction;
  EXPECT_EQ(constantsOf("ActionType"),
            (Numbers{{"DONT_CARE", Action::TypeDontCare},
                     {"OBJECT_DELETION", Action::ObjectDeletion},
                     {"OBJECT_CREATION", Action::ObjectCreation},
                     {"ASSOCIATION_CREATION", Action::AssociationCreation},
                     {"ASSOCIATION_DELETION", Action::AssociationDeletion},
                     {"ASSOCIATION_CHANGE", Action::AssociationChange},
                     {"ATTRIBUTE_CHANGE", Action::AttributeChange}}));
  EXPECT_EQ(constantsOf("ActionDetailType"),
            (Numbers{{"DONT_CARE", Action::DetailDontCare},
                     {"NOT_APPLICABLE", Action::NotApplicable},
                     {"L2_CONNECTION", Action::L2Connection},
                     {"VLAN_CONTAINMENT", Action::VlanContainment},
                     {"IFC_CONTAINMENT", Action::IfcContainment},
                     {"NODE_IF_CONTAINMENT", Action::NodeIFContainment},
                     {"IF_ADDRESS_ASSOCIATION", Action::IFAddressAssociation},
                     {"SUBNET_ADDRESS_ASSOCIATION", Action::SubnetAddressAssociation},
                     {"HSRP_ADDRESS_CHANGE", Action::HSRPAddressChange},
                     {"HSRP_ADDRESS_ADD_OR_DELETE", Action::HSRPAddressAddOrDelete}}));
  EXPECT_EQ(constantsOf("TopologyAttributeType"), (Numbers{{"HSRP_STATE", HSRP_State},
                                                           {"HSRP_CERTAINTY", HSRP_Certainity},
                                                           {"IF_ADMIN_STATUS", IfAdmin_Status},
                                                           {"IF_OPER_STATUS", IfOper_Status},
                                                           {"PING_STATE", Ping_State},
                                                           {"SNMP_STATE", Snmp_State},
                                                           {"HSRP_PRIORITY", HSRP_Priority}}));
  EXPECT_EQ(constantsOf("EntityStatusType"), (Numbers{{"IPV6_OVERALL", ZNEntity::IPv6Overall},
                                                      {"IPV6_LINK_LOCAL", ZNEntity::IPv6LinkLocal},
                                                      {"IPV6_SITE_LOCAL", ZNEntity::IPv6SiteLocal},
                                                      {"IPV6_GLOBAL", ZNEntity::IPv6Global},
                                                      {"IPV4_OVERALL", ZNEntity::IPv4Overall},
                                                      {"OVERALL", ZNEntity::Overall}}));
}

TEST_F(ConstantsTest, EachStatusHasTheNameAndTheTextOfTheLibrary) {
  setenv("LANG", "C", 1);
  jclass const type = jni->FindClass("com/corvane/tv/zntopology/TopoStatusCode");
  jmethodID const of =
      jni->GetStaticMethodID(type, "of", "(I)Lcom/corvane/tv/zntopology/TopoStatusCode;");
  jmethodID const textOf = jni->GetStaticMethodID(type, "textOf", "(I)Ljava/lang/String;");
  int known = 0;
  for (int number = -1; number < 100; ++number) {
    const auto status = static_cast<ZNTopoStatus>(number);
    const bridge::LocalRef<> code(jni, jni->CallStaticObjectMethod(type, of, number));
    ASSERT_FALSE(jni->ExceptionCheck());
    const std::string name = statusName(status);
    EXPECT_EQ(code ? "ZN_API_" + shown(code) : "", name);
    known += code ? 1 : 0;
    const bridge::LocalRef<> text(jni, jni->CallStaticObjectMethod(type, textOf, number));
    ASSERT_FALSE(jni->ExceptionCheck());
    EXPECT_EQ(shown(text), ZNTopoAPIStatus(status, "").getStatusMsg()) << number;
  }
  EXPECT_EQ(known, 57);
}

TEST_F(ConstantsTest, EachRowOfTheTablesFitsTheClassLibrary) {
  using namespace zntopo::bridge;
  for (const JavaType& type : kJavaTypes) {
    const std::string path = std::string(type.name).find('/') != std::string::npos
                                 ? type.name
                                 : std::string("com/corvane/tv/zntopology/") + type.name;
    const LocalRef<jclass> found(jni, jni->FindClass(path.c_str()));
    ASSERT_TRUE(found) << path;
    if (type.constructor == nullptr) continue;
    EXPECT_NE(jni->GetMethodID(found.get(), "<init>", type.constructor), nullptr)
        << type.name << type.constructor;
    jni->ExceptionClear();
  }
  for (std::size_t method = 0; method < M_Count; ++method) {
    EXPECT_NE(env.lookUp(static_cast<JavaMethodID>(method)), nullptr) << kJavaMethods[method].name;
    jni->ExceptionClear();
  }
}

}  // namespace
}  // namespace zntopo::test
