// Reading all VLANs, HSRP groups, interface containers and subnets, from the store and from the
// cache, against a plain loop of the same driver over the same columns into structs.

#include <benchmark/benchmark.h>

#include <list>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "bench/Subjects.h"
#include "bench/support/GroupRows.h"
#include "bench/support/WarmCache.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"

namespace zntopo::bench {

namespace {

// Each kind: how the library is asked for all, and what reads the same rows.

template <typename KindStatements, auto kAsk>
struct Groups {
  using Statements = KindStatements;
  static auto ask(ZNTopoAPI& api, ZNTopoAPIStatus& status) {
    std::set<ObjID> notFound;
    return (api.*kAsk)({}, notFound, status, true, -1);
  }
};

using Vlans = Groups<VlanStatements, &ZNTopoAPI::getVlansByObjIDList>;
using HSRPGroups = Groups<HSRPStatements, &ZNTopoAPI::getHSRPsByObjIDList>;
using Containers = Groups<ContainerStatements, &ZNTopoAPI::getIfcsByObjIDList>;

struct Subnets {
  using Statements = SubnetStatements;
  static auto ask(ZNTopoAPI& api, ZNTopoAPIStatus& status) {
    return api.getSubnetsByObjIDList({}, status, false, true, ZNEntity::AllProtocol, -1);
  }
};

/// Asks for all again and again; between() is called outside the time with what was delivered.
template <typename Kind, typename Between>
void askForAll(benchmark::State& state, const Setting& setting, const Between& between) {
  ZNTopoAPI::setTopoConfiguration(roomyConfig(setting));
  ZNTopoAPI api;
  ZNTopoAPIStatus status;
  TvDbil::DbConnection_t connection = connect();
  const std::size_t expected = typename Kind::Statements().read(connection).size();
  if (expected == 0) state.SkipWithError("the network has none of them");
  between(*Kind::ask(api, status));
  for (auto _ : state) {
    auto all = Kind::ask(api, status);
    state.PauseTiming();
    const std::string complaint =
        status.isOK() ? differs(all->size(), expected) : status.getAuxMsg();
    if (!complaint.empty()) state.SkipWithError(complaint.c_str());
    between(*all);
    all.reset();
    state.ResumeTiming();
  }
}

template <typename Kind>
void cold(benchmark::State& state, const Setting& setting) {
  askForAll<Kind>(state, setting, [](const auto& all) {
    // Containers outlive a cleared cache.
    for (const auto& one : all) ZNTopoAPI_Impl::cache()->removeIfc(one->getObjID());
    coolDown();
  });
}

template <typename Kind>
void warm(benchmark::State& state, const Setting& setting) {
  askForAll<Kind>(state, setting, [](const auto& /*all*/) {});
}

template <typename Kind>
void floor(benchmark::State& state, const Setting& /*setting*/) {
  TvDbil::DbConnection_t connection = connect();
  const typename Kind::Statements statements;
  for (auto _ : state) {
    auto rows = statements.read(connection);
    state.PauseTiming();
    // The structs end outside the time, as the objects do.
    { const auto ending = std::move(rows); }
    state.ResumeTiming();
  }
}

/// What two statements of its own for each container cost a plain loop.
void containersOneByOne(benchmark::State& state, const Setting& /*setting*/) {
  TvDbil::DbConnection_t connection = connect();
  const ContainerStatements statements;
  for (auto _ : state) {
    auto rows = statements.readOneByOne(connection);
    state.PauseTiming();
    { const auto ending = std::move(rows); }
    state.ResumeTiming();
  }
}

void add(const std::string& name, void (*function)(benchmark::State&, const Setting&),
         const Setting& setting) {
  benchmark::RegisterBenchmark(name.c_str(), function, setting)->Unit(benchmark::kMillisecond);
}

/// A ring of switches has no groups.
bool hasGroups(const Setting& setting) {
  return !setting.userVariables && setting.shape == Setting::Shape::Campus;
}

template <typename Kind>
void registerCold(const std::string& kind, const Setting& setting) {
  add("Read" + kind + "/library", cold<Kind>, setting);
  add("Read" + kind + "/floor", floor<Kind>, setting);
}

/// What the cache delivers, beside what it saves.
template <typename Kind>
void registerWarm(const std::string& kind, const Setting& setting) {
  add("Warm" + kind + "/library", warm<Kind>, setting);
  add("Warm" + kind + "/floor", floor<Kind>, setting);
}

}  // namespace

void registerGroupRead(const Setting& setting) {
  if (!hasGroups(setting)) return;
  registerCold<Vlans>("Vlans", setting);
  registerCold<HSRPGroups>("HSRPGroups", setting);
  registerCold<Containers>("Containers", setting);
  add("ReadContainers/statements of their own", containersOneByOne, setting);
  registerCold<Subnets>("Subnets", setting);
}

void registerWarmGroups(const Setting& setting) {
  // The cache keeps no subnets.
  if (!hasGroups(setting)) return;
  registerWarm<Vlans>("Vlans", setting);
  registerWarm<HSRPGroups>("HSRPGroups", setting);
  registerWarm<Containers>("Containers", setting);
}

}  // namespace zntopo::bench
