// Dumping all nodes with their interfaces into a file, against the plain writing of the same bytes.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <iostream>
#include <set>
#include <string>

#include "bench/Subjects.h"
#include "bench/support/OutputFile.h"
#include "bench/support/WarmCache.h"
#include "tools/topodump/Dump.h"

namespace zntopo::bench {

namespace {

/// Sends standard output into a file for the life of this object.
class Redirected {
 public:
  explicit Redirected(const OutputFile& file)
      : stream_(file.open()), before_(std::cout.rdbuf(stream_.rdbuf())) {}
  ~Redirected() {
    std::cout.flush();
    std::cout.rdbuf(before_);
  }
  Redirected(const Redirected&) = delete;
  Redirected& operator=(const Redirected&) = delete;

 private:
  std::ofstream stream_;
  std::streambuf* before_;
};

using Dump = bool (*)(ZNTopoAPI& api);

bool dumpAll(ZNTopoAPI& api) {
  const tools::DumpCall call{.kind = tools::DumpCall::NodesWithInterfaces};
  return tools::dump(api, call) == tools::DumpPrinted;
}

/// The table of the dump tool.
bool rows(ZNTopoAPI& api) {
  unsetenv("TOPODUMP_DETAIL");
  return dumpAll(api);
}

/// The full texts of the dump tool.
bool texts(ZNTopoAPI& api) {
  setenv("TOPODUMP_DETAIL", "1", 1);
  const bool isDone = dumpAll(api);
  unsetenv("TOPODUMP_DETAIL");
  return isDone;
}

bool xml(ZNTopoAPI& api) {
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto nodes =
      api.getNodesByObjIDList({}, notFound, status, false, false, true, ZNEntity::AllProtocol, -1);
  for (const auto& node : *nodes) std::cout << node->toXML(true);
  return status.isOK();
}

/// With an empty cache, as the tool begins.
bool dumpInto(const OutputFile& file, Dump dump) {
  ZNTopoConfig config;
  config.setIfcCacheSize(0);  // a clearing leaves the containers
  ZNTopoAPI::setTopoConfiguration(config);
  ZNTopoAPI api;
  const Redirected redirected(file);
  return dump(api);
}

void library(benchmark::State& state, Dump dump) {
  const OutputFile file;
  coolDown();
  for (auto _ : state) {
    const bool isDone = dumpInto(file, dump);
    state.PauseTiming();
    if (!isDone) state.SkipWithError("the dump failed");
    coolDown();
    state.ResumeTiming();
  }
}

void floorOf(benchmark::State& state, Dump dump) {
  const OutputFile file;
  if (!dumpInto(file, dump)) state.SkipWithError("the dump failed");
  coolDown();
  const std::string bytes = file.content();
  for (auto _ : state) file.write(bytes);
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes.size() * state.iterations()));
}

void registerForm(const std::string& question, Dump dump) {
  benchmark::RegisterBenchmark((question + "/library").c_str(), library, dump)
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark((question + "/floor").c_str(), floorOf, dump)
      ->Unit(benchmark::kMillisecond);
}

}  // namespace

void registerDump(const Setting& setting) {
  if (setting.userVariables || setting.nodes > kMaxNodesWritten) return;
  registerForm("DumpRows", rows);
  registerForm("DumpTexts", texts);
  registerForm("DumpXml", xml);
}

}  // namespace zntopo::bench
