#pragma once

#include <cstddef>
#include <type_traits>

namespace zntopo::detail {

/// Walks identifiers in batches of the type Batch: the first of batchSize of them, every later
/// one of batchSize - 1, since the counter that closes a batch has moved on once more when the
/// next one starts. Stops when onBatch is false.
template <typename Batch, typename Identifiers, typename OnBatch>
void forEachBatch(const Identifiers& identifiers, int batchSize, OnBatch&& onBatch) {
  if constexpr (std::is_same_v<Batch, Identifiers>) {
    if (!identifiers.empty() && identifiers.size() <= static_cast<std::size_t>(batchSize)) {
      onBatch(identifiers);
      return;
    }
  }
  Batch batch;
  int counter = 1;
  std::size_t left = identifiers.size();
  for (const auto& id : identifiers) {
    batch.insert(batch.end(), id);
    --left;
    if (counter == batchSize || left == 0) {
      if (!onBatch(batch)) return;
      batch.clear();
      counter = 1;
    }
    ++counter;
  }
}

}  // namespace zntopo::detail
