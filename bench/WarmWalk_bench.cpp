// Walks over what the cache holds, against breadth-first walks over flat arrays, and against the
// recursive queries that a program would write otherwise.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <optional>

#include "bench/Subjects.h"
#include "bench/support/BenchStore.h"
#include "bench/support/FlatNetwork.h"
#include "bench/support/IdentifierNetwork.h"
#include "bench/support/LinkRows.h"
#include "bench/support/RecursiveQuery.h"
#include "bench/support/WarmCache.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"

namespace zntopo::bench {

namespace {

/// The two ends that a path is asked for.
struct Ends {
  std::string fromNode;
  std::string toNode;
  std::string fromAddress;
  std::string toAddress;
};

/// What the walks of a setting ask for, and the answers of the floor.
struct Questions {
  int maxDepth = 0;
  int hops = 0;
  std::vector<Ends> paths;
  std::vector<std::size_t> pathLinks;
  std::vector<std::size_t> neighborLinks;
};

/// The networks of the floor, made once.
struct Networks {
  Networks() : connection(connect()), flat(connection), identified(connection) {}
  TvDbil::DbConnection_t connection;
  FlatNetwork flat;
  IdentifierNetwork identified;
};

Networks& networks() {
  static auto& made = *new Networks();
  return made;
}

Questions makeQuestions(const Setting& setting) {
  constexpr int kPaths = 16;
  const bool isRing = setting.shape == Setting::Shape::Ring;
  Questions questions;
  questions.maxDepth = setting.nodes;
  questions.hops = isRing ? 100 : 4;
  std::unordered_map<std::string, std::string> addresses;
  for (auto& row : readNodeNames(networks().connection)) {
    if (!row.texts[NodeName_Address].empty()) {
      addresses[row.texts[NodeName_ID]] = row.texts[NodeName_Address];
    }
  }
  FlatNetwork& flat = networks().flat;
  const auto& ids = shuffledNodeIDs();
  for (std::size_t i = 0; i + 1 < ids.size() && questions.paths.size() < kPaths; i += 2) {
    const Ends ends = {ids[i], ids[i + 1], addresses[ids[i]], addresses[ids[i + 1]]};
    if (ends.fromAddress.empty() || ends.toAddress.empty()) continue;
    const std::size_t links = flat.path(ends.fromNode, ends.toNode, questions.maxDepth).size() / 2;
    if (links == 0) continue;
    questions.paths.push_back(ends);
    questions.pathLinks.push_back(links);
    questions.neighborLinks.push_back(flat.neighbors(ends.fromNode, questions.hops).size());
  }
  return questions;
}

const Questions& questionsOf(const Setting& setting) {
  static const Questions questions = makeQuestions(setting);
  return questions;
}

/// Asks for all paths in turn; what the answer tells is held against the floor's.
template <typename Ask>
void askAll(benchmark::State& state, const Questions& questions,
            const std::vector<std::size_t>& answers, const Ask& ask) {
  if (questions.paths.empty()) {
    state.SkipWithError("there is no path in the network");
    return;
  }
  std::size_t next = 0;
  for (auto _ : state) {
    const std::size_t answer = ask(questions.paths[next]);
    if (const std::string complaint = differs(answer, answers[next]); !complaint.empty()) {
      state.SkipWithError(complaint.c_str());
      return;
    }
    if (++next == questions.paths.size()) next = 0;
  }
}

template <typename Ask>
void askPaths(benchmark::State& state, const Setting& setting, const Ask& ask) {
  const Questions& questions = questionsOf(setting);
  askAll(state, questions, questions.pathLinks,
         [&](const Ends& ends) { return ask(ends, questions.maxDepth); });
}

template <typename Ask>
void askNeighbors(benchmark::State& state, const Setting& setting, const Ask& ask) {
  const Questions& questions = questionsOf(setting);
  askAll(state, questions, questions.neighborLinks,
         [&](const Ends& ends) { return ask(ends.fromNode, questions.hops); });
}

/// The path as interfaces has two for each link, but for an end that is not on the link.
std::size_t linksOf(ZNTopoAPI_Impl& api, const std::list<ZNRefPtr<ZNInterface>>& path) {
  ZNTopoAPIStatus status;
  return path.empty() ? 0 : api.convertPathInterfaceListToConnDataList(path, status)->size();
}

void pathLibrary(benchmark::State& state, const Setting& setting) {
  warmUp(setting);
  ZNTopoAPI api;
  ZNTopoAPI_Impl converter;
  ZNTopoAPIStatus status;
  askPaths(state, setting, [&](const Ends& ends, int maxDepth) {
    return linksOf(converter, *api.getL2Path(ends.fromAddress, ends.toAddress, maxDepth, status,
                                             ZNAddress::IPv4, true));
  });
}

/// The ends of paths as objects, which a caller may have at hand.
struct EndObjects {
  ZNRefPtr<ZNNode> node;
  ZNRefPtr<ZNInterface> interface;
};

EndObjects endObjects(ZNTopoAPI_Impl& api, const std::string& id, const std::string& address) {
  ZNTopoAPIStatus status;
  EndObjects end;
  end.node = api.getNodeByObjID(ObjID(id), status);
  if (!end.node.isNull()) {
    end.interface = end.node->getInterfaceByAddressValue(address, ZNAddress::IPv4);
  }
  return end;
}

void searchLibrary(benchmark::State& state, const Setting& setting) {
  warmUp(setting);
  ZNTopoAPI_Impl api;
  ZNTopoAPIStatus status;
  std::unordered_map<std::string, EndObjects> objects;
  for (const Ends& ends : questionsOf(setting).paths) {
    objects[ends.fromNode] = endObjects(api, ends.fromNode, ends.fromAddress);
    objects[ends.toNode] = endObjects(api, ends.toNode, ends.toAddress);
  }
  for (const auto& [id, end] : objects) {
    if (end.interface.isNull()) state.SkipWithError("an end of a path has no interface");
  }
  askPaths(state, setting, [&](const Ends& ends, int maxDepth) {
    const EndObjects& from = objects[ends.fromNode];
    const EndObjects& to = objects[ends.toNode];
    return linksOf(api,
                   *api.getL2PathBetweenInterfaces(from.node, from.interface, to.node, to.interface,
                                                   maxDepth, status, ZNAddress::IPv4, true));
  });
}

void pathFloor(benchmark::State& state, const Setting& setting) {
  askPaths(state, setting, [](const Ends& ends, int maxDepth) {
    return networks().flat.path(ends.fromAddress, ends.toAddress, maxDepth).size() / 2;
  });
}

void pathByIdentifiers(benchmark::State& state, const Setting& setting) {
  askPaths(state, setting, [](const Ends& ends, int maxDepth) {
    return networks()
               .identified.path(plainID(ends.fromNode), plainID(ends.toNode), maxDepth)
               .size() /
           2;
  });
}

void pathRecursive(benchmark::State& state, const Setting& setting) {
  askPaths(state, setting, [](const Ends& ends, int) {
    return recursivePath(networks().connection, ends.fromNode, ends.toNode);
  });
}

void neighborsLibrary(benchmark::State& state, const Setting& setting) {
  warmUp(setting);
  ZNTopoAPI api;
  ZNTopoAPIStatus status;
  askNeighbors(state, setting, [&](const std::string& node, int hops) {
    return api.getNodeNeighbors(node, status, hops, -1)->size();
  });
}

void neighborsFloor(benchmark::State& state, const Setting& setting) {
  askNeighbors(state, setting, [](const std::string& node, int hops) {
    return networks().flat.neighbors(node, hops).size();
  });
}

void neighborsByIdentifiers(benchmark::State& state, const Setting& setting) {
  askNeighbors(state, setting, [](const std::string& node, int hops) {
    return networks().identified.neighbors(plainID(node), hops).size();
  });
}

void neighborsRecursive(benchmark::State& state, const Setting& setting) {
  askNeighbors(state, setting, [](const std::string& node, int hops) {
    return recursiveNeighbors(networks().connection, node, hops);
  });
}

}  // namespace

void registerWarmWalk(const Setting& setting) {
  if (setting.userVariables) return;
  const auto add = [&](const char* name, void (*function)(benchmark::State&, const Setting&)) {
    benchmark::RegisterBenchmark(name, function, setting)->Unit(benchmark::kMicrosecond);
  };
  add("GetL2Path/library", pathLibrary);
  add("GetL2Path/floor", pathFloor);
  add("GetL2Path/by identifiers", pathByIdentifiers);
  add("GetL2Path/recursive query", pathRecursive);
  add("L2PathBetweenInterfaces/library", searchLibrary);
  add("L2PathBetweenInterfaces/floor", pathFloor);
  add("L2PathBetweenInterfaces/by identifiers", pathByIdentifiers);
  add("GetNodeNeighbors/library", neighborsLibrary);
  add("GetNodeNeighbors/floor", neighborsFloor);
  add("GetNodeNeighbors/by identifiers", neighborsByIdentifiers);
  add("GetNodeNeighbors/recursive query", neighborsRecursive);
}

}  // namespace zntopo::bench
