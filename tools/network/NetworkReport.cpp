#include "tools/network/NetworkReport.h"

namespace zntopo::tools {

void NetworkReport::add(const std::string& what, const std::string& where) {
  static constexpr std::size_t kMaxKinds = 200;
  const bool isFull = index_.size() >= kMaxKinds && !index_.contains(what);
  const std::string kind = isFull ? "other things" : what;
  const auto [known, isNew] = index_.try_emplace(kind, notes_.size());
  if (isNew) notes_.push_back({kind, 0, where});
  ++notes_[known->second].count;
}

}  // namespace zntopo::tools
