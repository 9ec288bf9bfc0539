#include <com_corvane_tv_zntopology_ZorbNative.h>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"

using namespace zntopo;
using namespace zntopo::bridge;

ZORB_NATIVE(jobject, getAddressNativeByObjID)
(JNIEnv* jni, jobject, jobject ObjIDArg, jobject statusArg, jobject theJavaCache) {
  return runNative(jni, "getAddressNativeByObjID", [&](JavaEnv& env) {
    const ObjID id = getNativeObjID(env, ObjIDArg);
    if (id.isNull()) return refuseID(env, statusArg, "The Address ObjID is null");
    return singleAnswer(
        env, {env, statusArg, theJavaCache},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) { return api.getAddressByObjID(id, status); },
        createAddress);
  });
}

ZORB_NATIVE(jobject, getAddressNativeByQRMObjID)
(JNIEnv* jni, jobject, jobject ObjIDArg, jobject statusArg, jobject theJavaCache) {
  return runNative(jni, "getAddressNativeByQRMObjID", [&](JavaEnv& env) {
    ObjID id;
    if (!readObjID(env, ObjIDArg, "getAddressNativeByQRMObjID", id)) return LocalRef<>();
    if (id.isNull()) return refuseID(env, statusArg, "The Address QRMObjID is null");
    return singleAnswer(
        env, {env, statusArg, theJavaCache},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          return api.getAddressByQRMObjID(id, status);
        },
        createAddress);
  });
}

ZORB_NATIVE(jobject, getAddrsNativeByObjIDs)
(JNIEnv* jni, jobject, jobjectArray addrIDs, jobject statusArg, jobject theJavaCache) {
  return runNative(jni, "getAddrsNativeByObjIDs", [&](JavaEnv& env) {
    const Answer answer(env, statusArg, theJavaCache);
    const auto ids = createObjIDListNative(env, addrIDs);
    return listAnswer(
        env, answer, {"getAddrsByObjIDs"},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          return api.getAddrsByObjIDs(*ids, status, false, ZNAddress::Unknown);
        },
        [&](const auto& addresses) {
          return createAddressList(env, addresses, answer.theJavaCache);
        });
  });
}

ZORB_NATIVE(jobject, resolveIPv6ToDNSNative)
(JNIEnv* jni, jobject, jobject theIPv6Addr, jobject statusArg) {
  return runNative(jni, "resolveIPv6ToDNSNative", [&](JavaEnv& env) {
    const ObjID id = getNativeObjID(env, theIPv6Addr);
    return listAnswer(
        env, {env, statusArg}, {"resolveIPv6ToDNS"},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) { return api.resolveIPv6ToDNS(id, status); },
        [&](const auto& names) { return createTextList(env, names); });
  });
}
