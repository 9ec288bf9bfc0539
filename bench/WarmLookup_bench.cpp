// Objects that the cache holds, by identifier, against a mutex and a std::map.

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <mutex>

#include "bench/Subjects.h"
#include "bench/support/FlatNetwork.h"
#include "bench/support/WarmCache.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"

namespace zntopo::bench {

namespace {

/// Identifiers in an order that no memory follows, made before the time runs.
template <typename ID, typename Make>
std::vector<ID> prepared(const std::vector<std::string>& texts, const Make& make) {
  std::vector<ID> ids;
  for (const std::string& text : texts) ids.push_back(make(text));
  return ids;
}

ObjID toObjID(const std::string& text) { return ObjID(text); }

/// A shared map of shared objects.
class PlainCache {
 public:
  explicit PlainCache(const std::vector<std::string>& ids) {
    for (const std::string& id : ids) map_[plainID(id)] = std::make_shared<std::string>(id);
  }
  std::shared_ptr<const std::string> find(const PlainID& id) {
    const std::lock_guard lock(mutex_);
    const auto found = map_.find(id);
    return found == map_.end() ? nullptr : found->second;
  }

 private:
  std::mutex mutex_;
  std::map<PlainID, std::shared_ptr<const std::string>> map_;
};

/// Looks all identifiers up in turn; a look-up that finds nothing is a failure.
template <typename ID, typename Find>
void lookUp(benchmark::State& state, const std::vector<ID>& ids, const Find& find) {
  std::size_t next = 0;
  for (auto _ : state) {
    if (!find(ids[next])) {
      state.SkipWithError("an object is not in the cache");
      return;
    }
    if (++next == ids.size()) next = 0;
  }
}

/// Asks the library for all these objects, which are in its cache.
template <typename Find>
void library(benchmark::State& state, const Setting& setting,
             const std::vector<std::string>& (*ids)(), const Find& find) {
  warmUp(setting);
  lookUp(state, prepared<ObjID>(ids(), toObjID), [&](const ObjID& id) { return find(id); });
}

void nodeLibrary(benchmark::State& state, const Setting& setting) {
  ZNTopoAPI api;
  ZNTopoAPIStatus status;
  library(state, setting, shuffledNodeIDs,
          [&](const ObjID& id) { return !api.getNodeByObjID(id, status).isNull(); });
}

void interfaceLibrary(benchmark::State& state, const Setting& setting) {
  ZNTopoAPI api;
  ZNTopoAPIStatus status;
  library(state, setting, shuffledInterfaceIDs,
          [&](const ObjID& id) { return !api.getInterfaceByObjID(id, status).isNull(); });
}

void nodeCacheAlone(benchmark::State& state, const Setting& setting) {
  library(state, setting, shuffledNodeIDs, [](const ObjID& id) {
    ZNRefPtr<ZNNode> node;
    return ZNTopoAPI_Impl::cache()->inNodeIDCache(id, node);
  });
}

void interfaceCacheAlone(benchmark::State& state, const Setting& setting) {
  library(state, setting, shuffledInterfaceIDs, [](const ObjID& id) {
    ZNRefPtr<ZNInterface> interface;
    return ZNTopoAPI_Impl::cache()->inInterfaceIDCache(id, interface);
  });
}

void floor(benchmark::State& state, const std::vector<std::string>& ids) {
  PlainCache cache(ids);
  lookUp(state, prepared<PlainID>(ids, plainID),
         [&](const PlainID& id) { return cache.find(id) != nullptr; });
}

void nodeFloor(benchmark::State& state) { floor(state, shuffledNodeIDs()); }

void interfaceFloor(benchmark::State& state) { floor(state, shuffledInterfaceIDs()); }

}  // namespace

void registerWarmLookup(const Setting& setting) {
  if (setting.userVariables) return;
  benchmark::RegisterBenchmark("GetNodeByObjID/library", nodeLibrary, setting);
  benchmark::RegisterBenchmark("GetNodeByObjID/floor", nodeFloor);
  benchmark::RegisterBenchmark("GetNodeByObjID/cache alone", nodeCacheAlone, setting);
  benchmark::RegisterBenchmark("GetInterfaceByObjID/library", interfaceLibrary, setting);
  benchmark::RegisterBenchmark("GetInterfaceByObjID/floor", interfaceFloor);
  benchmark::RegisterBenchmark("GetInterfaceByObjID/cache alone", interfaceCacheAlone, setting);
}

}  // namespace zntopo::bench
