#include "tools/zntopo/EventObjects.h"

namespace zntopo::tools {

namespace {

/// How many names are kept: some 10 MB.
constexpr std::size_t kMostNames = 20'000;
constexpr auto kPause = std::chrono::seconds(10);

NamedObject unnamed(const std::string& type, const ObjID& id) {
  return {.type = type, .id = id.toString(), .name = id.toString()};
}

}  // namespace

NamedObject EventObjects::named(const std::string& key, const NamedObject& unknown,
                                const std::function<NamedObject()>& ask) {
  const auto found = known_.find(key);
  if (found != known_.end()) return found->second;
  if (std::chrono::steady_clock::now() < askAgain_) return unknown;
  for (int tries = 0; tries < 2; ++tries) {
    try {
      NamedObject asked = ask();
      if (!asked.isKnown()) return asked;
      if (known_.size() >= kMostNames) known_.clear();
      return known_.emplace(key, std::move(asked)).first->second;
    } catch (const ToolError& error) {
      // Some names are told again when the topology is ready.
      if (error.status().getStatus() == ZN_API_DB_NOT_READY) return unknown;
      reconnect();
    }
  }
  // The event is told all the same.
  askAgain_ = std::chrono::steady_clock::now() + kPause;
  return unknown;
}

void EventObjects::reconnect() {
  TvXplMsg::MessageList_t ignored;
  session_.connection().StartTransaction(ignored);
  session_.connection().RollbackTransaction(ignored);
}

NamedObject EventObjects::object(EntityType type, const ObjID& id) {
  return named(std::to_string(type) + " " + id.toString(), unnamed(objectWord(type), id),
               [&] { return namedObject(session_, type, id); });
}

NamedObject EventObjects::hsrpMember(const ObjID& group, const ObjID& address) {
  NamedObject unknown = unnamed(objectWord(E_HSRP), group);
  unknown.address = unknown.addressId = address.toString();
  return named("hsrp " + group.toString() + " " + address.toString(), unknown,
               [&] { return namedHsrp(session_, group, address); });
}

NamedObject EventObjects::association(const ObjID& left, const ObjID& right, int relation) {
  NamedObject unknown = unnamed("association", left);
  unknown.right = unknown.rightId = right.toString();
  unknown.relation = relation;
  return named(
      "association " + left.toString() + " " + right.toString() + " " + std::to_string(relation),
      unknown, [&] { return namedAssociation(session_, left, right, relation); });
}

}  // namespace zntopo::tools
