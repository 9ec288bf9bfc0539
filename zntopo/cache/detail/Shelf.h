#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <list>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "zntopo/cache/ZNTopoConfig.h"
#include "zntopo/cache/detail/AgeOrder.h"
#include "zntopo/cache/detail/CacheKinds.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjID.h"
#include "zntopo/core/ObjIDLookup.h"
#include "zntopo/core/ZNMutex.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/core/detail/LogText.h"

namespace zntopo {
class ZNTopoCachePeer;
}

namespace zntopo::detail {

/// The cached objects of one kind: by identifier, by legacy identifier, and by age.
///
/// It has no lock of its own: use() takes the cache's, all else is called with it held. Handles
/// that leave are given back, so that objects can die after the lock is released.
template <typename Kind>
class Shelf {
 public:
  using Object = typename Kind::Object;
  using Handle = ZNRefPtr<Object>;
  using LegacyKey = typename Kind::LegacyKey;
  using IDMap = std::map<ObjID, Handle>;
  using LegacyMap = std::map<LegacyKey, Handle>;
  using Leaving = std::vector<Handle>;

  struct Contents {
    IDMap byID;
    LegacyMap byLegacyID;
    AgeOrder ages;
  };

  const IDMap& byID() const { return contents_.byID; }
  const LegacyMap& byLegacyID() const { return contents_.byLegacyID; }
  AgeOrder& ages() { return contents_.ages; }
  /// Hands over all contents and leaves the shelf empty.
  Contents takeAll() { return std::exchange(contents_, Contents()); }

  /// Takes an object in and lets at most one go, with the log lines and under the lock.
  void use(const Handle& object, const ZNTopoConfig& config, ZNMutex& mutex) {
    MCLog::log(MC_TRACE_L2, "Entering ZNTopoCache::use%s \n", Kind::kWords.name);
    if (object.isNull()) {
      MCLog::log(MC_TRACE_L2, "Exiting ZNTopoCache::use%s %s\n", Kind::kWords.name,
                 Kind::kWords.nullReason);
      return;
    }
    const ObjID id = Kind::idOf(*object);
    if (refuses(id, (config.*Kind::kSize)())) {
      ++losses_;
      return;
    }
    Leaving leaving;  // dies after the lock
    {
      MutexLockInternal lock(mutex);
      useLocked(id, object, config, leaving);
    }
    MCLog::log(MC_TRACE_L2, "Exiting ZNTopoCache::use%s \n", Kind::kWords.name);
  }

  /// Looks an identifier up and, if it is there, uses it: what use() does with an object that is
  /// on the shelf, but under one lock. The line is logged in between.
  bool useHeld(const ObjID& id, Handle& found, const char* foundLine, const ZNTopoConfig& config,
               ZNMutex& mutex) {
    Leaving leaving;  // dies after the lock
    Handle hit;
    {
      MutexLockInternal lock(mutex);
      const auto entry = findObjID(contents_.byID, id);
      if (entry == contents_.byID.end() || entry->second.isNull()) return false;
      hit = entry->second;
      if (MCLog::isHeard(MC_INFO)) logLine(MC_INFO, foundLine, id.getStrValue());
      MCLog::log(MC_TRACE_L2, "Entering ZNTopoCache::use%s \n", Kind::kWords.name);
      if (!refuses(id, (config.*Kind::kSize)())) {
        touchLocked(id, config, leaving);
        MCLog::log(MC_TRACE_L2, "Exiting ZNTopoCache::use%s \n", Kind::kWords.name);
      }
    }
    found = std::move(hit);
    return true;
  }

  /// Takes an entry out of both maps; its place in the age order stays.
  void remove(const ObjID& id, Leaving& leaving) {
    const auto entry = findObjID(contents_.byID, id);
    if (entry == contents_.byID.end()) return;
    if (!entry->second.isNull()) removeLegacy(*entry->second, leaving);
    take(contents_.byID, entry, leaving);
  }

  std::unique_ptr<std::list<Handle>> all() const {
    auto list = std::make_unique<std::list<Handle>>();
    for (const auto& entry : contents_.byID) list->push_back(entry.second);
    return list;
  }

  /// True if all objects of the store were loaded and none was evicted since.
  bool isComplete() const { return !swappedOut_ && allLoaded_; }
  /// Rises with each object that was refused or removed, and with each clearing: what a load of
  /// the whole kind notes before it reads the store. Needs no lock.
  unsigned long losses() const { return losses_; }
  /// All objects of the store were loaded and used. If something of it may be lost since, which
  /// another thread can bring about at any time, they are not all here.
  void setAllLoaded(unsigned long lossesBefore) {
    if (losses_ == lossesBefore) allLoaded_ = true;
  }
  void setNotAllLoaded() {
    ++losses_;
    allLoaded_ = false;
  }
  void setSwappedOut() { swappedOut_ = true; }
  void resetFlags() {
    setNotAllLoaded();
    swappedOut_ = false;
  }

