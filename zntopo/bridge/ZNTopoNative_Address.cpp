#include <com_corvane_tv_zntopology_ZorbNative.h>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"

using namespace zntopo;
using namespace zntopo::bridge;

ZORB_NATIVE(jobject, getAddressNativeByObjID)
(JNIEnv* jni, jobject, jobject ObjIDArg, jobject statusArg, jobject theJavaCache) {
  return byObjID(
      jni, "getAddressNativeByObjID", ObjIDArg, statusArg, theJavaCache,
      IDQuestion{&ZNTopoAPI::getAddressByObjID, createAddress, "The Address ObjID is null"});
}

ZORB_NATIVE(jobject, getAddressNativeByQRMObjID)
(JNIEnv* jni, jobject, jobject ObjIDArg, jobject statusArg, jobject theJavaCache) {
  return byQRMObjID(
      jni, "getAddressNativeByQRMObjID", ObjIDArg, statusArg, theJavaCache,
      IDQuestion{&ZNTopoAPI::getAddressByQRMObjID, createAddress, "The Address QRMObjID is null"});
}

ZORB_NATIVE(jobject, getAddrsNativeByObjIDs)
(JNIEnv* jni, jobject, jobjectArray addrIDs, jobject statusArg, jobject theJavaCache) {
  return runNative(jni, "getAddrsNativeByObjIDs", statusArg, [&](JavaEnv& env) {
    const auto ids = createObjIDListNative(env, addrIDs);
    return objectsAnswer(
        env, {env, statusArg, theJavaCache}, {"getAddrsByObjIDs"},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          return api.getAddrsByObjIDs(*ids, status, false, ZNAddress::Unknown);
        },
        createAddressList);
  });
}

ZORB_NATIVE(jobject, resolveIPv6ToDNSNative)
(JNIEnv* jni, jobject, jobject theIPv6Addr, jobject statusArg) {
  return runNative(jni, "resolveIPv6ToDNSNative", statusArg, [&](JavaEnv& env) {
    const ObjID id = getNativeObjID(env, theIPv6Addr);
    return listAnswer(
        env, {env, statusArg}, {"resolveIPv6ToDNS"},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) { return api.resolveIPv6ToDNS(id, status); },
        [&](const auto& names) { return createTextList(env, names); });
  });
}
