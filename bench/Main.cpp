// Measures the library on one store:
//
//   zntopo_bench --shape=campus|ring --nodes=NUMBER [--user-variables] --store=STORE
//                [--cache=cold|warm] [--benchmark_...]
//
// The store is a path or an ODBC connection string; it is made and filled if it is not there.
// Benchmarks that empty the cache and those that want it full are better run apart, for filling it
// takes as long as many of them. Events go through the broker that TV_EVENT_BROKER names, or round
// inside the process.

#include <benchmark/benchmark.h>

#include <exception>
#include <iostream>
#include <string>
#include <string_view>

#include "bench/Subjects.h"
#include "bench/support/BenchStore.h"
#include "bench/support/Setting.h"

namespace {

using zntopo::bench::Setting;

/// What follows the name of an option, if this is that option.
bool takes(std::string_view argument, std::string_view name, std::string& value) {
  if (argument.substr(0, name.size()) != name) return false;
  value = argument.substr(name.size());
  return true;
}

bool parse(int argc, char** argv, Setting& setting) {
  std::string value;
  for (int i = 1; i < argc; ++i) {
    if (takes(argv[i], "--shape=", value)) {
      if (value != "campus" && value != "ring") return false;
      setting.shape = value == "ring" ? Setting::Shape::Ring : Setting::Shape::Campus;
    } else if (takes(argv[i], "--nodes=", value)) {
      setting.nodes = std::atoi(value.c_str());
    } else if (takes(argv[i], "--store=", value)) {
      setting.store = value;
    } else if (takes(argv[i], "--cache=", value)) {
      if (value != "cold" && value != "warm") return false;
      (value == "cold" ? setting.isWarmWanted : setting.isColdWanted) = false;
    } else if (argv[i] == std::string_view("--user-variables")) {
      setting.userVariables = true;
    } else {
      return false;
    }
  }
  return setting.nodes > 0 && !setting.store.empty();
}

void describe(const Setting& setting) {
  benchmark::AddCustomContext("shape", setting.shapeName());
  benchmark::AddCustomContext("nodes", std::to_string(setting.nodes));
  benchmark::AddCustomContext("user_variables", setting.userVariables ? "yes" : "no");
  const bool isOdbc = setting.store.find('=') != std::string::npos;
  benchmark::AddCustomContext("engine", isOdbc ? "PostgreSQL" : "SQLite");
#if defined(__clang__)
  benchmark::AddCustomContext("compiler", "clang " __clang_version__);
#else
  benchmark::AddCustomContext("compiler", "gcc " __VERSION__);
#endif
}

void registerSubjects(const Setting& setting) {
  zntopo::bench::registerEvents(setting);
  if (setting.isColdWanted) {
    zntopo::bench::registerBulkRead(setting);
    zntopo::bench::registerGroupRead(setting);
    zntopo::bench::registerMemory(setting);
    zntopo::bench::registerFilters(setting);
    zntopo::bench::registerDump(setting);
    zntopo::bench::registerExport(setting);
  }
  if (setting.isWarmWanted) {
    zntopo::bench::registerWarmLookup(setting);
    zntopo::bench::registerWarmWalk(setting);
    zntopo::bench::registerWarmGroups(setting);
    zntopo::bench::registerSubnetWalk(setting);
    zntopo::bench::registerLog(setting);
  }
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  Setting setting;
  if (!parse(argc, argv, setting)) {
    std::cerr << "usage: zntopo_bench --shape=campus|ring --nodes=NUMBER [--user-variables] "
                 "--store=STORE [--cache=cold|warm] [--benchmark_filter=...]\n";
    return 2;
  }
  try {
    zntopo::bench::provideStore(setting);
    registerSubjects(setting);
    describe(setting);
    benchmark::RunSpecifiedBenchmarks();
  } catch (const std::exception& error) {
    std::cerr << "zntopo_bench: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
