#include "tests/support/FakeCacheOwner.h"

#include <initializer_list>
#include <utility>

namespace zntopo {

CacheOwner& cacheOwner() { return test::FakeCacheOwner::instance(); }

namespace test {

namespace {

std::string listed(std::initializer_list<long> numbers) {
  std::string text;
  for (const long number : numbers) text += ", " + std::to_string(number);
  return text;
}

}  // namespace

FakeCacheOwner& FakeCacheOwner::instance() {
  static auto& owner = *new FakeCacheOwner();
  return owner;
}

std::vector<std::string> FakeCacheOwner::calls() const {
  const std::lock_guard hold(mutex_);
  return calls_;
}

void FakeCacheOwner::reset() {
  const std::lock_guard hold(mutex_);
  calls_.clear();
  hook_ = nullptr;
}

void FakeCacheOwner::onCall(std::function<void()> hook) {
  const std::lock_guard hold(mutex_);
  hook_ = std::move(hook);
}

void FakeCacheOwner::record(const std::string& call) {
  std::function<void()> hook;
  {
    const std::lock_guard hold(mutex_);
    calls_.push_back(call);
    hook = hook_;
  }
  if (hook) hook();
}

void FakeCacheOwner::clear() { record("clear()"); }

void FakeCacheOwner::updateCacheObjectStatus(const ObjID& id, EntityType type, int newStatus,
                                             long statusChangeTimeUTC,
                                             ZNEntity::EntityStatusType statusType,
                                             ZNTopoAPIStatus& /*status*/) {
  record("updateCacheObjectStatus(" + id.getStrValue() +
         listed({type, newStatus, statusChangeTimeUTC, statusType}) + ")");
}

void FakeCacheOwner::updateCacheObjectAttribute(const ObjID& id, EntityType type,
                                                TopologyAttributeType attribute, int value,
                                                const ObjID& addressID,
                                                ZNTopoAPIStatus& /*status*/) {
  record("updateCacheObjectAttribute(" + id.getStrValue() + listed({type, attribute, value}) +
         ", " + addressID.getStrValue() + ")");
}

}  // namespace test
}  // namespace zntopo
