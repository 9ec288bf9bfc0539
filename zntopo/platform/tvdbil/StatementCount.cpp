#include "zntopo/platform/tvdbil/StatementCount.h"

#include <atomic>

#include "zntopo/platform/tvdbil/detail/StatementCounters.h"

namespace TvDbil {
namespace {

// Constant-initialised and trivially destroyed: they count at any time in a process's life.
constinit std::atomic<std::uint64_t> prepared{0};
constinit std::atomic<std::uint64_t> executed{0};
constinit std::atomic<std::uint64_t> transactions{0};

void countOne(std::atomic<std::uint64_t>& counter) {
  counter.fetch_add(1, std::memory_order_relaxed);
}

std::uint64_t read(const std::atomic<std::uint64_t>& counter) {
  return counter.load(std::memory_order_relaxed);
}

}  // namespace

StatementCount statementCount() { return {read(prepared), read(executed), read(transactions)}; }

namespace detail {

void countPrepared() { countOne(prepared); }
void countExecuted() { countOne(executed); }
void countTransaction() { countOne(transactions); }

}  // namespace detail
}  // namespace TvDbil
