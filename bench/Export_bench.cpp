// Exporting the whole network as RFC 8345 into a file, against the plain writing of the same bytes.

#include <benchmark/benchmark.h>

#include <fstream>
#include <string>

#include "bench/Subjects.h"
#include "bench/support/BenchStore.h"
#include "bench/support/OutputFile.h"
#include "bench/support/WarmCache.h"
#include "tools/export/Rfc8345Writer.h"
#include "tools/export/StoreReader.h"
#include "zntopo/api/ZNTopoAPI.h"

namespace zntopo::bench {

namespace {

void writeInto(const OutputFile& file, const tools::NetworkModel& model) {
  std::ofstream stream = file.open();
  tools::NetworkReport report;
  tools::writeRfc8345(model, stream, report);
}

/// With the configuration of the command.
tools::NetworkModel readAll() {
  ZNTopoConfig config;
  config.setNodeCacheSize(0);
  config.setIfcCacheSize(0);
  config.setLoadNodeIfcInfo(false);
  ZNTopoAPI::setTopoConfiguration(config);
  ZNTopoAPI api;
  TvDbil::DbConnection_t connection = connect();
  return tools::readStore(api, connection, {}).model;
}

void library(benchmark::State& state) {
  const OutputFile file;
  for (auto _ : state) {
    writeInto(file, readAll());
    state.PauseTiming();
    coolDown();
    state.ResumeTiming();
  }
}

/// The network is in memory already.
void writingAlone(benchmark::State& state) {
  const OutputFile file;
  const tools::NetworkModel model = readAll();
  coolDown();
  for (auto _ : state) writeInto(file, model);
}

void floorOf(benchmark::State& state) {
  const OutputFile file;
  writeInto(file, readAll());
  coolDown();
  const std::string bytes = file.content();
  for (auto _ : state) file.write(bytes);
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes.size() * state.iterations()));
}

}  // namespace

void registerExport(const Setting& setting) {
  if (setting.userVariables || setting.nodes > kMaxNodesWritten) return;
  benchmark::RegisterBenchmark("ExportRfc8345/library", library)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("ExportRfc8345/writing alone", writingAlone)
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("ExportRfc8345/floor", floorOf)->Unit(benchmark::kMillisecond);
}

}  // namespace zntopo::bench
