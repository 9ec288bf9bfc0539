#pragma once

#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "zntopo/api/ZNAuditTrail.h"
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
LocalRef<> createCapabilities(JavaEnv& env, const std::vector<ZNCapability>& capabilities);

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
LocalRef<> createVlanInfoList(JavaEnv& env, const std::list<ZNVlanInfo>& infos);
LocalRef<> createIfcInfoNative(JavaEnv& env, const ZNIfcInfo& info);
LocalRef<> createIfcInfoList(JavaEnv& env, const std::list<ZNIfcInfo>& infos);
LocalRef<> createConnDataList(JavaEnv& env, const std::vector<ZNRefPtr<ZNConnData>>& links);

// Lists of them. An empty one gives an empty collection; what can't be made is left out.
LocalRef<> createObjIDList(JavaEnv& env, const std::list<ObjID>& ids);
LocalRef<> createObjIDSet(JavaEnv& env, const std::set<ObjID>& ids);
LocalRef<> createList(JavaEnv& env, const std::list<ZNConnection>& connections);
LocalRef<> createNodeList(JavaEnv& env, const std::list<ZNRefPtr<ZNNode>>& nodes,
                          jobject theJavaCache);
LocalRef<> createInterfaceList(JavaEnv& env, const std::list<ZNRefPtr<ZNInterface>>& interfaces,
                               jobject theJavaCache);
/// An address of a type that has no Java class is a null in the collection.
LocalRef<> createAddressList(JavaEnv& env, const std::vector<ZNRefPtr<ZNAddress>>& addresses,
                             jobject theJavaCache);
LocalRef<> createSubnetList(JavaEnv& env, const std::list<ZNRefPtr<ZNSubnet>>& subnets,
                            jobject theJavaCache);
LocalRef<> createVlanList(JavaEnv& env, const std::list<ZNRefPtr<ZNVlan>>& vlans,
                          jobject theJavaCache);
LocalRef<> createHSRPList(JavaEnv& env, const std::list<ZNRefPtr<ZNHSRP>>& groups,
                          jobject theJavaCache);
LocalRef<> createIfcList(JavaEnv& env, const std::list<ZNRefPtr<ZNIfc>>& ifcs,
                         jobject theJavaCache);
/// The parts of all keys in one list.
LocalRef<> createIfcInfoListOfMap(JavaEnv& env,
                                  const std::map<ObjID, ZNRefPtr<std::list<ZNIfcInfo>>>& infos);
LocalRef<> createTextList(JavaEnv& env, const std::list<std::string>& texts);
LocalRef<> createAuditTrailList(JavaEnv& env, const std::vector<ZNRefPtr<ZNAuditTrail>>& trails);

/// Appends an ObjID of each identifier to a java/util/List.
void populateObjIDList(JavaEnv& env, const std::set<ObjID>& ids, jobject javaList);

/// Two arrays of malloc(), for the keys, each of malloc() too, and the counts. The number of
/// entries is returned; an empty map gives null arrays. freeNameCountArray() frees them. Throws
/// std::bad_alloc, with null arrays, without memory for all.
int createNameCountArrayFromMap(const std::map<std::string, int>& map, char*** names, int** counts);
void freeNameCountArray(char** names, int* counts, int entries);

}  // namespace zntopo::bridge
