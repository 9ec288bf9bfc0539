#include "zntopo/bridge/detail/Builders.h"

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

constexpr ValueList<std::list<ZNAuditAction>> createAuditActionList{
    {"createAuditActionList", T_Vector, "ZorbAuditAction", true}, createAuditAction};

}  // namespace

LocalRef<> createAuditTrail(JavaEnv& env, const ZNAuditTrail& trail) {
  const LocalRef<> id = createID(env, trail.getObjID());
  const LocalRef<> type = env.make<T_EntityType>(static_cast<jint>(trail.getObjType()));
  return env.make<T_ZorbAuditTrail>(id, type, createAuditActionList(env, *trail.getActionList()));
}

}  // namespace zntopo::bridge
