#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "zntopo/notify/CacheOwner.h"

namespace zntopo::test {

/// Stands for the owner of the cache in tests of notifications: it records each call as a line of
/// text. Several threads may call it at once.
class FakeCacheOwner : public CacheOwner {
 public:
  static FakeCacheOwner& instance();

  /// The calls since the last reset(), each as "operation(argument, argument)".
  std::vector<std::string> calls() const;
  void reset();
  /// Runs inside every call, without a lock held.
  void onCall(std::function<void()> hook);

  void clear() override;
  void updateCacheObjectStatus(const ObjID& id, EntityType type, int newStatus,
                               long statusChangeTimeUTC, ZNEntity::EntityStatusType statusType,
                               ZNTopoAPIStatus& status) override;
  void updateCacheObjectAttribute(const ObjID& id, EntityType type, TopologyAttributeType attribute,
                                  int value, const ObjID& addressID,
                                  ZNTopoAPIStatus& status) override;

 private:
  void record(const std::string& call);

  mutable std::mutex mutex_;
  std::vector<std::string> calls_;
  std::function<void()> hook_;
};

}  // namespace zntopo::test
