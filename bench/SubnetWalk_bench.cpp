// The subnets within so many hops of a node, with nodes, interfaces and addresses in the cache,
// against a walk over flat arrays. Subnets are not in the cache: each one that is met is read, and
// read again on each later hop.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "bench/Subjects.h"
#include "bench/support/BenchStore.h"
#include "bench/support/FlatSubnets.h"
#include "bench/support/GroupRows.h"
#include "bench/support/WarmCache.h"
#include "zntopo/api/ZNTopoAPI.h"

namespace zntopo::bench {

namespace {

constexpr std::size_t kStarts = 16;

/// The network of the floor, made once.
FlatSubnets& flat() {
  static auto& made = *[] {
    TvDbil::DbConnection_t connection = connect();
    return new FlatSubnets(connection);
  }();
  return made;
}

/// Nodes to start from, spread over all that there are.
std::vector<std::string> startNodes() {
  const std::vector<std::string>& all = flat().startNodes();
  const std::size_t count = std::min(kStarts, all.size());
  std::vector<std::string> chosen;
  for (std::size_t i = 0; i < count; ++i) chosen.push_back(all[i * all.size() / count]);
  return chosen;
}

/// Asks for the subnets around the nodes in turn.
template <typename Ask>
void askAround(benchmark::State& state, const Ask& ask) {
  const std::vector<std::string> starts = startNodes();
  if (starts.empty()) {
    state.SkipWithError("no node of the network is of IPv6 alone");
    return;
  }
  std::size_t next = 0;
  for (auto _ : state) {
    if (const std::string complaint = ask(starts[next]); !complaint.empty()) {
      state.SkipWithError(complaint.c_str());
      return;
    }
    if (++next == starts.size()) next = 0;
  }
}

void library(benchmark::State& state, const Setting& setting, int hops) {
  warmUp(setting);
  ZNTopoAPI api;
  ZNTopoAPIStatus status;
  std::unordered_map<std::string, std::size_t> answers;
  for (const std::string& start : startNodes()) answers[start] = flat().within(start, hops).size();
  askAround(state, [&](const std::string& start) {
    const auto subnets = api.getNSubnetConnectivity(hops, ObjID(start), ZNTopoFilter(), status);
    return status.isOK() ? differs(subnets->size(), answers[start]) : status.getAuxMsg();
  });
}

void floor(benchmark::State& state, const Setting& /*setting*/, int hops) {
  askAround(state, [&](const std::string& start) {
    benchmark::DoNotOptimize(flat().within(start, hops));
    return std::string();
  });
}

/// What the library asks the store on its way, in a plain loop: each subnet where it is met, and
/// all that were met once more for each further hop; what a last hop into nothing asks is left out.
void itsStatements(benchmark::State& state, const Setting& /*setting*/, int hops) {
  TvDbil::DbConnection_t connection = connect();
  const SubnetStatements statements;
  askAround(state, [&](const std::string& start) {
    std::size_t met = 0;
    for (int hop = 1; hop <= hops; ++hop) {
      const std::vector<int> subnets = flat().within(start, hop);
      if (subnets.size() == met) break;
      std::size_t reads = subnets.size() - met + (hop < hops ? subnets.size() : 0);
      for (met = subnets.size(); reads > 0; --reads) {
        const ObjID id(flat().subnetID(subnets[reads % met]));
        if (statements.readOne(connection, id).size() != 1) return std::string("a subnet is gone");
      }
    }
    return std::string();
  });
}

}  // namespace

void registerSubnetWalk(const Setting& setting) {
  // A ring of switches has no IPv6.
  if (setting.userVariables || setting.shape != Setting::Shape::Campus) return;
  for (const int hops : {1, 2, 4, 8}) {
    const std::string question =
        "GetNSubnetConnectivity" + std::to_string(hops) + (hops == 1 ? "Hop" : "Hops");
    benchmark::RegisterBenchmark((question + "/library").c_str(), library, setting, hops)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark((question + "/floor").c_str(), floor, setting, hops)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark((question + "/its statements").c_str(), itsStatements, setting,
                                 hops)
        ->Unit(benchmark::kMicrosecond);
  }
}

}  // namespace zntopo::bench
