#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/CachedBuild.h"
#include "zntopo/model/ZNRefPtrConversion.h"

namespace zntopo::bridge {

namespace {

constexpr CachedKind<M_hasSubnetID, M_addSubnet> kSubnet{"createSubnet", "SUBNET"};
constexpr CachedKind<M_hasVlanID, M_addVlan> kVlan{"createVlan", "VLAN"};
constexpr CachedKind<M_hasHSRPID, M_addHSRP> kHSRP{"createHSRP", "HSRP"};
constexpr CachedKind<M_hasIfcID, M_addIfc> kIfc{"createIfc", "IFC"};

LocalRef<> createEndPoint(JavaEnv& env, const SubnetEndPoint& endPoint) {
  const LocalRef<> address = createID(env, endPoint.getAddressID());
  const LocalRef<> node = createID(env, endPoint.getNodeObjID());
  const LocalRef<> interface = createID(env, endPoint.getIFObjID());
  return env.make<T_SubnetEndPoint>(address, node, interface);
}

constexpr ValueList<std::list<SubnetEndPoint>> createEndPointList{
    {"createEndPointList", T_Vector, "SubnetEndPoint"}, createEndPoint};

LocalRef<> createVlanIFInfo(JavaEnv& env, const ZNVlanIFInfo& info) {
  const LocalRef<> interface = createID(env, info.getIFObjID());
  const LocalRef<jstring> board = env.text(info.getBoardNumber());
  const LocalRef<jstring> port = env.text(info.getPortNumber());
  return env.make<T_ZorbVlanIFInfo>(interface, board, port);
}

constexpr ValueList<std::list<ZNVlanIFInfo>> createVlanIFInfoList{
    {"createVlanIFInfoList", T_ArrayList, "ZorbVlanIFInfo", true}, createVlanIFInfo};

LocalRef<> createHSRPState(JavaEnv& env, ZNHSRPAddressInfo::HSRPState state) {
  return env.make<T_ZorbHSRPState>(static_cast<jint>(state));
}

LocalRef<> createTrackIFInfo(JavaEnv& env, const TrackInterfaceInfo& info) {
  return env.make<T_HSRPTrackIFInfo>(createID(env, info.ifObjID), jint{info.ifPriority});
}

constexpr ValueList<std::list<TrackInterfaceInfo>> createTrackIFInfoList{
    {"createTrackIFInfoList", T_ArrayList, "HSRPTrackIFInfo", true}, createTrackIFInfo};

LocalRef<> createAddrInfo(JavaEnv& env, const ZNHSRPAddressInfo& info) {
  const LocalRef<> interface = createID(env, info.getIFObjID());
  const LocalRef<> address = createID(env, info.getAddressID());
  const LocalRef<> state = createHSRPState(env, info.getHSRPState());
  const LocalRef<> tracked = createTrackIFInfoList(env, info.getTrackInterfaceInfoList());
  return env.make<T_ZorbHSRPAddressInfo>(jint{info.getHSRPNumber()}, interface, address,
                                         jint{info.getHSRPPriority()}, state,
                                         jint{info.getHSRPStateCertainty()}, tracked);
}

constexpr ValueList<std::list<ZNHSRPAddressInfo>> createAddrInfoList{
    {"createAddrInfoList", T_Vector, "ZorbHSRPAddressInfo"}, createAddrInfo};

LocalRef<> createIfcIFInfoNative(JavaEnv& env, const ZNIfcIFInfo& info) {
  const LocalRef<> ifc = createID(env, info.getIfcObjId());
  const LocalRef<> interface = createID(env, info.getInterfaceObjId());
  return env.make<T_ZorbIfcIFInfo>(ifc, jint{info.getIfcType()}, jint{info.getContainmentType()},
                                   jint{info.getSeqNum()}, interface);
}

constexpr ValueList<std::list<ZNIfcIFInfo>> createIfcIFInfoList{
    {"createIfcInfoNative", T_ArrayList, "ZorbIfcIFInfo"}, createIfcIFInfoNative};

constexpr ValueList<std::list<ZNIfcInfo>> createIfcInfoListFromIfc{
    {"createIfcInfoListFromIfc", T_ArrayList, "ZorbIfcInfo"}, createIfcInfoNative};

LocalRef<> createIfcAssocInfoNative(JavaEnv& env, const ZNIfcAssocInfo& info) {
  const LocalRef<> left = createID(env, info.getLeftIfcId());
  const LocalRef<> right = createID(env, info.getRightIfcId());
  const LocalRef<jstring> description = env.text(info.getAssocDescription());
  const LocalRef<jstring> extraInfo = env.text(info.getAssocExtraInfo());
  return env.make<T_ZorbIfcAssocInfo>(left, right, jint{info.getIfcRelationType()},
                                      jint{info.getLeftIfcType()}, jint{info.getRightIfcType()},
                                      jint{info.getAssocState()}, jint{info.getAssocStateTime()},
                                      description, extraInfo);
}

constexpr ValueList<std::list<ZNRefPtr<ZNIfcAssocInfo>>> createIfcAssocInfoList{
    {"createIfcAssocInfoList", T_Vector, "ZorbIfcAssocInfo"}, createIfcAssocInfoNative};

LocalRef<> buildIfc(JavaEnv& env, const ZNRefPtr<ZNIfc>& ifc, jobject theJavaCache) {
  if (env.find(M_IfcSetIfcInfoList) == nullptr || env.find(M_setIfcAssocInfoList) == nullptr) {
    return {};
  }
  LocalRef<> made =
      env.make<T_ZorbIfc>(createEntity(env, ZNRefPtrConversion::ZNIfc2ZNEntity(ifc), theJavaCache));
  if (!made) return {};
  env.call<M_IfcSetIfcInfoList>(made.get(), createIfcInfoListFromIfc(env, ifc->getAllIfcInfos()));
  env.call<M_setIfcAssocInfoList>(made.get(),
                                  createIfcAssocInfoList(env, ifc->getAllIfcAssocInfos()));
  return made;
}

}  // namespace

LocalRef<> createVlanInfo(JavaEnv& env, const ZNVlanInfo& info) {
  const LocalRef<> vlan = createID(env, info.getVlanObjID());
  const LocalRef<> node = createID(env, info.getNodeObjID());
  const LocalRef<jstring> name = env.text(info.getNodeName());
  const LocalRef<> interfaces = createVlanIFInfoList(env, info.getVlanIFInfoList());
  return env.make<T_ZorbVlanInfo>(vlan, node, name, interfaces);
}

LocalRef<> createIfcInfoNative(JavaEnv& env, const ZNIfcInfo& info) {
  const LocalRef<> id = createID(env, info.getIfcInfoObjID());
  return env.make<T_ZorbIfcInfo>(id, createIfcIFInfoList(env, info.getAllIfcIFInfos()));
}

LocalRef<> createIfcInfoListOfMap(JavaEnv& env,
                                  const std::map<ObjID, ZNRefPtr<std::list<ZNIfcInfo>>>& infos) {
  std::list<ZNIfcInfo> flat;
  for (const auto& [key, list] : infos) {
    if (!list.isNull()) flat.insert(flat.end(), list->begin(), list->end());
  }
  return createIfcInfoList(env, flat);
}

LocalRef<> createSubnetNative(JavaEnv& env, ZNRefPtr<ZNSubnet> subnet, jobject theJavaCache) {
  return buildEntityOnce(env, kSubnet, subnet, theJavaCache, [&] {
    const LocalRef<> entity =
        createEntity(env, ZNRefPtrConversion::ZNSubnet2ZNEntity(subnet), theJavaCache);
    return env.make<T_ZorbSubnet>(entity, createEndPointList(env, subnet->getSubnetEndPointList()));
  });
}

LocalRef<> createVlan(JavaEnv& env, ZNRefPtr<ZNVlan> vlan, jobject theJavaCache) {
  return buildEntityOnce(env, kVlan, vlan, theJavaCache, [&] {
    const LocalRef<> entity =
        createEntity(env, ZNRefPtrConversion::ZNVlan2ZNEntity(vlan), theJavaCache);
    return env.make<T_ZorbVlan>(entity, createVlanInfoList(env, vlan->getVlanInfoList()));
  });
}

LocalRef<> createHSRP(JavaEnv& env, ZNRefPtr<ZNHSRP> hsrp, jobject theJavaCache) {
  return buildEntityOnce(env, kHSRP, hsrp, theJavaCache, [&] {
    const LocalRef<> entity =
        createEntity(env, ZNRefPtrConversion::ZNHSRP2ZNEntity(hsrp), theJavaCache);
    return env.make<T_ZorbHSRP>(entity, createAddrInfoList(env, hsrp->getHSRPAddrInfoList()));
  });
}

LocalRef<> createIfcNative(JavaEnv& env, ZNRefPtr<ZNIfc> ifc, jobject theJavaCache) {
  return buildEntityOnce(env, kIfc, ifc, theJavaCache,
                         [&] { return buildIfc(env, ifc, theJavaCache); });
}

}  // namespace zntopo::bridge
