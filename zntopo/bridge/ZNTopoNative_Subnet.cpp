#include <com_corvane_tv_zntopology_ZorbNative.h>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"

using namespace zntopo;
using namespace zntopo::bridge;

ZORB_NATIVE(jobject, getSubnetNativeByObjID)
(JNIEnv* jni, jobject, jobject ObjIDArg, jobject statusArg, jobject theJavaCache) {
  return runNative(jni, "getSubnetNativeByObjID", [&](JavaEnv& env) {
    const ObjID id = getNativeObjID(env, ObjIDArg);
    return singleAnswer(
        env, {env, statusArg, theJavaCache},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) { return api.getSubnetByObjID(id, status); },
        createSubnetNative);
  });
}

ZORB_NATIVE(jobject, getSubnetNativeByQRMObjID)
(JNIEnv* jni, jobject, jobject QRMIDArg, jobject statusArg, jobject theJavaCache) {
  return runNative(jni, "getSubnetNativeByQRMObjID", [&](JavaEnv& env) {
    ObjID id;
    if (!readObjID(env, QRMIDArg, "getSubnetNativeByQRMObjID", id)) return LocalRef<>();
    return singleAnswer(
        env, {env, statusArg, theJavaCache},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          return api.getSubnetByQRMObjID(id, status);
        },
        createSubnetNative);
  });
}

ZORB_NATIVE(jobject, getSubnetsNativeByObjIDs)
(JNIEnv* jni, jobject, jobjectArray objIDsArg, jboolean areQRMOIDArg, jobject statusArg,
 jobject theJavaCache, jint ipLevel, jboolean getAll, jint aRD) {
  return runNative(jni, "getSubnetsNativeByObjIDs", [&](JavaEnv& env) {
    const Answer answer(env, statusArg, theJavaCache);
    const auto ids = createObjIDSetNative(env, objIDsArg);
    return listAnswer(
        env, answer, {"getSubnetsByObjIDList"},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          return api.getSubnetsByObjIDList(*ids, status, areQRMOIDArg != 0, getAll != 0,
                                           static_cast<ZNEntity::IPLevel>(ipLevel), aRD);
        },
        [&](const auto& subnets) { return createSubnetList(env, subnets, answer.theJavaCache); });
  });
}

ZORB_NATIVE(jobject, getSubnetIDsByFilterNative)
(JNIEnv* jni, jobject, jobject filterArg, jobject /*batchInfoArg*/, jobject statusArg) {
  return runNative(jni, "getSubnetIDsByFilterNative", [&](JavaEnv& env) {
    return idsByFilter(env, statusArg, filterArg, "getSubnetIDsByFilter",
                       &ZNTopoAPI::getSubnetIDsByFilter);
  });
}

ZORB_NATIVE(jobject, getSubnetConnectivityNative)
(JNIEnv* jni, jobject, jobject nodeIDArg, jint numHopsArg, jobject /*batchInfoArg*/,
 jobject filterArg, jobject statusArg) {
  return runNative(jni, "getSubnetConnectivityNative", [&](JavaEnv& env) {
    const ObjID id = getNativeObjID(env, nodeIDArg);
    if (id.isNull()) return refuseID(env, statusArg, "The ObjID is null");
    return filteredIDs(env, statusArg, filterArg, "getNSubnetConnectivity",
                       [&](ZNTopoAPI& api, const ZNTopoFilter& filter, ZNTopoAPIStatus& status) {
                         return api.getNSubnetConnectivity(numHopsArg, id, filter, status);
                       });
  });
}
