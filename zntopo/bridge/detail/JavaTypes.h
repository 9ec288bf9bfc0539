#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>

/// @file
/// What the bridge needs of the Java classes: each class with its constructor, each method.

namespace zntopo::bridge {

/// A class of Java, or one of its constructors.
struct JavaType {
  std::size_t id;
  /// Without the package if that is the library's own.
  const char* name;
  const char* constructor;  ///< its descriptor; null for what is not constructed
  const char* builder;      ///< who needs it, in the log
  /// The log line for an object that was not made, in the place of the usual one.
  const char* notMade = nullptr;
  /// Whether an exception of the class or the constructor is described on the standard error, and
  /// ends there.
  bool isDescribed = false;
  /// Whether the class and the constructor are looked up once for the life of the process.
  bool isKept = false;
};

// Parts of descriptors.
#define OURS(name) "Lcom/corvane/tv/zntopology/" name ";"
#define ID OURS("ObjID")
#define STATUS OURS("ObjectStatus")
#define ENTITY OURS("ZorbEntity")
#define TEXT "Ljava/lang/String;"
#define LIST "Ljava/util/List;"
#define VECTOR "Ljava/util/Vector;"

// clang-format off
enum JavaTypeID : std::size_t {
  T_ObjID, T_NullObjID, T_EntityType, T_ObjectStatus, T_IPLevel, T_AssEndPoint, T_Capability,
  T_ZorbEntity, T_ZorbNode, T_NodeProperty, T_SnmpState, T_PingState, T_ZorbInterface,
  T_IFProperty, T_IFAdminStatus, T_IFOperStatus, T_ZorbConnData, T_ZorbConnection, T_ZorbVlan,
  T_ZorbVlanInfo, T_ZorbVlanIFInfo, T_ZorbSubnet, T_SubnetEndPoint, T_ZorbHSRP,
  T_ZorbHSRPAddressInfo, T_ZorbHSRPState, T_HSRPTrackIFInfo, T_ZorbIfc, T_ZorbIfcInfo,
  T_ZorbIfcIFInfo, T_ZorbIfcAssocInfo, T_InetAddressIPv4, T_InetAddressIPv6,
  T_MonitoredInetAddressIPv6, T_InetAddressDNS, T_IPv6ScopeType, T_IPv6NetToMediaState,
  T_IPv6AddrStatus, T_IPv6AddrType, T_PingStatus, T_TopologyState, T_ZorbAuditAction,
  T_ZorbAuditTrail, T_ActionType, T_ActionDetailType, T_UserDefVar, T_ShortValue, T_LongValue,
  T_TextValue, T_FloatValue, T_BoolValue, T_Vector, T_ArrayList, T_HashSet, T_List,
  T_ZorbTopoCache, T_ZorbTopoStatus, T_TopoFilter, T_AddressType, T_Count
};

inline constexpr std::array<JavaType, T_Count> kJavaTypes{{
    {T_ObjID, "ObjID", "(" TEXT ")V", "createID"},
    {T_NullObjID, "ObjID", "()V", "createID"},
    {T_EntityType, "EntityType", "(I)V", "createEntityType"},
    {T_ObjectStatus, "ObjectStatus", "(I)V", "createEntityStatus"},
    {T_IPLevel, "IPLevel", "(I)V", "createIPLevel"},
    {T_AssEndPoint, "AssEndPoint", "(" TEXT ID OURS("EntityType") ")V", "createParent"},
    {T_Capability, "Capability", "(" TEXT ")V", "createCapabilities"},
    {T_ZorbEntity, "ZorbEntity",
     "(" ID ID TEXT TEXT OURS("EntityType") STATUS OURS("IPLevel") OURS("ContainmentAss") LIST
     OURS("AssEndPoint") LIST LIST LIST "JJ" STATUS STATUS STATUS "JI)V",
     "createEntity", "Could not create Entity! \n", true},
    {T_ZorbNode, "ZorbNode", "(" ENTITY ")V", "createNodeNative", "Could not create Node! \n"},
    {T_NodeProperty, "NodeProperty", "(" VECTOR OURS("Address") TEXT TEXT TEXT OURS("SnmpState") ")V",
     "createNodeProperty"},
    {T_SnmpState, "SnmpState", "(I)V", "createSnmpState"},
    {T_PingState, "PingState", "(I)V", "createPingState"},
    {T_ZorbInterface, "ZorbInterface", "(" ENTITY VECTOR OURS("IFProperty") ")V", "createInterfaceNative",
     "Could not create Interface! \n", true, true},
    {T_IFProperty, "IFProperty",
     "(" TEXT TEXT TEXT "IIII" TEXT TEXT TEXT "ZZI" OURS("IFAdminStatus") OURS("IFOperStatus")
     VECTOR ")V",
     "createIFProperty"},
    {T_IFAdminStatus, "IFAdminStatus", "(I)V", "createIFAdminStatus"},
    {T_IFOperStatus, "IFOperStatus", "(I)V", "createIFOperStatus"},
    {T_ZorbConnData, "ZorbConnData", "(" ID ID ID ID ")V", "createConnData"},
    {T_ZorbConnection, "ZorbConnection", "(" OURS("ZorbConnData") ")V", "createList", nullptr, true},
    {T_ZorbVlan, "ZorbVlan", "(" ENTITY LIST ")V", "createVlan", "Could not create Vlan! \n", true},
    {T_ZorbVlanInfo, "ZorbVlanInfo", "(" ID ID TEXT LIST ")V", "createVlanInfo", nullptr, true},
    {T_ZorbVlanIFInfo, "ZorbVlanIFInfo", "(" ID TEXT TEXT ")V", "createVlanIFInfo"},
    {T_ZorbSubnet, "ZorbSubnet", "(" ENTITY LIST ")V", "createSubnetNative", "Could not create Subnet! \n"},
    {T_SubnetEndPoint, "SubnetEndPoint", "(" ID ID ID ")V", "createEndPointList"},
    {T_ZorbHSRP, "ZorbHSRP", "(" ENTITY LIST ")V", "createHSRP", "Could not create HSRP! \n", true},
    {T_ZorbHSRPAddressInfo, "ZorbHSRPAddressInfo", "(I" ID ID "I" OURS("ZorbHSRPState") "I" LIST ")V", "createAddrInfo",
     nullptr, true},
    {T_ZorbHSRPState, "ZorbHSRPState", "(I)V", "createHSRPState", nullptr, true},
    {T_HSRPTrackIFInfo, "HSRPTrackIFInfo", "(" ID "I)V", "createTrackIFInfo", nullptr, true},
    {T_ZorbIfc, "ZorbIfc", "(" ENTITY ")V", "createIfcNative", "Could not create Ifc! \n"},
    {T_ZorbIfcInfo, "ZorbIfcInfo", "(" ID LIST ")V", "createIfcInfoNative"},
    {T_ZorbIfcIFInfo, "ZorbIfcIFInfo", "(" ID "III" ID ")V", "createIfcIFInfoNative"},
    {T_ZorbIfcAssocInfo, "ZorbIfcAssocInfo", "(" ID ID "IIIII" TEXT TEXT ")V", "createIfcAssocInfoNative"},
    {T_InetAddressIPv4, "InetAddressIPv4", "(" TEXT "Z" ID ID ID "J" TEXT OURS("PingState") "I)V", "createAddress"},
    {T_InetAddressIPv6, "InetAddressIPv6", "(" TEXT OURS("IPv6ScopeType") "IZ" ID ID ID "J" OURS("PingState") ")V",
     "createAddress"},
    {T_MonitoredInetAddressIPv6, "MonitoredInetAddressIPv6",
     "(" OURS("InetAddressIPv6") OURS("IPv6NetToMediaState") OURS("IPv6AddrType")
     OURS("IPv6AddrStatus") OURS("PingStatus") ID ")V",
     "createAddress"},
    {T_InetAddressDNS, "InetAddressDNS", "(" TEXT "Z" ID ID "J" OURS("PingState") ")V", "createAddress"},
    {T_IPv6ScopeType, "IPv6ScopeType", "(I)V", "createScope"},
    {T_IPv6NetToMediaState, "IPv6NetToMediaState", "(I)V", "createMediaState"},
    {T_IPv6AddrStatus, "IPv6AddrStatus", "(I)V", "createAddressStatus"},
    {T_IPv6AddrType, "IPv6AddrType", "(I)V", "createIPv6AddressType"},
    {T_PingStatus, "PingStatus", "(" STATUS "JJ)V", "createPingStatus"},
    {T_TopologyState, "TopologyState", "(IJ)V", "createTopologyState"},
    {T_ZorbAuditAction, "ZorbAuditAction", "(J" OURS("ActionType") OURS("ActionDetailType") TEXT ")V",
     "createAuditAction"},
    {T_ZorbAuditTrail, "ZorbAuditTrail", "(" ID OURS("EntityType") LIST ")V", "createAuditTrail"},
    {T_ActionType, "ActionType", "(I)V", "createActionType"},
    {T_ActionDetailType, "ActionDetailType", "(I)V", "createActionDetailType"},
    {T_UserDefVar, "UserDefVar", "(" TEXT OURS("VarValue") ")V", "createUserDefVar"},
    {T_ShortValue, "VarValue", "(S)V", "createUserDefVar"},
    {T_LongValue, "VarValue", "(J)V", "createUserDefVar"},
    {T_TextValue, "VarValue", "(" TEXT ")V", "createUserDefVar"},
    {T_FloatValue, "VarValue", "(F)V", "createUserDefVar"},
    {T_BoolValue, "VarValue", "(Z)V", "createUserDefVar"},
    {T_Vector, "java/util/Vector", "()V", "createCollection"},
    {T_ArrayList, "java/util/ArrayList", "()V", "createCollection"},
    {T_HashSet, "java/util/HashSet", "()V", "createCollection"},
    {T_List, "java/util/List", nullptr, "populateObjIDList"},
    {T_ZorbTopoCache, "ZorbTopoCache", nullptr, "buildOnce", nullptr, false, true},
    {T_ZorbTopoStatus, "ZorbTopoStatus", nullptr, "setStatus()"},
    {T_TopoFilter, "TopoFilter", nullptr, "populateFilter"},
    {T_AddressType, "AddressType", nullptr, "populateFilter"},
}};

/// A method of Java.
struct JavaMethod {
  std::size_t id;
  JavaTypeID type;
  const char* name;
  const char* descriptor;
  bool isKept = false;  ///< as in JavaType
};

enum JavaMethodID : std::size_t {
  M_VectorAdd, M_ArrayListAdd, M_HashSetAdd, M_ListAdd, M_setIfcInfoList, M_setVlanInfoList,
  M_setNodeProperty, M_setConnDataList, M_setHSRPObjIDList, M_IfcSetIfcInfoList,
  M_setIfcAssocInfoList, M_hasNodeID, M_addNode, M_hasInterfaceID, M_addInterface,
  M_hasAddressID, M_addAddress, M_hasSubnetID, M_addSubnet, M_hasVlanID, M_addVlan, M_hasHSRPID,
  M_addHSRP, M_hasIfcID, M_addIfc, M_setStatus, M_getStringValue, M_isFieldIgnored,
  M_getRegexEntityName, M_getRegexAddressStr, M_getIPLevel, M_getEntityType, M_getV6ScopeType,
  M_getAddressType, M_getPrefixLength, M_getPrefixAddress, M_getCapabilityNames,
  M_getExcludeCapabilityNames, M_IPLevelToInt, M_EntityTypeToInt, M_IPv6ScopeTypeToInt,
  M_AddressTypeToInt, M_Count
};

inline constexpr std::array<JavaMethod, M_Count> kJavaMethods{{
    {M_VectorAdd, T_Vector, "add", "(Ljava/lang/Object;)Z"},
    {M_ArrayListAdd, T_ArrayList, "add", "(Ljava/lang/Object;)Z"},
    {M_HashSetAdd, T_HashSet, "add", "(Ljava/lang/Object;)Z"},
    {M_ListAdd, T_List, "add", "(Ljava/lang/Object;)Z"},
    {M_setIfcInfoList, T_ZorbNode, "setIfcInfoList", "(" LIST ")V"},
    {M_setVlanInfoList, T_ZorbNode, "setVlanInfoList", "(" LIST ")V"},
    {M_setNodeProperty, T_ZorbNode, "setNodeProperty", "(" OURS("NodeProperty") ")V"},
    {M_setConnDataList, T_ZorbNode, "setConnDataList", "(" LIST ")V"},
    {M_setHSRPObjIDList, T_ZorbInterface, "setHSRPObjIDList", "(" LIST ")V", true},
    {M_IfcSetIfcInfoList, T_ZorbIfc, "setIfcInfoList", "(" LIST ")V"},
    {M_setIfcAssocInfoList, T_ZorbIfc, "setIfcAssocInfoList", "(" LIST ")V"},
    {M_hasNodeID, T_ZorbTopoCache, "hasNodeID", "(" TEXT ")" OURS("ZorbNode")},
    {M_addNode, T_ZorbTopoCache, "addNode", "(" OURS("ZorbNode") ")V"},
    {M_hasInterfaceID, T_ZorbTopoCache, "hasInterfaceID", "(" TEXT ")" OURS("ZorbInterface"), true},
    {M_addInterface, T_ZorbTopoCache, "addInterface", "(" OURS("ZorbInterface") ")V", true},
    {M_hasAddressID, T_ZorbTopoCache, "hasAddressID", "(" TEXT ")" OURS("Address")},
    {M_addAddress, T_ZorbTopoCache, "addAddress", "(" OURS("Address") ")V"},
    {M_hasSubnetID, T_ZorbTopoCache, "hasSubnetID", "(" TEXT ")" OURS("ZorbSubnet")},
    {M_addSubnet, T_ZorbTopoCache, "addSubnet", "(" OURS("ZorbSubnet") ")V"},
    {M_hasVlanID, T_ZorbTopoCache, "hasVlanID", "(" TEXT ")" OURS("ZorbVlan")},
    {M_addVlan, T_ZorbTopoCache, "addVlan", "(" OURS("ZorbVlan") ")V"},
    {M_hasHSRPID, T_ZorbTopoCache, "hasHSRPID", "(" TEXT ")" OURS("ZorbHSRP")},
    {M_addHSRP, T_ZorbTopoCache, "addHSRP", "(" OURS("ZorbHSRP") ")V"},
    {M_hasIfcID, T_ZorbTopoCache, "hasIfcID", "(" TEXT ")" OURS("ZorbIfc")},
    {M_addIfc, T_ZorbTopoCache, "addIfc", "(" OURS("ZorbIfc") ")V"},
    {M_setStatus, T_ZorbTopoStatus, "setStatus", "(I" TEXT ")V"},
    {M_getStringValue, T_ObjID, "getStringValue", "()" TEXT},
    {M_isFieldIgnored, T_TopoFilter, "isFieldIgnored", "(I)Z"},
    {M_getRegexEntityName, T_TopoFilter, "getRegexEntityName", "()" TEXT},
    {M_getRegexAddressStr, T_TopoFilter, "getRegexAddressStr", "()" TEXT},
    {M_getIPLevel, T_TopoFilter, "getIPLevel", "()" OURS("IPLevel")},
    {M_getEntityType, T_TopoFilter, "getEntityType", "()" OURS("EntityType")},
    {M_getV6ScopeType, T_TopoFilter, "getV6ScopeType", "()" OURS("IPv6ScopeType")},
    {M_getAddressType, T_TopoFilter, "getAddressType", "()" OURS("AddressType")},
    {M_getPrefixLength, T_TopoFilter, "getPrefixLength", "()I"},
    {M_getPrefixAddress, T_TopoFilter, "getPrefixAddress", "()" TEXT},
    {M_getCapabilityNames, T_TopoFilter, "getCapabilityNames", "()" LIST},
    {M_getExcludeCapabilityNames, T_TopoFilter, "getExcludeCapabilityNames", "()" LIST},
    {M_IPLevelToInt, T_IPLevel, "toInt", "()I"},
    {M_EntityTypeToInt, T_EntityType, "toInt", "()I"},
    {M_IPv6ScopeTypeToInt, T_IPv6ScopeType, "toInt", "()I"},
    {M_AddressTypeToInt, T_AddressType, "toInt", "()I"},
}};
// clang-format on

#undef OURS
#undef ID
#undef STATUS
#undef ENTITY
#undef TEXT
#undef LIST
#undef VECTOR

/// True if each row of a table stands at the place of its identifier.
template <typename Table>
constexpr bool isInOrder(const Table& table) {
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (table[i].id != i) return false;
  }
  return true;
}
static_assert(isInOrder(kJavaTypes) && isInOrder(kJavaMethods));

/// True if the parameters of a descriptor are of these kinds, as descriptors write them, and in
/// this order. 'L' is any object.
constexpr bool takes(const char* descriptor, std::initializer_list<char> kinds) {
  if (descriptor == nullptr || *descriptor++ != '(') return false;
  for (const char kind : kinds) {
    if (*descriptor != kind) return false;
    while (kind == 'L' && *descriptor != ';') ++descriptor;
    ++descriptor;
  }
  return *descriptor == ')';
}

/// The kind of a descriptor's result.
constexpr char resultOf(const char* descriptor) {
  while (*descriptor != ')') ++descriptor;
  return descriptor[1];
}

}  // namespace zntopo::bridge
