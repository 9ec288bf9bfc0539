// Bytes of heap that a cached object takes, with its place in the cache and all that hangs on it,
// against a struct of the same columns in a std::map.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <list>
#include <map>
#include <set>

#include "bench/Subjects.h"
#include "bench/support/FlatNetwork.h"
#include "bench/support/NodeRows.h"
#include "bench/support/PlainRead.h"
#include "bench/support/WarmCache.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/InterfaceRow.h"
#include "zntopo/api/detail/InterfaceSql.h"

namespace zntopo::bench {

namespace {

std::size_t heapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

/// Calls make() twice: the first time the engine's own caches fill. It returns the number of
/// objects that it left behind; drop() takes them away.
template <typename Make, typename Drop>
void measure(benchmark::State& state, const Make& make, const Drop& drop) {
  make();
  drop();
  for (auto _ : state) {
    const std::size_t before = heapInUse();
    const std::size_t objects = make();
    const std::size_t after = heapInUse();
    if (objects == 0) state.SkipWithError("nothing was read");
    state.counters["bytes"] = static_cast<double>(after - before) /
                              static_cast<double>(std::max<std::size_t>(objects, 1));
    drop();
  }
}

void nodeLibrary(benchmark::State& state, const Setting& setting, bool withLists) {
  ZNTopoAPI::setTopoConfiguration(roomyConfig(setting, withLists));
  coolDown();
  measure(
      state,
      [] {
        ZNTopoAPI api;
        ZNTopoAPIStatus status;
        std::set<ObjID> notFound;
        return api
            .getNodesByObjIDList({}, notFound, status, false, false, true, ZNEntity::AllProtocol,
                                 -1)
            ->size();
      },
      coolDown);
}

void interfaceLibrary(benchmark::State& state, const Setting& setting) {
  ZNTopoAPI::setTopoConfiguration(roomyConfig(setting));
  coolDown();
  const auto& nodes = shuffledNodeIDs();
  const std::list<ObjID> ids(nodes.begin(), nodes.end());
  measure(
      state,
      [&] {
        ZNTopoAPI_Impl api;
        ZNTopoAPIStatus status;
        return api.getInterfacesByNodeObjIDList(ids, status)->size();
      },
      coolDown);
}

/// Rows in a map by the identifier in their first column.
template <const auto& kColumns>
using RowMap = std::map<PlainID, PlainRow<kColumns>>;

template <const auto& kColumns>
void readInto(RowMap<kColumns>& map, TvDbil::DbConnection_t& connection, const std::string& sql) {
  for (auto& row : readPlain<kColumns>(connection, sql)) {
    const PlainID id = plainID(row.texts[0]);
    map.emplace(id, std::move(row));
  }
}

void nodeFloor(benchmark::State& state, bool withLists) {
  const NodeStatements statements;
  RowMap<detail::kNodeColumns> nodes;
  NodeLists lists;
  measure(
      state,
      [&] {
        TvDbil::DbConnection_t connection = connect();
        readInto<detail::kNodeColumns>(nodes, connection, statements.nodes);
        if (withLists) lists = readNodeLists(connection, statements);
        return nodes.size();
      },
      [&] {
        nodes.clear();
        lists = {};
      });
}

void interfaceFloor(benchmark::State& state) {
  RowMap<detail::kInterfaceColumns> interfaces;
  measure(
      state,
      [&] {
        TvDbil::DbConnection_t connection = connect();
        readInto<detail::kInterfaceColumns>(interfaces, connection,
                                            detail::interfaceSelect(TableSet(), ""));
        return interfaces.size();
      },
      [&] { interfaces.clear(); });
}

}  // namespace

void registerMemory(const Setting& setting) {
  if (setting.userVariables) return;
  for (const bool withLists : {false, true}) {
    const std::string question = withLists ? "CachedNodeAndItsLists" : "CachedNode";
    benchmark::RegisterBenchmark((question + "/library").c_str(), nodeLibrary, setting, withLists)
        ->Iterations(1);
    benchmark::RegisterBenchmark((question + "/floor").c_str(), nodeFloor, withLists)
        ->Iterations(1);
  }
  benchmark::RegisterBenchmark("CachedInterface/library", interfaceLibrary, setting)->Iterations(1);
  benchmark::RegisterBenchmark("CachedInterface/floor", interfaceFloor)->Iterations(1);
}

}  // namespace zntopo::bench