 private:
  friend class zntopo::ZNTopoCachePeer;

  static auto findKey(LegacyMap& map, const ObjID& key) { return findObjID(map, key); }
  static auto findKey(LegacyMap& map, long key) { return map.find(key); }

  template <typename Map>
  static void take(Map& map, typename Map::iterator entry, Leaving& leaving) {
    leaving.push_back(std::move(entry->second));
    map.erase(entry);
  }

  /// The tests that come before the lock.
  static bool refuses(const ObjID& id, int size) {
    if (Kind::kTestsNullID && id.isNull()) {
      MCLog::log(MC_INFO, "Null ObjID! \n");
      return true;
    }
    if (MCLog::isHeard(MC_TRACE_L2)) {
      MCLog::log(MC_TRACE_L2, "Use%s with objID = %s \n", Kind::kWords.name,
                 id.getStrValue().c_str());
    }
    if (size > 0) return false;
    MCLog::log(MC_TRACE_L2, "Exiting ZNTopoCache::use%s - Cache size = %d\n", Kind::kWords.name,
               size);
    return true;
  }

  void useLocked(const ObjID& id, const Handle& object, const ZNTopoConfig& config,
                 Leaving& leaving) {
    const bool ages = Kind::agesBy(config);
    if (ages) contents_.ages.remove(id);
    const bool isHeld = store(id, object, leaving);
    if (!isHeld) ++losses_;
    makeRoom(config, leaving);
    // Behind the eviction, so that the oldest is never the object that was just used.
    if (ages && isHeld) contents_.ages.append(id);
  }

  void touchLocked(const ObjID& id, const ZNTopoConfig& config, Leaving& leaving) {
    const bool ages = Kind::agesBy(config);
    if (ages) contents_.ages.remove(id);
    makeRoom(config, leaving);
    if (ages) contents_.ages.append(id);
  }

  /// Stores an object unless one is there; true if the identifier is on the shelf then. The null
  /// identifier and one of another kind than those on the shelf have no place of their own in the
  /// map: they are equivalent to entries of others, which must not be touched.
  bool store(const ObjID& id, const Handle& object, Leaving& leaving) {
    if (id.isNull()) return false;
    const auto [entry, isNew] = contents_.byID.try_emplace(id);
    if (!isNew && entry->first != id) return false;
    if (!entry->second.isNull()) return true;
    entry->second = object;
    storeLegacy(object, leaving);
    return true;
  }

  void storeLegacy(const Handle& object, Leaving& leaving) {
    const auto key = Kind::legacyKeyOf(*object);
    if (!key) return;
    const auto [entry, isNew] = contents_.byLegacyID.try_emplace(*key);
    if (!isNew && entry->first != *key) return;
    if (!isNew) leaving.push_back(entry->second);
    entry->second = object;
  }

  void removeLegacy(const Object& object, Leaving& leaving) {
    const auto key = Kind::legacyKeyOf(object);
    if (!key) return;
    const auto entry = findKey(contents_.byLegacyID, *key);
    if (entry != contents_.byLegacyID.end()) take(contents_.byLegacyID, entry, leaving);
  }

  /// Lets one object go if the shelf is over its size.
  void makeRoom(const ZNTopoConfig& config, Leaving& leaving) {
    const int size = (config.*Kind::kSize)();
    if (contents_.byID.size() <= static_cast<std::size_t>(std::max(size, 0))) return;
    if (!Kind::evictsBy(config)) return;
    MCLog::log(MC_INFO, "Reducing %s Cache - Current = %d : Max = %d \n", Kind::kWords.name,
               static_cast<int>(contents_.byID.size()), size);
    // The order can be empty, or name what is gone: it is not kept while the switch is off, and
    // some removals leave it alone. Then nothing goes.
    const bool byAge = config.getEnableFIFOCacheSwap();
    if (byAge && contents_.ages.empty()) return;
    const ObjID victim = byAge ? contents_.ages.front() : contents_.byID.begin()->first;
    if (byAge) contents_.ages.popFront();
    if (MCLog::isHeard(MC_INFO)) {
      MCLog::log(MC_INFO, "Removing %s - %s from cache! \n", Kind::kWords.removedName,
                 victim.getStrValue().c_str());
    }
    remove(victim, leaving);
    swappedOut_ = true;
  }

  Contents contents_;
  bool swappedOut_ = false;
  bool allLoaded_ = false;
  std::atomic<unsigned long> losses_{0};
};

}  // namespace zntopo::detail
