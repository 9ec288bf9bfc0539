// Log lines that nobody hears.

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdarg>

#include "bench/Subjects.h"
#include "zntopo/core/LogFunction.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/OperationScope.h"

namespace zntopo::bench {

namespace {

std::atomic<int> level{8};

/// The least that a log with a level can do.
__attribute__((noinline, format(printf, 2, 3))) void plainLog(int lineLevel, const char* format,
                                                              ...) {
  if (lineLevel < level.load(std::memory_order_relaxed)) return;
  va_list arguments;
  va_start(arguments, format);
  std::vprintf(format, arguments);
  va_end(arguments);
}

/// And the least that marks a scope.
class PlainScope {
 public:
  explicit PlainScope(const char* name) : name_(name) { plainLog(3, "+%s\n", name_); }
  ~PlainScope() { plainLog(3, "-%s\n", name_); }

 private:
  const char* name_;
};

void logLibrary(benchmark::State& state) {
  int number = 0;
  for (auto _ : state) MCLog::log(MC_INFO, "Node %s has %d links\n", "core-1", ++number);
}

void logFloor(benchmark::State& state) {
  int number = 0;
  for (auto _ : state) plainLog(MC_INFO, "Node %s has %d links\n", "core-1", ++number);
}

void scopeLibrary(benchmark::State& state) {
  for (auto _ : state) const LogFunction scope("getNodeByObjID");
}

void scopeFloor(benchmark::State& state) {
  for (auto _ : state) const PlainScope scope("getNodeByObjID");
}

void operationLibrary(benchmark::State& state) {
  for (auto _ : state) const detail::OperationScope scope("getNodeByObjID");
}

}  // namespace

void registerLog(const Setting& setting) {
  // The store does not matter: once for each size.
  if (setting.shape != Setting::Shape::Campus || setting.userVariables) return;
  benchmark::RegisterBenchmark("LogUnheard/library", logLibrary);
  benchmark::RegisterBenchmark("LogUnheard/floor", logFloor);
  benchmark::RegisterBenchmark("LogFunctionUnheard/library", scopeLibrary);
  benchmark::RegisterBenchmark("LogFunctionUnheard/floor", scopeFloor);
  benchmark::RegisterBenchmark("OperationScopeUnheard/library", operationLibrary);
  benchmark::RegisterBenchmark("OperationScopeUnheard/floor", scopeFloor);
}

}  // namespace zntopo::bench
