#pragma once

namespace zntopo::tools {

/// How many rows were brought into a store, and what became of them.
struct WriteCounts {
  long long added = 0;
  long long changed = 0;
  long long unchanged = 0;

  bool isAnyChange() const { return added + changed > 0; }
  long long all() const { return added + changed + unchanged; }

  WriteCounts& operator+=(const WriteCounts& more) {
    added += more.added;
    changed += more.changed;
    unchanged += more.unchanged;
    return *this;
  }
};

}  // namespace zntopo::tools
