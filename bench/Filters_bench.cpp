// Reading the default filters, against a SAX reader on the same document, and running one of them,
// against its statement in a plain loop.

#include <benchmark/benchmark.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "bench/Subjects.h"
#include "bench/support/PlainRead.h"
#include "bench/support/WarmCache.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/filter/TopoFiltHandler.h"
#include "zntopo/filter/TopoFiltSql.h"
#include "zntopo/filter/XMLUtil.h"
#include "zntopo/platform/tvxpl/TvXplXml.h"

namespace zntopo::bench {

namespace {

/// Every network of the benchmarks has some.
constexpr char kFilter[] = "Switches";

constexpr Column kIDColumns[] = {textColumn("objid", 37)};

/// A handler whose statements can be seen.
class OpenHandler : public TopoFiltHandler {
 public:
  std::string sqlOf(const std::string& filter) { return objectsOfTopoFiltSql(m_FiltMap[filter]); }
};

/// The XML libraries, started for the life of this object.
class Libraries {
 public:
  explicit Libraries(benchmark::State& state) {
    bool isStarted = false;
    std::string error;
    util_ = std::make_unique<XMLUtil>(isStarted, error);
    if (!isStarted) state.SkipWithError(error.c_str());
  }
  std::string defaultFile() const { return util_->getTopologyXMLConfigPath() + "TopoFilters.xml"; }

 private:
  std::unique_ptr<XMLUtil> util_;
};

void parse(benchmark::State& state) {
  for (auto _ : state) {
    ZNTopoAPI api;
    ZNTopoAPIStatus status;
    if (api.ParseDefaultFile(status) != ZN_API_SUCCESS) {
      state.SkipWithError(status.getAuxMsg().c_str());
    }
  }
}

void parseWithLibraries(benchmark::State& state) {
  const Libraries libraries(state);
  parse(state);
}

void parseFloor(benchmark::State& state) {
  const Libraries libraries(state);
  for (auto _ : state) {
    std::ifstream file(libraries.defaultFile());
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    TvXplIo::CharArrayInputStream_t stream(text.data(), text.size());
    TvXplXml::SAX::DefaultHandler_t handler;
    TvXplXml::SAXParser_t reader;
    reader.SetContentHandler(&handler);
    reader.Parse(TvXplXml::SAX::InputSource_t(stream));
  }
}

void run(benchmark::State& state, const Setting& setting) {
  ZNTopoAPI::setTopoConfiguration(roomyConfig(setting));
  ZNTopoAPI api;
  ZNTopoAPIStatus status;
  if (api.ParseDefaultFile(status) != ZN_API_SUCCESS) {
    state.SkipWithError(status.getAuxMsg().c_str());
  }
  for (auto _ : state) {
    const auto ids = api.getNodeIDsByTopoFilter(kFilter, status);
    if (ids->empty()) state.SkipWithError("the filter selects nothing");
  }
}

void runFloor(benchmark::State& state) {
  TvDbil::DbConnection_t connection = connect();
  OpenHandler handler;
  TvXplMsg::MessageList_t messages;
  if (handler.ParseDefaultFile(messages) != ZN_API_SUCCESS) {
    state.SkipWithError(messages.Format(TvXplMsg::fRecurse_k).c_str());
  }
  const std::string sql = handler.sqlOf(kFilter);
  for (auto _ : state) {
    if (readPlain<kIDColumns>(connection, sql).empty()) {
      state.SkipWithError("the filter selects nothing");
    }
  }
}

}  // namespace

void registerFilters(const Setting& setting) {
  if (setting.userVariables) return;
  benchmark::RegisterBenchmark("ParseFilters/library", parse)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("ParseFilters/libraries running", parseWithLibraries)
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("ParseFilters/floor", parseFloor)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("RunTopoFilter/library", run, setting)
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("RunTopoFilter/floor", runFloor)->Unit(benchmark::kMillisecond);
}

}  // namespace zntopo::bench
