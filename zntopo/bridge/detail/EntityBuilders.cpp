#include <atomic>
#include <cstring>
#include <limits>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/CachedBuild.h"
#include "zntopo/model/ZNRefPtrConversion.h"

namespace zntopo::bridge {

namespace {

constexpr CachedKind<M_hasNodeID, M_addNode> kNode{"createNode", "NODE"};
constexpr CachedKind<M_hasInterfaceID, M_addInterface> kInterface{"createInterface", "INTERFACE"};

constinit std::atomic<bool> s_kUSE_JAVA_INTERFACE_CACHE{true};

/// A time beyond what Java can count is the last, or the first, that it can.
jlong milliseconds(long seconds) {
  using Limits = std::numeric_limits<jlong>;
  jlong result = 0;
  if (!__builtin_mul_overflow(seconds, 1000, &result)) return result;
  return seconds > 0 ? Limits::max() : Limits::min();
}

LocalRef<> createEntityType(JavaEnv& env, EntityType type) {
  return env.make<T_EntityType>(static_cast<jint>(type));
}

LocalRef<> createIPLevel(JavaEnv& env, ZNEntity::IPLevel level) {
  return env.make<T_IPLevel>(static_cast<jint>(level));
}

LocalRef<> createParent(JavaEnv& env, const AssEndPoint& parent) {
  const LocalRef<> id = createID(env, parent.getObjID());
  const LocalRef<> type = createEntityType(env, parent.getType());
  return env.make<T_AssEndPoint>(env.text(parent.getName()), id, type);
}

// The library holds neither for an entity.
LocalRef<> createContainmentAss() { return {}; }
LocalRef<> createRelatedTo() { return {}; }

constexpr ValueList<std::vector<UserDefVar>> createUserVars{
    {"createUserVars", T_Vector, "UserDefVar"}, createUserDefVar};

/// Those of the node or the interface that the entity is; nothing else has any.
std::vector<ZNCapability> capabilitiesOf(const ZNRefPtr<ZNEntity>& entity) {
  const ZNRefPtr<ZNNode> node = ZNRefPtrConversion::ZNEntity2ZNNode(entity);
  if (!node.isNull()) return node->getCapabilityListVal();
  const ZNRefPtr<ZNInterface> interface = ZNRefPtrConversion::ZNEntity2ZNInterface(entity);
  return interface.isNull() ? std::vector<ZNCapability>() : interface->getCapabilityList();
}

}  // namespace

bool usesJavaInterfaceCache() { return s_kUSE_JAVA_INTERFACE_CACHE; }
void setUseJavaInterfaceCache(bool use) { s_kUSE_JAVA_INTERFACE_CACHE = use; }

LocalRef<> createEntity(JavaEnv& env, ZNRefPtr<ZNEntity> entity, jobject theJavaCache) {
  if (entity.isNull()) return {};
  const LocalRef<> id = createID(env, entity->getObjID());
  const LocalRef<> legacyID = createID(env, entity->getQRMObjID());
  const LocalRef<jstring> name = env.text(entity->getName());
  const LocalRef<jstring> description = env.text(entity->getDescription());
  const LocalRef<> type = createEntityType(env, entity->getEntityType());
  const LocalRef<> status = createEntityStatus(env, entity->getOverallStatus());
  const LocalRef<> level = createIPLevel(env, entity->getIPLevel());
  const LocalRef<> containment = createContainmentAss();
  const LocalRef<> relatedTo = createRelatedTo();
  const LocalRef<> parent = createParent(env, entity->getContainmentParent());
  const LocalRef<> vars = createUserVars(env, entity->getUserVars());
  const LocalRef<> capabilities = createCapabilities(env, capabilitiesOf(entity));
  const LocalRef<> addresses = createAddressList(env, entity->getAddresses(), theJavaCache);
  const LocalRef<> v6Status = createEntityStatus(env, entity->getV6OverallStatus());
  const LocalRef<> v6GlobalStatus = createEntityStatus(env, entity->getV6GlobalStatus());
  const LocalRef<> v6SiteStatus = createEntityStatus(env, entity->getV6SiteStatus());
  MCLog::log(MC_INFO, "calling ctor of entity\n");
  LocalRef<> made = env.make<T_ZorbEntity>(
      id, legacyID, name, description, type, status, level, containment, relatedTo, parent, vars,
      capabilities, addresses, milliseconds(entity->getCreateTime()),
      milliseconds(entity->getChangeTime()), v6Status, v6GlobalStatus, v6SiteStatus,
      milliseconds(entity->getStatusChangeTime()), jint{entity->getRD()});
  if (MCLog::isHeard(MC_INFO)) {
    MCLog::log(MC_INFO, "Overall status = %s\n", entity->getOverallStatus().toString().c_str());
    MCLog::log(MC_INFO, "StatusChangeTime = %ld\n", entity->getStatusChangeTime());
  }
  return made;
}

namespace {

LocalRef<> createSnmpState(JavaEnv& env, SnmpState state) {
  return env.make<T_SnmpState>(static_cast<jint>(state));
}

LocalRef<> createNodeProperty(JavaEnv& env, const ZNNode& node) {
  const NodeProperty& property = node.getNodeProperty();
  const LocalRef<> capabilities = createCapabilities(env, node.getCapabilityListVal());
  // Without the Java cache: this address has no row of its own.
  const LocalRef<> address =
      createAddress(env, ZNRefPtrConversion::IPv42Address(property.V4MgmtAddress.get()), nullptr);
  const LocalRef<jstring> oid = env.text(property.entityOid);
  const LocalRef<jstring> contact = env.text(property.sysContact);
  const LocalRef<jstring> location = env.text(property.sysLocation);
  const LocalRef<> state = createSnmpState(env, property.mySnmpState);
  return env.make<T_NodeProperty>(capabilities, address, oid, contact, location, state);
}

LocalRef<> buildNode(JavaEnv& env, const ZNRefPtr<ZNNode>& node, jobject theJavaCache) {
  if (env.find(M_setIfcInfoList) == nullptr || env.find(M_setVlanInfoList) == nullptr ||
      env.find(M_setNodeProperty) == nullptr || env.find(M_setConnDataList) == nullptr) {
    return {};
  }
  LocalRef<> made = env.make<T_ZorbNode>(
      createEntity(env, ZNRefPtrConversion::ZNNode2ZNEntity(node), theJavaCache));
  if (!made) return {};
  jobject const twin = made.get();
  env.call<M_setVlanInfoList>(twin, createVlanInfoList(env, node->getVlanInfoList()));
  env.call<M_setIfcInfoList>(twin, createIfcInfoList(env, node->getIfcInfoList()));
  env.call<M_setNodeProperty>(twin, createNodeProperty(env, *node));
  env.call<M_setConnDataList>(twin, createConnDataList(env, node->getConnDataList()));
  return made;
}

/// What fields of four characters hold.
template <std::size_t size>
std::string boundedText(const char (&field)[size]) {
  return std::string(field, strnlen(field, size));
}

LocalRef<> createIFProperty(JavaEnv& env, const ZNInterface& interface) {
  const IFProperty& property = interface.getIFProperty();
  const LocalRef<jstring> port = env.text(boundedText(property.portNumber));
  const LocalRef<jstring> vendorPort = env.text(boundedText(property.vendorPortNumber));
  const LocalRef<jstring> vendorCard = env.text(boundedText(property.vendorCardNumber));
  const LocalRef<jstring> name = env.text(property.ifName);
  const LocalRef<jstring> address = env.text(property.physicalAddress);
  const LocalRef<jstring> alias = env.text(property.ifAlias);
  const LocalRef<> admin =
      env.make<T_IFAdminStatus>(static_cast<jint>(interface.getIfAdminStatus()));
  const LocalRef<> oper = env.make<T_IFOperStatus>(static_cast<jint>(interface.getIfOperStatus()));
  const LocalRef<> capabilities = createCapabilities(env, interface.getCapabilityList());
  return env.make<T_IFProperty>(port, vendorPort, vendorCard, jint{property.vpi},
                                jint{property.vci}, jint{property.ifType}, jint{property.ifIndex},
                                name, address, alias, interface.isATM(), interface.isHSRP(),
                                jint{property.ifSpeed}, admin, oper, capabilities);
}

LocalRef<> buildInterface(JavaEnv& env, const ZNRefPtr<ZNInterface>& interface,
                          jobject theJavaCache) {
  if (env.find(M_setHSRPObjIDList) == nullptr) return {};
  const LocalRef<> entity =
      createEntity(env, ZNRefPtrConversion::ZNInterface2ZNEntity(interface), theJavaCache);
  const LocalRef<> links = createConnDataList(env, interface->getConnData());
  const LocalRef<> property = createIFProperty(env, *interface);
  LocalRef<> made = env.make<T_ZorbInterface>(entity, links, property);
  if (made && interface->isInHSRP() && !interface->getHSRPObjIDs().empty()) {
    MCLog::log(MC_INFO, "Setting HSRP Object List for interface \n");
    env.call<M_setHSRPObjIDList>(made.get(), createObjIDList(env, interface->getHSRPObjIDs()));
  }
  return made;
}

}  // namespace

LocalRef<> createNodeNative(JavaEnv& env, ZNRefPtr<ZNNode> node, jobject theJavaCache) {
  return buildEntityOnce(env, kNode, node, theJavaCache,
                         [&] { return buildNode(env, node, theJavaCache); });
}

LocalRef<> createInterfaceNative(JavaEnv& env, ZNRefPtr<ZNInterface> interface,
                                 jobject theJavaCache) {
  jobject const interfaceCache = usesJavaInterfaceCache() ? theJavaCache : nullptr;
  return buildEntityOnce(env, kInterface, interface, interfaceCache,
                         [&] { return buildInterface(env, interface, theJavaCache); });
}

}  // namespace zntopo::bridge
