#include <com_corvane_tv_zntopology_ZorbNative.h>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"
#include "zntopo/bridge/detail/TopoInfo.h"
#include "zntopo/platform/tvutil/JavaNative.h"

using namespace zntopo;
using namespace zntopo::bridge;

ZORB_NATIVE(jobject, getTopologyStateNative)(JNIEnv* jni, jobject, jobject statusArg) {
  return runNative(jni, "getTopologyStateNative", statusArg, [&](JavaEnv& env) {
    ZNTopoAPI api;
    ZNTopoAPIStatus status;
    const ZNTopologyState state = api.getTopologyState(status);
    setStatus(env, statusArg, status);
    return status.isOK() ? createTopologyState(env, state) : LocalRef<>();
  });
}

ZORB_NATIVE(jobject, getAuditTrailNative)
(JNIEnv* jni, jobject, jlong starttime, jlong endtime, jint acttype, jint objtype, jobject status) {
  return runNative(jni, "getAuditTrailNative", status, [&](JavaEnv& env) {
    return listAnswer(
        env, {env, status}, {"getAuditTrail"},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& outcome) {
          return api.getAuditTrail(starttime, endtime, static_cast<ZNAuditAction::Type>(acttype),
                                   static_cast<ZNAuditTrail::ObjectType>(objtype), outcome);
        },
        [&](const auto& trails) { return createAuditTrailList(env, trails); });
  });
}

namespace {

/// Sets the status while what a helper raised waits, and raises that again.
void setStatusAside(JavaEnv& env, jobject statusArg, const ZNTopoAPIStatus& status) {
  const LocalRef<jthrowable> raised(env.jni(), env.jni()->ExceptionOccurred());
  env.clear();
  setStatus(env, statusArg, status);
  if (raised && !env.isStopped()) env.jni()->Throw(raised.get());
}

LocalRef<> makeTopoInfo(JNIEnv* jni) {
  const auto fail = [&](const char* message) {
    jni->ExceptionClear();
    javaNativeThrowIllegalStateException(jni, message);
    return LocalRef<>();
  };
  const LocalRef<jclass> type(jni, jni->FindClass("com/corvane/tv/zntopology/ZorbTopoInfo"));
  if (!type) return fail("Could not find ZorbTopoInfo class");
  jmethodID const constructor = jni->GetMethodID(type.get(), "<init>", "()V");
  if (constructor == nullptr) return fail("Could not find ZorbTopoInfo constructor");
  LocalRef<> made(jni, jni->NewObject(type.get(), constructor));
  if (!made || jni->ExceptionCheck()) return fail("Could not create ZorbTopoInfo");
  return made;
}

LocalRef<> topoInfoAnswer(JavaEnv& env, jobject statusArg) {
  LocalRef<> object = makeTopoInfo(env.jni());
  if (!object) return {};
  ZNTopoAPI api;
  ZNTopoAPIStatus status;
  const ZNTopologyInfo info = api.getTopologyInfo(status);
  if (!status.isOK()) {
    MCLog::log(MC_CRITICAL, "getTopologyInfo() fail \n");
    setStatus(env, statusArg, status);
    return {};
  }
  const std::string failure = fillTopoInfo(env.jni(), object, info);
  if (!failure.empty()) {
    setStatusAside(env, statusArg, {ZN_API_JNI_CALL_ERROR, failure});
    return {};
  }
  setStatus(env, statusArg, status);
  return object;
}

}  // namespace

ZORB_NATIVE(jobject, getNativeTopoInfo)(JNIEnv* jni, jobject, jobject statusArg) {
  return runNative(jni, "getNativeTopoInfo", statusArg,
                   [&](JavaEnv& env) { return topoInfoAnswer(env, statusArg); });
}
