// Reading all nodes and all interfaces, against a plain loop of the same driver over the same
// columns of the same statements into structs.

#include <benchmark/benchmark.h>

#include <list>
#include <memory>
#include <set>
#include <tuple>

#include "bench/Subjects.h"
#include "bench/support/NodeRows.h"
#include "bench/support/WarmCache.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/AddressRow.h"
#include "zntopo/api/detail/AddressSql.h"
#include "zntopo/api/detail/InterfaceRow.h"
#include "zntopo/api/detail/InterfaceSql.h"

namespace zntopo::bench {

namespace {

/// What of a node is read: its own row alone, or with what hangs on it.
struct NodeParts {
  bool withLists = true;
  bool withUserVariables = false;
};

std::list<ObjID> allNodeIDs() {
  const auto& ids = shuffledNodeIDs();
  return {ids.begin(), ids.end()};
}

void nodesLibrary(benchmark::State& state, const Setting& setting, const NodeParts& parts) {
  ZNTopoAPI::setTopoConfiguration(roomyConfig(setting, parts.withLists));
  ZNTopoAPI api;
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  for (auto _ : state) {
    auto nodes = api.getNodesByObjIDList({}, notFound, status, false, false, true,
                                         ZNEntity::AllProtocol, -1);
    state.PauseTiming();
    const std::string complaint =
        status.isOK() ? differs(nodes->size(), shuffledNodeIDs().size()) : status.getAuxMsg();
    if (!complaint.empty()) state.SkipWithError(complaint.c_str());
    nodes.reset();
    coolDown();
    state.ResumeTiming();
  }
}

void nodesFloor(benchmark::State& state, const NodeParts& parts) {
  TvDbil::DbConnection_t connection = connect();
  const NodeStatements statements;
  const std::string userVarSql = detail::userVarSelect(TableSet(), E_Unknown, "", allNodeIDs());
  for (auto _ : state) {
    auto nodes = readPlain<detail::kNodeColumns>(connection, statements.nodes);
    decltype(readPlain<detail::kUserVarColumns>(connection, userVarSql)) userVars;
    NodeLists lists;
    if (parts.withUserVariables) {
      userVars = readPlain<detail::kUserVarColumns>(connection, userVarSql);
    }
    if (parts.withLists) lists = readNodeLists(connection, statements);
    state.PauseTiming();
    // The structs end outside the time, as the objects do.
    std::tuple(std::move(nodes), std::move(userVars), std::move(lists));
    state.ResumeTiming();
  }
}

void interfacesLibrary(benchmark::State& state, const Setting& setting) {
  ZNTopoAPI::setTopoConfiguration(roomyConfig(setting));
  ZNTopoAPI_Impl api;
  ZNTopoAPIStatus status;
  const std::list<ObjID> ids = allNodeIDs();
  for (auto _ : state) {
    auto interfaces = api.getInterfacesByNodeObjIDList(ids, status);
    state.PauseTiming();
    const std::string complaint = status.isOK()
                                      ? differs(interfaces->size(), shuffledInterfaceIDs().size())
                                      : status.getAuxMsg();
    if (!complaint.empty()) state.SkipWithError(complaint.c_str());
    interfaces.reset();
    coolDown();
    state.ResumeTiming();
  }
}

void interfacesFloor(benchmark::State& state) {
  TvDbil::DbConnection_t connection = connect();
  const TableSet tables;
  const std::list<ObjID> ids = allNodeIDs();
  const std::string interfaceSql =
      detail::interfaceSelect(tables, detail::whereInterfacesOfNodes(ids));
  const std::string addressSql =
      detail::addressSelect(tables, detail::addressesByOwners(ids, detail::ADDRESSES_OF_NODES),
                            detail::addressOwnerTables(tables, detail::ADDRESSES_OF_NODES));
  for (auto _ : state) {
    auto interfaces = readPlain<detail::kInterfaceColumns>(connection, interfaceSql);
    auto addresses = readPlain<detail::kAddressColumns>(connection, addressSql);
    state.PauseTiming();
    std::tuple(std::move(interfaces), std::move(addresses));
    state.ResumeTiming();
  }
}

void registerNodes(const std::string& question, const Setting& setting, const NodeParts& parts) {
  benchmark::RegisterBenchmark((question + "/library").c_str(), nodesLibrary, setting, parts)
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark((question + "/floor").c_str(), nodesFloor, parts)
      ->Unit(benchmark::kMillisecond);
}

}  // namespace

void registerBulkRead(const Setting& setting) {
  if (setting.userVariables) {
    registerNodes("ReadNodesWithUserVariables", setting,
                  {.withLists = false, .withUserVariables = true});
    return;
  }
  registerNodes("ReadNodes", setting, {.withLists = false});
  registerNodes("ReadNodesAndTheirLists", setting, {});
  benchmark::RegisterBenchmark("ReadInterfaces/library", interfacesLibrary, setting)
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("ReadInterfaces/floor", interfacesFloor)
      ->Unit(benchmark::kMillisecond);
}

}  // namespace zntopo::bench
