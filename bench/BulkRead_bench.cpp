// Reading all nodes and all interfaces, against a plain loop of the same driver over the same
// columns of the same statements into structs.

#include <benchmark/benchmark.h>

#include <list>
#include <memory>
#include <set>
#include <tuple>

#include "bench/Subjects.h"
#include "bench/support/PlainRead.h"
#include "bench/support/WarmCache.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/AddressRow.h"
#include "zntopo/api/detail/AddressSql.h"
#include "zntopo/api/detail/InterfaceRow.h"
#include "zntopo/api/detail/InterfaceSql.h"
#include "zntopo/api/detail/NodeRow.h"
#include "zntopo/api/detail/AttachmentRows.h"
#include "zntopo/api/detail/AttachmentSql.h"
#include "zntopo/api/detail/NodeSql.h"

namespace zntopo::bench {

namespace {

/// What of a node is read: its own row alone, or with what hangs on it.
struct NodeParts {
  bool withLists = true;
  bool withUserVariables = false;
};

ZNTopoConfig configFor(const Setting& setting, const NodeParts& parts) {
  ZNTopoConfig config = roomyConfig(setting);
  config.setLoadNodeL2ConnectionInfo(parts.withLists);
  config.setLoadNodeIfcInfo(parts.withLists);
  config.setLoadNodeVlanInfo(parts.withLists);
  return config;
}

void nodesLibrary(benchmark::State& state, const Setting& setting, const NodeParts& parts) {
  ZNTopoAPI::setTopoConfiguration(configFor(setting, parts));
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

void nodesFloor(benchmark::State& state, const Setting&, const NodeParts& parts) {
  TvDbil::DbConnection_t connection = connect();
  const TableSet tables;
  const std::string nodeSql = detail::nodeSelect("", detail::nodeTables(tables));
  const std::string linkSql = detail::connDataSelect(tables, {}, true);
  const std::string ifcSql = detail::ifcInfoSelect(tables, {}, true, true, 0);
  const std::string vlanSql = detail::vlanInfoSelect(tables, {}, true, true, false);
  const auto& ids = shuffledNodeIDs();
  const std::string userVarSql =
      detail::userVarSelect(tables, E_Unknown, "", {ids.begin(), ids.end()});
  for (auto _ : state) {
    auto nodes = readPlain<detail::kNodeColumns>(connection, nodeSql);
    decltype(readPlain<detail::kConnDataColumns>(connection, linkSql)) links;
    decltype(readPlain<detail::kIfcInfoColumns>(connection, ifcSql)) ifcs;
    decltype(readPlain<detail::kVlanInfoColumns>(connection, vlanSql)) vlans;
    decltype(readPlain<detail::kUserVarColumns>(connection, userVarSql)) userVars;
    if (parts.withUserVariables) userVars = readPlain<detail::kUserVarColumns>(connection, userVarSql);
    if (parts.withLists) {
      links = readPlain<detail::kConnDataColumns>(connection, linkSql);
      ifcs = readPlain<detail::kIfcInfoColumns>(connection, ifcSql);
      vlans = readPlain<detail::kVlanInfoColumns>(connection, vlanSql);
    }
    state.PauseTiming();
    // The structs end outside the time, as the objects do.
    std::tuple(std::move(nodes), std::move(links), std::move(ifcs), std::move(vlans),
               std::move(userVars));
    state.ResumeTiming();
  }
}

std::list<ObjID> allNodeIDs() {
  const auto& ids = shuffledNodeIDs();
  return {ids.begin(), ids.end()};
}

void interfacesLibrary(benchmark::State& state, const Setting& setting) {
  ZNTopoAPI::setTopoConfiguration(roomyConfig(setting));
  ZNTopoAPI_Impl api;
  ZNTopoAPIStatus status;
  const std::list<ObjID> ids = allNodeIDs();
  for (auto _ : state) {
    auto interfaces = api.getInterfacesByNodeObjIDList(ids, status);
    state.PauseTiming();
    if (!status.isOK() || interfaces->empty()) {
      state.SkipWithError(("no interfaces; " + status.getAuxMsg()).c_str());
    }
    state.counters["objects"] = static_cast<double>(interfaces->size());
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
    state.counters["objects"] = static_cast<double>(interfaces.size());
    std::tuple(std::move(interfaces), std::move(addresses));
    state.ResumeTiming();
  }
}

void registerNodes(const std::string& question, const Setting& setting, const NodeParts& parts) {
  benchmark::RegisterBenchmark((question + "/library").c_str(), nodesLibrary, setting, parts)
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark((question + "/floor").c_str(), nodesFloor, setting, parts)
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
