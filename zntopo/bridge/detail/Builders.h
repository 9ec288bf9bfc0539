#pragma once

#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "zntopo/api/ZNAuditTrail.h"
#include "zntopo/bridge/detail/Collection.h"
#include "zntopo/bridge/detail/JavaEnv.h"
#include "zntopo/cache/ZNTopologyState.h"
#include "zntopo/core/ObjID.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/ZNConnection.h"
#include "zntopo/model/ZNHSRP.h"
#include "zntopo/model/ZNIfc.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/ZNNode.h"
#include "zntopo/model/ZNSubnet.h"
#include "zntopo/model/ZNVlan.h"

/// @file
/// The builders: each makes the Java twin of a native value, and gives a new local reference; null
/// if a class, a constructor or memory is missing, which the log tells, or if the call is stopped.
/// A part that is missing is null in the whole.
///
/// theJavaCache, a ZorbTopoCache or null, spares the building of what it holds, and is given what
/// was built. Getters of the objects may read the store.

namespace zntopo::bridge {

/// Whether interfaces are looked for in the Java cache, and put into it.
bool usesJavaInterfaceCache();
void setUseJavaInterfaceCache(bool use);

// Values.
LocalRef<> createID(JavaEnv& env, const ObjID& id);
LocalRef<> createEntityStatus(JavaEnv& env, const ObjectStatus& status);
LocalRef<> createPingState(JavaEnv& env, PingState state);
LocalRef<> createUserDefVar(JavaEnv& env, const UserDefVar& var);
LocalRef<> createConnData(JavaEnv& env, const ZNConnData& data);
LocalRef<> createTopologyState(JavaEnv& env, const ZNTopologyState& state);

// Objects. A null handle gives null.
LocalRef<> createEntity(JavaEnv& env, ZNRefPtr<ZNEntity> entity, jobject theJavaCache);
LocalRef<> createNodeNative(JavaEnv& env, ZNRefPtr<ZNNode> node, jobject theJavaCache);
LocalRef<> createInterfaceNative(JavaEnv& env, ZNRefPtr<ZNInterface> interface,
                                 jobject theJavaCache);
LocalRef<> createAddress(JavaEnv& env, ZNRefPtr<ZNAddress> address, jobject theJavaCache);
LocalRef<> createSubnetNative(JavaEnv& env, ZNRefPtr<ZNSubnet> subnet, jobject theJavaCache);
LocalRef<> createVlan(JavaEnv& env, ZNRefPtr<ZNVlan> vlan, jobject theJavaCache);
LocalRef<> createHSRP(JavaEnv& env, ZNRefPtr<ZNHSRP> hsrp, jobject theJavaCache);
LocalRef<> createIfcNative(JavaEnv& env, ZNRefPtr<ZNIfc> ifc, jobject theJavaCache);

// Parts of them.
LocalRef<> createVlanInfo(JavaEnv& env, const ZNVlanInfo& info);
LocalRef<> createIfcInfoNative(JavaEnv& env, const ZNIfcInfo& info);
LocalRef<> createConnection(JavaEnv& env, const ZNConnection& connection);
LocalRef<> createCapability(JavaEnv& env, const ZNCapability& capability);
LocalRef<> createAuditTrail(JavaEnv& env, const ZNAuditTrail& trail);
LocalRef<> createText(JavaEnv& env, const std::string& text);

// Lists of them. An empty one gives an empty collection; what can't be made is left out.
inline constexpr ValueList<std::list<ObjID>> createObjIDList{{"createObjIDList", T_Vector, "ObjID"},
                                                             createID};
inline constexpr ValueList<std::set<ObjID>> createObjIDSet{
    {"createObjIDSet", T_HashSet, "ObjID", true}, createID};
inline constexpr ValueList<std::list<std::string>> createTextList{
    {"resolveIPv6ToDNSNative", T_ArrayList, "String"}, createText};
inline constexpr ValueList<std::list<ZNConnection>> createList{
    {"createList", T_Vector, "ZorbConnection", true}, createConnection};
inline constexpr ValueList<std::vector<ZNRefPtr<ZNConnData>>> createConnDataList{
    {"createConnDataList", T_Vector, "ZorbConnData"}, createConnData};
inline constexpr ValueList<std::vector<ZNCapability>> createCapabilities{
    {"createCapabilities", T_Vector, "Capability"}, createCapability};
inline constexpr ValueList<std::list<ZNVlanInfo>> createVlanInfoList{
    {"createVlanInfoList", T_ArrayList, "ZorbVlanInfo", true}, createVlanInfo};
inline constexpr ValueList<std::list<ZNIfcInfo>> createIfcInfoList{
    {"createIfcInfoList", T_ArrayList, "ZorbIfcInfo"}, createIfcInfoNative};
inline constexpr ValueList<std::vector<ZNRefPtr<ZNAuditTrail>>> createAuditTrailList{
    {"createAuditTrailList", T_Vector, "ZorbAuditTrail", true}, createAuditTrail};
inline constexpr ObjectList<std::list<ZNRefPtr<ZNNode>>> createNodeList{
    {"createNodeList", T_Vector, "ZorbNode"}, createNodeNative};
inline constexpr ObjectList<std::list<ZNRefPtr<ZNInterface>>> createInterfaceList{
    {"createInterfaceList", T_Vector, "ZorbInterface"}, createInterfaceNative};
inline constexpr ObjectList<std::list<ZNRefPtr<ZNSubnet>>> createSubnetList{
    {"createSubnetList", T_Vector, "ZorbSubnet", true}, createSubnetNative};
inline constexpr ObjectList<std::list<ZNRefPtr<ZNVlan>>> createVlanList{
    {"createVlanList", T_Vector, "ZorbVlan"}, createVlan};
inline constexpr ObjectList<std::list<ZNRefPtr<ZNHSRP>>> createHSRPList{
    {"createHSRPList", T_Vector, "ZorbHSRP"}, createHSRP};
inline constexpr ObjectList<std::list<ZNRefPtr<ZNIfc>>> createIfcList{
    {"createIfcList", T_Vector, "ZorbIfc"}, createIfcNative};
/// An address of a type that has no Java class is a null in the collection.
inline constexpr ObjectList<std::vector<ZNRefPtr<ZNAddress>>> createAddressList{
    {"createAddressList", T_Vector, "Address", false, true}, createAddress};
/// The parts of all keys in one list.
LocalRef<> createIfcInfoListOfMap(JavaEnv& env,
                                  const std::map<ObjID, ZNRefPtr<std::list<ZNIfcInfo>>>& infos);

/// Appends an ObjID of each identifier to a java/util/List.
void populateObjIDList(JavaEnv& env, const std::set<ObjID>& ids, jobject javaList);

/// Two arrays of malloc(), for the keys, each of malloc() too, and the counts. The number of
/// entries is returned; an empty map gives null arrays. freeNameCountArray() frees them. Throws
/// std::bad_alloc, with null arrays, without memory for all.
int createNameCountArrayFromMap(const std::map<std::string, int>& map, char*** names, int** counts);
void freeNameCountArray(char** names, int* counts, int entries);

}  // namespace zntopo::bridge
