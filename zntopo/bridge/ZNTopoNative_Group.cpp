#include <com_corvane_tv_zntopology_ZorbNative.h>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"

using namespace zntopo;
using namespace zntopo::bridge;

ZORB_NATIVE(jobject, getVlans)
(JNIEnv* jni, jobject, jobject statusArg, jobject theJavaCache, jint aRD) {
  return runNative(jni, "getVlans", statusArg, [&](JavaEnv& env) {
    return objectsAnswer(
        env, {env, statusArg, theJavaCache}, {"getVlansByObjIDList"},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          std::set<ObjID> notFound;
          return api.getVlansByObjIDList({}, notFound, status, true, aRD);
        },
        createVlanList);
  });
}

ZORB_NATIVE(jobject, getVlanByObjIDNative)
(JNIEnv* jni, jobject, jobject aObjID, jobject statusArg, jobject theJavaCache) {
  return byObjID(jni, "getVlanByObjIDNative", aObjID, statusArg, theJavaCache,
                 IDQuestion{&ZNTopoAPI::getVlanByObjID, createVlan});
}

ZORB_NATIVE(jobject, getIfcsByObjIDListNative)
(JNIEnv* jni, jobject, jobjectArray objIDsArg, jobject statusArg, jobject theJavaCache) {
  return runNative(jni, "getIfcsByObjIDListNative", statusArg, [&](JavaEnv& env) {
    const auto ids = createObjIDSetNative(env, objIDsArg);
    return objectsAnswer(
        env, {env, statusArg, theJavaCache}, {"getIfcsByObjIDList"},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          std::set<ObjID> notFound;
          return api.getIfcsByObjIDList(*ids, notFound, status, false, kNoRD);
        },
        createIfcList);
  });
}

ZORB_NATIVE(jobject, getIfcsByTypeNative)
(JNIEnv* jni, jobject, jint jIfcType, jobject statusArg, jobject theJavaCache) {
  return runNative(jni, "getIfcsByTypeNative", statusArg, [&](JavaEnv& env) {
    return objectsAnswer(
        env, {env, statusArg, theJavaCache}, {"getIfcsByType"},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          return api.getIfcsByType(jIfcType, status, kNoRD);
        },
        createIfcList);
  });
}

ZORB_NATIVE(jobject, getIfcInfosByObjIDListNative)
(JNIEnv* jni, jobject, jobjectArray objIDsArg, jboolean useNodeAsKey, jboolean getAll, jint IFCType,
 jobject statusArg) {
  return runNative(jni, "getIfcInfosByObjIDListNative", statusArg, [&](JavaEnv& env) {
    const auto ids = createObjIDSetNative(env, objIDsArg);
    return listAnswer(
        env, {env, statusArg}, {"getIfcInfosByObjIDList"},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          return api.getIfcInfosByObjIDList(*ids, status, useNodeAsKey != 0, getAll != 0, IFCType);
        },
        [&](const auto& infos) { return createIfcInfoListOfMap(env, infos); });
  });
}

ZORB_NATIVE(jobject, getHSRPsNativeByObjIDs)
(JNIEnv* jni, jobject, jobjectArray objIDsArg, jboolean allHSRPsArg, jobject statusArg,
 jobject theJavaCache) {
  return runNative(jni, "getHSRPsNativeByObjIDs", statusArg, [&](JavaEnv& env) {
    const auto ids = createObjIDSetNative(env, objIDsArg);
    return objectsAnswer(
        env, {env, statusArg, theJavaCache}, {"getHSRPsByObjIDList"},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          std::set<ObjID> notFound;
          return api.getHSRPsByObjIDList(*ids, notFound, status, allHSRPsArg != 0, kNoRD);
        },
        createHSRPList);
  });
}
