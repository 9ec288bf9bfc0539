#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/CachedBuild.h"
#include "zntopo/bridge/detail/Collection.h"
#include "zntopo/model/ZNRefPtrConversion.h"

namespace zntopo::bridge {

namespace {

constexpr CachedKind<M_hasSubnetID, M_addSubnet> kSubnet{"createSubnet", "SUBNET"};
constexpr CachedKind<M_hasVlanID, M_addVlan> kVlan{"createVlan", "VLAN"};
constexpr CachedKind<M_hasHSRPID, M_addHSRP> kHSRP{"createHSRP", "HSRP"};
constexpr CachedKind<M_hasIfcID, M_addIfc> kIfc{"createIfc", "IFC"};

LocalRef<> createEndPointList(JavaEnv& env, const std::list<SubnetEndPoint>& endPoints) {
  constexpr ListBuilder kList{"createEndPointList", T_Vector, "SubnetEndPoint"};
  return createCollection(env, kList, endPoints, [&](const SubnetEndPoint& endPoint) {
    const LocalRef<> address = createID(env, endPoint.getAddressID());
    const LocalRef<> node = createID(env, endPoint.getNodeObjID());
    const LocalRef<> interface = createID(env, endPoint.getIFObjID());
    return env.make<T_SubnetEndPoint>(address, node, interface);
  });
}

LocalRef<> createVlanIFInfo(JavaEnv& env, const ZNVlanIFInfo& info) {
  const LocalRef<> interface = createID(env, info.getIFObjID());
  const LocalRef<jstring> board = env.text(info.getBoardNumber());
  const LocalRef<jstring> port = env.text(info.getPortNumber());
  return env.make<T_ZorbVlanIFInfo>(interface, board, port);
}

LocalRef<> createVlanIFInfoList(JavaEnv& env, const std::list<ZNVlanIFInfo>& infos) {
  constexpr ListBuilder kList{"createVlanIFInfoList", T_ArrayList, "ZorbVlanIFInfo", true};
  return createCollection(env, kList, infos,
                          [&](const ZNVlanIFInfo& info) { return createVlanIFInfo(env, info); });
}

LocalRef<> createVlanInfo(JavaEnv& env, const ZNVlanInfo& info) {
  const LocalRef<> vlan = createID(env, info.getVlanObjID());
  const LocalRef<> node = createID(env, info.getNodeObjID());
  const LocalRef<jstring> name = env.text(info.getNodeName());
  const LocalRef<> interfaces = createVlanIFInfoList(env, info.getVlanIFInfoList());
  return env.make<T_ZorbVlanInfo>(vlan, node, name, interfaces);
}

LocalRef<> createHSRPState(JavaEnv& env, ZNHSRPAddressInfo::HSRPState state) {
  return env.make<T_ZorbHSRPState>(static_cast<jint>(state));
}

LocalRef<> createTrackIFInfoList(JavaEnv& env, const std::list<TrackInterfaceInfo>& tracked) {
  constexpr ListBuilder kList{"createTrackIFInfoList", T_ArrayList, "HSRPTrackIFInfo", true};
  return createCollection(env, kList, tracked, [&](const TrackInterfaceInfo& info) {
    return env.make<T_HSRPTrackIFInfo>(createID(env, info.ifObjID), jint{info.ifPriority});
  });
}

LocalRef<> createAddrInfo(JavaEnv& env, const ZNHSRPAddressInfo& info) {
  const LocalRef<> interface = createID(env, info.getIFObjID());
  const LocalRef<> address = createID(env, info.getAddressID());
  const LocalRef<> state = createHSRPState(env, info.getHSRPState());
  const LocalRef<> tracked = createTrackIFInfoList(env, info.getTrackInterfaceInfoList());
  return env.make<T_ZorbHSRPAddressInfo>(jint{info.getHSRPNumber()}, interface, address,
                                         jint{info.getHSRPPriority()}, state,
                                         jint{info.getHSRPStateCertainty()}, tracked);
}

LocalRef<> createAddrInfoList(JavaEnv& env, const std::list<ZNHSRPAddressInfo>& infos) {
  constexpr ListBuilder kList{"createAddrInfoList", T_Vector, "ZorbHSRPAddressInfo"};
  return createCollection(env, kList, infos,
                          [&](const ZNHSRPAddressInfo& info) { return createAddrInfo(env, info); });
}

LocalRef<> createIfcIFInfoNative(JavaEnv& env, const ZNIfcIFInfo& info) {
  const LocalRef<> ifc = createID(env, info.getIfcObjId());
  const LocalRef<> interface = createID(env, info.getInterfaceObjId());
  return env.make<T_ZorbIfcIFInfo>(ifc, jint{info.getIfcType()}, jint{info.getContainmentType()},
                                   jint{info.getSeqNum()}, interface);
}

LocalRef<> createIfcInfoListFromIfc(JavaEnv& env, const std::list<ZNIfcInfo>& infos) {
  constexpr ListBuilder kList{"createIfcInfoListFromIfc", T_ArrayList, "ZorbIfcInfo"};
  return createCollection(env, kList, infos,
                          [&](const ZNIfcInfo& info) { return createIfcInfoNative(env, info); });
}

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

LocalRef<> createIfcAssocInfoList(JavaEnv& env, const std::list<ZNRefPtr<ZNIfcAssocInfo>>& infos) {
  constexpr ListBuilder kList{"createIfcAssocInfoList", T_Vector, "ZorbIfcAssocInfo"};
  return createCollection(env, kList, infos, [&](const ZNRefPtr<ZNIfcAssocInfo>& info) {
    return info.isNull() ? LocalRef<>() : createIfcAssocInfoNative(env, *info);
  });
}

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

LocalRef<> createVlanInfoList(JavaEnv& env, const std::list<ZNVlanInfo>& infos) {
  constexpr ListBuilder kList{"createVlanInfoList", T_ArrayList, "ZorbVlanInfo", true};
  return createCollection(env, kList, infos,
                          [&](const ZNVlanInfo& info) { return createVlanInfo(env, info); });
}

LocalRef<> createIfcInfoNative(JavaEnv& env, const ZNIfcInfo& info) {
  constexpr ListBuilder kList{"createIfcInfoNative", T_ArrayList, "ZorbIfcIFInfo"};
  const LocalRef<> id = createID(env, info.getIfcInfoObjID());
  const LocalRef<> members = createCollection(
      env, kList, info.getAllIfcIFInfos(),
      [&](const ZNIfcIFInfo& member) { return createIfcIFInfoNative(env, member); });
  return env.make<T_ZorbIfcInfo>(id, members);
}

LocalRef<> createIfcInfoList(JavaEnv& env, const std::list<ZNIfcInfo>& infos) {
  constexpr ListBuilder kList{"createIfcInfoList", T_ArrayList, "ZorbIfcInfo"};
  return createCollection(env, kList, infos,
                          [&](const ZNIfcInfo& info) { return createIfcInfoNative(env, info); });
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
  if (subnet.isNull()) return {};
  return buildOnce(
      env, kSubnet, subnet->getObjID(), theJavaCache, [&] { return subnet->getName(); },
      [&] {
        const LocalRef<> entity =
            createEntity(env, ZNRefPtrConversion::ZNSubnet2ZNEntity(subnet), theJavaCache);
        return env.make<T_ZorbSubnet>(entity,
                                      createEndPointList(env, subnet->getSubnetEndPointList()));
      });
}

LocalRef<> createVlan(JavaEnv& env, ZNRefPtr<ZNVlan> vlan, jobject theJavaCache) {
  if (vlan.isNull()) return {};
  return buildOnce(
      env, kVlan, vlan->getObjID(), theJavaCache, [&] { return vlan->getName(); },
      [&] {
        const LocalRef<> entity =
            createEntity(env, ZNRefPtrConversion::ZNVlan2ZNEntity(vlan), theJavaCache);
        return env.make<T_ZorbVlan>(entity, createVlanInfoList(env, vlan->getVlanInfoList()));
      });
}

LocalRef<> createHSRP(JavaEnv& env, ZNRefPtr<ZNHSRP> hsrp, jobject theJavaCache) {
  if (hsrp.isNull()) return {};
  return buildOnce(
      env, kHSRP, hsrp->getObjID(), theJavaCache, [&] { return hsrp->getName(); },
      [&] {
        const LocalRef<> entity =
            createEntity(env, ZNRefPtrConversion::ZNHSRP2ZNEntity(hsrp), theJavaCache);
        return env.make<T_ZorbHSRP>(entity, createAddrInfoList(env, hsrp->getHSRPAddrInfoList()));
      });
}

LocalRef<> createIfcNative(JavaEnv& env, ZNRefPtr<ZNIfc> ifc, jobject theJavaCache) {
  if (ifc.isNull()) return {};
  return buildOnce(
      env, kIfc, ifc->getObjID(), theJavaCache, [&] { return ifc->getName(); },
      [&] { return buildIfc(env, ifc, theJavaCache); });
}

LocalRef<> createSubnetList(JavaEnv& env, const std::list<ZNRefPtr<ZNSubnet>>& subnets,
                            jobject theJavaCache) {
  constexpr ListBuilder kList{"createSubnetList", T_Vector, "ZorbSubnet", true};
  return createObjects(env, kList, subnets, theJavaCache, createSubnetNative);
}

LocalRef<> createVlanList(JavaEnv& env, const std::list<ZNRefPtr<ZNVlan>>& vlans,
                          jobject theJavaCache) {
  constexpr ListBuilder kList{"createVlanList", T_Vector, "ZorbVlan"};
  return createObjects(env, kList, vlans, theJavaCache, createVlan);
}

LocalRef<> createHSRPList(JavaEnv& env, const std::list<ZNRefPtr<ZNHSRP>>& groups,
                          jobject theJavaCache) {
  constexpr ListBuilder kList{"createHSRPList", T_Vector, "ZorbHSRP"};
  return createObjects(env, kList, groups, theJavaCache, createHSRP);
}

LocalRef<> createIfcList(JavaEnv& env, const std::list<ZNRefPtr<ZNIfc>>& ifcs,
                         jobject theJavaCache) {
  constexpr ListBuilder kList{"createIfcList", T_Vector, "ZorbIfc"};
  return createObjects(env, kList, ifcs, theJavaCache, createIfcNative);
}

}  // namespace zntopo::bridge
