#include <com_corvane_tv_zntopology_ZorbNative.h>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"

using namespace zntopo;
using namespace zntopo::bridge;

ZORB_NATIVE(jobject, getSubnetNativeByObjID)
(JNIEnv* jni, jobject, jobject ObjIDArg, jobject statusArg, jobject theJavaCache) {
  return runNative(jni, "getSubnetNativeByObjID", [&](JavaEnv& env) {
    return byObjID(env, {env, statusArg, theJavaCache}, ObjIDArg, &ZNTopoAPI::getSubnetByObjID,
                   createSubnetNative);
  });
}

ZORB_NATIVE(jobject, getSubnetNativeByQRMObjID)
(JNIEnv* jni, jobject, jobject QRMIDArg, jobject statusArg, jobject theJavaCache) {
  return runNative(jni, "getSubnetNativeByQRMObjID", [&](JavaEnv& env) {
    return byQRMObjID(env, "getSubnetNativeByQRMObjID", {env, statusArg, theJavaCache}, QRMIDArg,
                      &ZNTopoAPI::getSubnetByQRMObjID, createSubnetNative);
  });
}

ZORB_NATIVE(jobject, getSubnetsNativeByObjIDs)
(JNIEnv* jni, jobject, jobjectArray objIDsArg, jboolean areQRMOIDArg, jobject statusArg,
 jobject theJavaCache, jint ipLevel, jboolean getAll, jint aRD) {
  return runNative(jni, "getSubnetsNativeByObjIDs", [&](JavaEnv& env) {
    const auto ids = createObjIDSetNative(env, objIDsArg);
    return objectsAnswer(
        env, {env, statusArg, theJavaCache}, {"getSubnetsByObjIDList"},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          return api.getSubnetsByObjIDList(*ids, status, areQRMOIDArg != 0, getAll != 0,
                                           static_cast<ZNEntity::IPLevel>(ipLevel), aRD);
        },
        createSubnetList);
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
