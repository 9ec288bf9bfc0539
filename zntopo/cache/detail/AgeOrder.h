#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <string>
#include <unordered_set>

#include "zntopo/core/ObjID.h"

namespace zntopo::detail {

/// Identifiers in the order of their last use, each once; identifiers of all kinds may mix.
/// Every operation takes constant time.
class AgeOrder {
 public:
  AgeOrder() = default;
  AgeOrder(AgeOrder&&) = default;
  AgeOrder& operator=(AgeOrder&&) = default;

  bool empty() const { return order_.empty(); }
  std::size_t size() const { return order_.size(); }
  /// The identifier that was used longest ago. There must be one.
  const ObjID& front() const { return order_.front(); }

  void popFront() {
    if (order_.empty()) return;
    places_.erase(order_.begin());
    order_.pop_front();
  }

  void remove(const ObjID& id) {
    const auto place = places_.find(id);
    if (place == places_.end()) return;
    const Place found = *place;
    places_.erase(place);
    order_.erase(found);
  }

  /// Makes an identifier the last used one.
  void append(const ObjID& id) {
    remove(id);
    places_.insert(order_.insert(order_.end(), id));
  }

 private:
  using Place = std::list<ObjID>::const_iterator;

  // ObjID::getHash() folds numbers and texts into 2048 values, too few for a large cache.
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(const ObjID& id) const {
      switch (id.getIDType()) {
        case ObjID::E_Long:
          return std::hash<long>()(id.getLongValue());
        case ObjID::E_String:
          return std::hash<std::string>()(id.getStrValue());
        default:
          return id.getHash();
      }
    }
    std::size_t operator()(const Place& place) const { return (*this)(*place); }
  };

  struct Equal {
    using is_transparent = void;
    static const ObjID& idOf(const ObjID& id) { return id; }
    static const ObjID& idOf(const Place& place) { return *place; }
    template <typename Left, typename Right>
    bool operator()(const Left& left, const Right& right) const {
      return idOf(left) == idOf(right);
    }
  };

  std::list<ObjID> order_;
  std::unordered_set<Place, Hash, Equal> places_;
};

}  // namespace zntopo::detail
