#include <com_corvane_tv_zntopology_ZorbNative.h>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"

using namespace zntopo;
using namespace zntopo::bridge;

ZORB_NATIVE(jobject, getNodeNativeByObjID)
(JNIEnv* jni, jobject, jobject ObjIDArg, jobject statusArg, jobject theJavaCache) {
  return byObjID(jni, "getNodeNativeByObjID", ObjIDArg, statusArg, theJavaCache,
                 IDQuestion{&ZNTopoAPI::getNodeByObjID, createNodeNative});
}

ZORB_NATIVE(jobject, getNodeNativeByQRMObjID)
(JNIEnv* jni, jobject, jobject QRMIDArg, jobject statusArg, jobject theJavaCache) {
  return byQRMObjID(jni, "getNodeNativeByQRMObjID", QRMIDArg, statusArg, theJavaCache,
                    IDQuestion{&ZNTopoAPI::getNodeByQRMObjID, createNodeNative});
}

ZORB_NATIVE(jobject, getNativeNodeByName)
(JNIEnv* jni, jobject, jstring aName, jobject statusArg, jobject theJavaCache) {
  return runNative(jni, "getNativeNodeByName", statusArg, [&](JavaEnv& env) {
    const auto find = [](ZNTopoAPI& api, const std::string& name, ZNTopoAPIStatus& status) {
      return api.getNodeByName(name, status, kNoRD);
    };
    return singleAnswer(env, {env, statusArg, theJavaCache}, byTexts(env, find, aName),
                        createNodeNative);
  });
}

ZORB_NATIVE(jobject, getNativeAllNodes)
(JNIEnv* jni, jobject, jobject statusArg, jobject theJavaCache, jint ipLevel, jint aRD) {
  return runNative(jni, "getNativeAllNodes", statusArg, [&](JavaEnv& env) {
    return objectsAnswer(
        env, {env, statusArg, theJavaCache}, {"getNodesByObjIDList"},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          std::set<ObjID> notFound;
          return api.getNodesByObjIDList({}, notFound, status, true, false, true,
                                         static_cast<ZNEntity::IPLevel>(ipLevel), aRD);
        },
        createNodeList);
  });
}

ZORB_NATIVE(jobject, getNodeIDsByFilterNative)
(JNIEnv* jni, jobject, jobject filterArg, jobject /*batchInfoArg*/, jobject statusArg) {
  return runNative(jni, "getNodeIDsByFilterNative", statusArg, [&](JavaEnv& env) {
    return idsByFilter(env, statusArg, filterArg, "getNodeIDsByFilter",
                       &ZNTopoAPI::getNodeIDsByFilter);
  });
}

ZORB_NATIVE(jobject, parseAndGetNodesByTopoFilterNative)
(JNIEnv* jni, jobject, jstring aFilterStr, jstring aFiltName, jobject statusArg,
 jobject theJavaCache) {
  return runNative(jni, "parseAndGetNodesByTopoFilterNative", statusArg, [&](JavaEnv& env) {
    return objectsAnswer(
        env, {env, statusArg, theJavaCache}, {"ParseAndGetNodesByTopoFilter"},
        byTexts(env, &ZNTopoAPI::ParseAndGetNodesByTopoFilter, aFilterStr, aFiltName),
        createNodeList);
  });
}
