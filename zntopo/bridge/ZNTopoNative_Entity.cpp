#include <com_corvane_tv_zntopology_ZorbNative.h>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"
#include "zntopo/model/ZNRefPtrConversion.h"

using namespace zntopo;
using namespace zntopo::bridge;

namespace {

/// The twin of an entity by its kind.
LocalRef<> createByKind(JavaEnv& env, const ZNRefPtr<ZNEntity>& entity, jobject theJavaCache) {
  switch (entity->getEntityType()) {
    case E_Node:
      return createNodeNative(env, ZNRefPtrConversion::ZNEntity2ZNNode(entity), theJavaCache);
    case E_Interface:
      return createInterfaceNative(env, ZNRefPtrConversion::ZNEntity2ZNInterface(entity),
                                   theJavaCache);
    case E_Subnet:
      return createSubnetNative(env, ZNRefPtrConversion::ZNEntity2ZNSubnet(entity), theJavaCache);
    default:
      return {};
  }
}

/// No entity is looked up for the identifier: callers ask for the kind that they mean. So the
/// answer is null, with a status of success.
ZNRefPtr<ZNEntity> findNone(ZNTopoAPI&, const ObjID&, ZNTopoAPIStatus&) { return {}; }

}  // namespace

ZORB_NATIVE(jobject, getEntityNativeByObjID)
(JNIEnv* jni, jobject, jobject ObjIDArg, jobject statusArg, jobject theJavaCache) {
  return byQRMObjID(jni, "getEntityNativeByObjID", ObjIDArg, statusArg, theJavaCache,
                    IDQuestion{findNone, createByKind});
}

ZORB_NATIVE(jobject, getEntityNativeByQRMObjID)
(JNIEnv* jni, jobject, jobject QRMIDArg, jobject statusArg, jobject theJavaCache) {
  return byQRMObjID(jni, "getEntityNativeByQRMObjID", QRMIDArg, statusArg, theJavaCache,
                    IDQuestion{findNone, createByKind});
}

ZORB_NATIVE(jobject, getEntityIDsByFilterNative)
(JNIEnv* jni, jobject, jobject filterArg, jobject statusArg) {
  return runNative(jni, "getEntityIDsByFilterNative", statusArg, [&](JavaEnv& env) {
    return idsByFilter(env, statusArg, filterArg, "getEntityIDsByFilter",
                       &ZNTopoAPI::getEntityIDsByFilter);
  });
}
