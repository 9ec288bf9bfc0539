#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>

#include "tools/zntopo/NamedObject.h"

namespace zntopo::tools {

/// The names of the objects of events. A name is asked for once, until all are forgotten.
class EventObjects {
 public:
  explicit EventObjects(Session& session) : session_(session) {}

  /// Names can't be trusted any more: the topology has changed.
  void forget() { known_.clear(); }

  // What the store can't tell is called by its identifier.

  NamedObject object(EntityType type, const ObjID& id);
  NamedObject hsrpMember(const ObjID& group, const ObjID& address);
  NamedObject association(const ObjID& left, const ObjID& right, int relation);

 private:
  /// @param key what tells the object from all others.
  NamedObject named(const std::string& key, const NamedObject& unknown,
                    const std::function<NamedObject()>& ask);

  /// Opens a connection anew that the store has dropped.
  void reconnect();

  Session& session_;
  std::map<std::string, NamedObject> known_;
  /// A store that fails is left alone for a while: events shall not wait for it.
  std::chrono::steady_clock::time_point askAgain_;
};

}  // namespace zntopo::tools
