#pragma once

#include <string>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/JavaEnv.h"
#include "zntopo/core/MCLog.h"

namespace zntopo::bridge {

/// What the kinds that the Java cache holds differ in.
template <JavaMethodID probe, JavaMethodID store>
struct CachedKind {
  const char* builder;
  const char* name;
};

/// True if the Java cache's class has both methods of a kind; logs else.
template <JavaMethodID probe, JavaMethodID store>
bool hasCacheMethods(JavaEnv& env, const CachedKind<probe, store>& kind) {
  if (env.isStopped()) return false;
  if (env.lookUp(T_ZorbTopoCache) == nullptr) {
    MCLog::log(MC_MINOR, "%s: Unable to find ZorbTopoCache class! \n", kind.builder);
  } else if (env.lookUp(probe) == nullptr || env.lookUp(store) == nullptr) {
    MCLog::log(MC_MINOR, "Unable to retrieve ZorbTopoCache methods! \n");
  } else {
    return true;
  }
  env.clear();
  return false;
}

/// The object of an identifier that the Java cache holds, or else what build makes, which the cache
/// is given. shownName gives the name of the object for the log.
template <JavaMethodID probe, JavaMethodID store, typename ShownName, typename Build>
LocalRef<> buildOnce(JavaEnv& env, const CachedKind<probe, store>& kind, const ObjID& id,
                     jobject theJavaCache, ShownName shownName, Build build) {
  if (!hasCacheMethods(env, kind)) return {};
  if (theJavaCache != nullptr && !id.isNull()) {
    const LocalRef<jstring> text = env.text(id.getStrValue());
    LocalRef<> known = env.call<probe>(theJavaCache, text);
    if (known && MCLog::isHeard(MC_INFO)) {
      MCLog::log(MC_INFO, "FOUND %s IN JAVA CACHE - %s \n", kind.name, shownName().c_str());
    }
    if (known || env.isStopped()) return known;
  }
  LocalRef<> made = build();
  if (!made || theJavaCache == nullptr) return made;
  if (MCLog::isHeard(MC_INFO)) {
    MCLog::log(MC_INFO, "ADDING %s TO JAVA CACHE - %s \n", kind.name, shownName().c_str());
  }
  env.call<store>(theJavaCache, made);
  return made;
}

/// The same of an entity; null for a null handle.
template <JavaMethodID probe, JavaMethodID store, typename Entity, typename Build>
LocalRef<> buildEntityOnce(JavaEnv& env, const CachedKind<probe, store>& kind,
                           const ZNRefPtr<Entity>& entity, jobject theJavaCache, Build build) {
  if (entity.isNull()) return {};
  return buildOnce(
      env, kind, entity->getObjID(), theJavaCache, [&] { return entity->getName(); }, build);
}

}  // namespace zntopo::bridge
