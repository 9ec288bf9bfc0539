#include <com_corvane_tv_zntopology_ZorbNative.h>

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"

using namespace zntopo;
using namespace zntopo::bridge;

namespace {

/// What the log calls both natives that change the cache, misspelt as it ever was.
constexpr const char* kUpdate = "refeshEntityNative";

}  // namespace

ZORB_NATIVE(void, updateCacheObjectStatusNative)
(JNIEnv* jni, jobject, jobject ObjIDArg, jboolean isAddress, jint entityTypeArg, jint tvwStatus,
 jlong changeTimeUTC, jint entStatusType, jobject statusArg, jboolean isQRMID) {
  runNative(jni, "updateCacheObjectStatusNative", statusArg, [&](JavaEnv& env) {
    ObjID id;
    if (!readObjID(env, ObjIDArg, kUpdate, id)) return;
    ZNTopoAPI api;
    ZNTopoAPIStatus status;
    api.updateCacheObjectStatus(
        id, isAddress != 0, static_cast<EntityType>(entityTypeArg), tvwStatus, changeTimeUTC,
        static_cast<ZNEntity::EntityStatusType>(entStatusType), status, isQRMID != 0);
    setStatus(env, statusArg, status);
  });
}

ZORB_NATIVE(void, updateCacheObjectAttributeNative)
(JNIEnv* jni, jobject, jobject objIDArg, jint theEntType, jint theAttrType, jint theAttrVal,
 jobject theAddrID, jobject theStatusArg) {
  runNative(jni, "updateCacheObjectAttributeNative", theStatusArg, [&](JavaEnv& env) {
    ObjID id;
    ObjID addressID;
    if (!readObjID(env, objIDArg, kUpdate, id) || !readObjID(env, theAddrID, kUpdate, addressID)) {
      return;
    }
    ZNTopoAPI_Impl impl(ActiveDB);
    ZNTopoAPIStatus status;
    impl.updateCacheObjectAttribute(id, static_cast<EntityType>(theEntType),
                                    static_cast<TopologyAttributeType>(theAttrType), theAttrVal,
                                    addressID, status);
    setStatus(env, theStatusArg, status);
  });
}
