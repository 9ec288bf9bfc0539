// Exporting the whole network as RFC 8345 into a file, against the plain writing of the same bytes.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "bench/Subjects.h"
#include "bench/support/BenchStore.h"
#include "bench/support/WarmCache.h"
#include "tools/export/Rfc8345Writer.h"
#include "tools/export/StoreReader.h"
#include "zntopo/api/ZNTopoAPI.h"

namespace zntopo::bench {

namespace {

/// A file that each pass writes anew.
class OutputFile {
 public:
  ~OutputFile() { std::remove(kName); }
  void write(const std::string& text) const {
    std::ofstream stream(kName, std::ios::binary | std::ios::trunc);
    stream << text;
  }
  void write(const tools::NetworkModel& model) const {
    std::ofstream stream(kName, std::ios::binary | std::ios::trunc);
    tools::NetworkReport report;
    tools::writeRfc8345(model, stream, report);
  }

 private:
  static constexpr const char* kName = "zntopo_bench.export";
};

tools::NetworkModel readAll(const Setting& setting) {
  ZNTopoConfig config = roomyConfig(setting);
  config.setNodeCacheSize(0);
  ZNTopoAPI::setTopoConfiguration(config);
  ZNTopoAPI api;
  TvDbil::DbConnection_t connection = connect();
  return tools::readStore(api, connection, {}).model;
}

void library(benchmark::State& state, const Setting& setting) {
  const OutputFile file;
  for (auto _ : state) {
    file.write(readAll(setting));
    state.PauseTiming();
    coolDown();
    state.ResumeTiming();
  }
}

/// The network is in memory already.
void writingAlone(benchmark::State& state, const Setting& setting) {
  const OutputFile file;
  const tools::NetworkModel model = readAll(setting);
  coolDown();
  for (auto _ : state) file.write(model);
}

void floorOf(benchmark::State& state, const Setting& setting) {
  const OutputFile file;
  std::ostringstream text;
  tools::NetworkReport report;
  tools::writeRfc8345(readAll(setting), text, report);
  coolDown();
  const std::string bytes = text.str();
  for (auto _ : state) file.write(bytes);
}

}  // namespace

void registerExport(const Setting& setting) {
  if (setting.userVariables) return;
  benchmark::RegisterBenchmark("ExportRfc8345/library", library, setting)
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("ExportRfc8345/writing alone", writingAlone, setting)
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("ExportRfc8345/floor", floorOf, setting)
      ->Unit(benchmark::kMillisecond);
}

}  // namespace zntopo::bench
