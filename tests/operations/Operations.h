#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "tests/operations/SizedNetwork.h"

/// @file
/// Every operation of the library on the store or the cache as data: how to run it on a network of
/// a size, and what it then costs. An operation that the library gains gets its row here, and with
/// it its place in the tests of costs and of threads.

namespace zntopo::test {

/// What an operation answers, as texts in a fixed order.
struct Answer {
  ZNTopoStatus status = ZN_API_SUCCESS;
  std::vector<std::string> items;

  bool operator==(const Answer& other) const = default;
};
void PrintTo(const Answer& answer, std::ostream* stream);

/// What operations are run on. Objects that are set here are asked; the others are fetched anew.
struct Desk {
  const Size& size;
  ZNTopoAPI& api;
  OpenImpl& impl;
  ZNRefPtr<ZNNode> hub = {};
  ZNRefPtr<ZNNode> leaf = {};
  ZNRefPtr<ZNInterface> interface = {};
  ZNRefPtr<ZNAddress> address = {};
};

/// What an operation takes from the store.
struct Cost {
  int statements = 0;
  /// One for each holder of a connection. A holder that executes no statement costs one, too.
  int transactions = 0;

  constexpr Cost operator+(const Cost& other) const {
    return {statements + other.statements, transactions + other.transactions};
  }
  constexpr Cost operator*(int times) const { return {statements * times, transactions * times}; }
  bool operator==(const Cost& other) const = default;
};
void PrintTo(const Cost& cost, std::ostream* stream);

using Formula = Cost (*)(const Size&);

/// What a cost may grow with, in any state of the cache.
enum class Growth {
  None,        ///< The same for every size.
  Batches,     ///< One block for each 50 identifiers of a request or of a ring.
  Hops,        ///< One block for each link of a path or each ring of a walk, too.
  Exceptional  ///< More than that, which kExceptions accounts for.
};

/// Whether a cache that holds some of what is asked for, or a configuration that leaves links out,
/// shows in the answer.
enum class Whole {
  Always,   ///< It does not.
  Part,     ///< Items may be missing.
  States,   ///< A form: lines may be missing, and it tells states that setters change meanwhile.
  OrNoPath  ///< There may be none, with ZN_API_NO_PATH.
};

struct Operation {
  const char* name;
  Answer (*run)(const Desk&);
  /// How many items it delivers.
  int (*items)(const Size&);
  Growth growth;
  /// With an empty cache that has not read the state row yet.
  Formula cold;
  /// Once more, right after that.
  Formula warm;
  /// With a cache that keeps nothing.
  Formula uncached;
  Whole whole = Whole::Always;
};

/// All of them, by family.
std::span<const Operation> nodeOperations();
std::span<const Operation> interfaceOperations();
std::span<const Operation> addressOperations();
std::span<const Operation> groupOperations();
std::span<const Operation> filterOperations();
std::span<const Operation> objectOperations();
std::span<const Operation> connectivityOperations();
std::span<const Operation> updateOperations();
std::span<const Operation> setterOperations();
std::span<const Operation> infoOperations();
std::vector<Operation> allOperations();

/// An operation whose cost grows faster than its batches and hops. There is no other place for
/// them: docs/statements.md names the same ones, and says why they are kept.
struct Exception {
  const char* operation;
  const char* reason;
};
std::span<const Exception> exceptions();

}  // namespace zntopo::test
