#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/Collection.h"

namespace zntopo::bridge {

namespace {

LocalRef<> createActionType(JavaEnv& env, ZNAuditAction::Type type) {
  return env.make<T_ActionType>(static_cast<jint>(type));
}

LocalRef<> createActionDetailType(JavaEnv& env, ZNAuditAction::Detail detail) {
  return env.make<T_ActionDetailType>(static_cast<jint>(detail));
}

LocalRef<> createAuditAction(JavaEnv& env, const ZNAuditAction& action) {
  const LocalRef<> type = createActionType(env, action.getType());
  const LocalRef<> detail = createActionDetailType(env, action.getDetail());
  return env.make<T_ZorbAuditAction>(jlong{action.getActionTimeUTC()}, type, detail,
                                     env.text(action.getInfo()));
}

LocalRef<> createAuditActionList(JavaEnv& env, const std::list<ZNAuditAction>& actions) {
  constexpr ListBuilder kList{"createAuditActionList", T_Vector, "ZorbAuditAction", true};
  return createCollection(env, kList, actions, [&](const ZNAuditAction& action) {
    return createAuditAction(env, action);
  });
}

LocalRef<> createAuditTrail(JavaEnv& env, const ZNAuditTrail& trail) {
  const LocalRef<> id = createID(env, trail.getObjID());
  const LocalRef<> type = env.make<T_EntityType>(static_cast<jint>(trail.getObjType()));
  return env.make<T_ZorbAuditTrail>(id, type, createAuditActionList(env, *trail.getActionList()));
}

}  // namespace

LocalRef<> createAuditTrailList(JavaEnv& env, const std::vector<ZNRefPtr<ZNAuditTrail>>& trails) {
  constexpr ListBuilder kList{"createAuditTrailList", T_Vector, "ZorbAuditTrail", true};
  return createCollection(env, kList, trails, [&](const ZNRefPtr<ZNAuditTrail>& trail) {
    return trail.isNull() ? LocalRef<>() : createAuditTrail(env, *trail);
  });
}

}  // namespace zntopo::bridge
