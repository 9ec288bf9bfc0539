#include <com_corvane_tv_zntopology_ZorbNative.h>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"

using namespace zntopo;
using namespace zntopo::bridge;

ZORB_NATIVE(jobject, getInterfacesByObjIDListNative)
(JNIEnv* jni, jobject, jobjectArray objIDsArg, jboolean areQRMOIDArg, jboolean getAllConnected,
 jobject statusArg, jobject theJavaCache) {
  return runNative(jni, "getInterfacesByObjIDListNative", statusArg, [&](JavaEnv& env) {
    const auto ids = createObjIDSetNative(env, objIDsArg);
    return objectsAnswer(
        env, {env, statusArg, theJavaCache}, {"getInterfacesByObjIDList"},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          std::set<ObjID> notFound;
          return api.getInterfacesByObjIDList(*ids, notFound, status, areQRMOIDArg != 0,
                                              getAllConnected != 0);
        },
        createInterfaceList);
  });
}

ZORB_NATIVE(jobject, getInterfaceIDListFromNode)
(JNIEnv* jni, jclass, jobject ObjIDArg, jobject statusArg) {
  return runNative(jni, "getInterfaceIDListFromNode", statusArg, [&](JavaEnv& env) {
    const ObjID id = getNativeObjID(env, ObjIDArg);
    return singleAnswer(
        env, {env, statusArg},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) { return api.getNodeByObjID(id, status); },
        [](JavaEnv& inner, const ZNRefPtr<ZNNode>& node, jobject) {
          return createObjIDSet(inner, node->getInterfaceIDSet());
        });
  });
}

ZORB_NATIVE(jobject, parseAndGetInterfacesByTopoFilterNative)
(JNIEnv* jni, jobject, jstring aFilterStr, jstring aFiltName, jobject statusArg,
 jobject theJavaCache) {
  return runNative(jni, "parseAndGetInterfacesByTopoFilterNative", statusArg, [&](JavaEnv& env) {
    return objectsAnswer(
        env, {env, statusArg, theJavaCache}, {"ParseAndGetInterfacesByTopoFilter"},
        byTexts(env, &ZNTopoAPI::ParseAndGetInterfacesByTopoFilter, aFilterStr, aFiltName),
        createInterfaceList);
  });
}
