#include <com_corvane_tv_zntopology_ZorbNative.h>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"

using namespace zntopo;
using namespace zntopo::bridge;

ZORB_NATIVE(jobject, getSubnetNativeByObjID)
(JNIEnv* jni, jobject, jobject ObjIDArg, jobject statusArg, jobject theJavaCache) {
  return byObjID(jni, "getSubnetNativeByObjID", ObjIDArg, statusArg, theJavaCache,
                 IDQuestion{&ZNTopoAPI::getSubnetByObjID, createSubnetNative});
}

ZORB_NATIVE(jobject, getSubnetNativeByQRMObjID)
(JNIEnv* jni, jobject, jobject QRMIDArg, jobject statusArg, jobject theJavaCache) {
  return byQRMObjID(jni, "getSubnetNativeByQRMObjID", QRMIDArg, statusArg, theJavaCache,
                    IDQuestion{&ZNTopoAPI::getSubnetByQRMObjID, createSubnetNative});
}

ZORB_NATIVE(jobject, getSubnetsNativeByObjIDs)
(JNIEnv* jni, jobject, jobjectArray objIDsArg, jboolean areQRMOIDArg, jobject statusArg,
 jobject theJavaCache, jint ipLevel, jboolean getAll, jint aRD) {
  return runNative(jni, "getSubnetsNativeByObjIDs", statusArg, [&](JavaEnv& env) {
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
  return runNative(jni, "getSubnetIDsByFilterNative", statusArg, [&](JavaEnv& env) {
    return idsByFilter(env, statusArg, filterArg, "getSubnetIDsByFilter",
                       &ZNTopoAPI::getSubnetIDsByFilter);
  });
}

ZORB_NATIVE(jobject, getSubnetConnectivityNative)
(JNIEnv* jni, jobject, jobject nodeIDArg, jint numHopsArg, jobject /*batchInfoArg*/,
 jobject filterArg, jobject statusArg) {
  return runNative(jni, "getSubnetConnectivityNative", statusArg, [&](JavaEnv& env) {
    const ObjID id = getNativeObjID(env, nodeIDArg);
    if (id.isNull()) return refuseID(env, statusArg, "The ObjID is null");
    return filteredIDs(env, statusArg, filterArg, "getNSubnetConnectivity",
                       [&](ZNTopoAPI& api, const ZNTopoFilter& filter, ZNTopoAPIStatus& status) {
                         return api.getNSubnetConnectivity(numHopsArg, id, filter, status);
                       });
  });
}
