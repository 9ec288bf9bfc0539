#include <com_corvane_tv_zntopology_ZorbNative.h>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"
#include "zntopo/platform/tvutil/JavaNative.h"

using namespace zntopo;
using namespace zntopo::bridge;

ZORB_NATIVE(jobject, getTopologyStateNative)(JNIEnv* jni, jobject, jobject statusArg) {
  return runNative(jni, "getTopologyStateNative", [&](JavaEnv& env) {
    ZNTopoAPI api;
    ZNTopoAPIStatus status;
    const ZNTopologyState state = api.getTopologyState(status);
    setStatus(env, statusArg, status);
    return status.isOK() ? createTopologyState(env, state) : LocalRef<>();
  });
}

ZORB_NATIVE(jobject, getAuditTrailNative)
(JNIEnv* jni, jobject, jlong starttime, jlong endtime, jint acttype, jint objtype, jobject status) {
  return runNative(jni, "getAuditTrailNative", [&](JavaEnv& env) {
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

constexpr const char* topoInfoName = "ZorbTopoInfo";

/// A number of the counts, and the Java field that shows it.
struct InfoField {
  const char* name;
  jlong (*value)(const ZNTopologyInfo& info);
};

constexpr InfoField kInfoFields[] = {
    {"cacheTimeStamp",
     [](const ZNTopologyInfo& info) -> jlong {
       return info.getTopologyState().getLastTopoReadyChangeTime();
     }},
    {"myNumNode", [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfNode(); }},
    {"myNumV4Node", [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfIPV4Node(); }},
    {"myNumV6Node", [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfIPV6Node(); }},
    {"myNumV4SNMPNode",
     [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfV4SNMPNode(); }},
    {"myNumInterface",
     [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfInterface(); }},
    {"myNumV4Interface",
     [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfIPV4Interface(); }},
    {"myNumV6Interface",
     [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfIPV6Interface(); }},
    {"myNumPrefixGroup",
     [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfPrefixGroup(); }},
    {"myNumSubnet", [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfSubnet(); }},
    {"myNumVlan", [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfVlan(); }},
    {"myNumHSRP", [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfHSRP(); }},
    {"myNumMesh", [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfMesh(); }},
    {"myNumL2Link", [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfL2Link(); }},
    {"myNumV4Addr",
     [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfV4Address(); }},
    {"myNumV6Addr",
     [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfV6Address(); }},
    {"myNumDNSName", [](const ZNTopologyInfo& info) -> jlong { return info.getNumberOfDNSName(); }},
    {"myDiscoStartTime",
     [](const ZNTopologyInfo& info) -> jlong {
       return info.getTopologyState().getCompleteTopologyState().createTime;
     }},
    {"myTopoReadyTime",
     [](const ZNTopologyInfo& info) -> jlong {
       return info.getTopologyState().getCompleteTopologyState().topologyReadyTime;
     }},
};

/// What could not be set; empty if all could. A field helper that fails deletes the object's
/// reference, which is released to it then.
std::string fillNumbers(JNIEnv* jni, LocalRef<>& object, const ZNTopologyInfo& info) {
  for (const InfoField& field : kInfoFields) {
    if (javaNativeSetInstanceLongOrDeleteAndException(jni, topoInfoName, object.get(), field.name,
                                                      field.value(info)) == 0) {
      continue;
    }
    object.release();
    const bool isFirst = &field == kInfoFields;
    return "doSetTopoInfoLong() fail" + (isFirst ? "" : std::string(" for ") + field.name);
  }
  return "";
}

std::string fillTexts(JNIEnv* jni, LocalRef<>& object, const ZNTopologyInfo& info) {
  if (javaNativeSetInstanceStringNoCodesetOrDeleteAndException(
          jni, topoInfoName, object.get(), "topologyState",
          info.getTopologyState().toString().c_str()) != 0) {
    object.release();
    return "doSetTopoInfoString() fail for topologyState";
  }
  char** names = nullptr;
  int* counts = nullptr;
  const int entries = createNameCountArrayFromMap(info.getRDMap(), &names, &counts);
  std::string failure;
  if (javaNativeSetInstanceStringArray(jni, object.get(), "myRDCountName", names, entries) != 0) {
    failure = "doSetTopoInfoStringArray() fail for myRDCountName";
  } else if (javaNativeSetInstanceIntArray(jni, object.get(), "myRDCount", counts, entries) != 0) {
    failure = "doSetTopoInfoIntArray() fail for myRDCount";
  }
  freeNameCountArray(names, counts, entries);
  return failure;
}

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
  std::string failure = fillNumbers(env.jni(), object, info);
  if (failure.empty()) failure = fillTexts(env.jni(), object, info);
  if (!failure.empty()) {
    setStatusAside(env, statusArg, {ZN_API_JNI_CALL_ERROR, failure});
    return {};
  }
  setStatus(env, statusArg, status);
  return object;
}

}  // namespace

ZORB_NATIVE(jobject, getNativeTopoInfo)(JNIEnv* jni, jobject, jobject statusArg) {
  return runNative(jni, "getNativeTopoInfo",
                   [&](JavaEnv& env) { return topoInfoAnswer(env, statusArg); });
}
