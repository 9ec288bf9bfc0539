#pragma once

#include <stdexcept>
#include <string>

#include "zntopo/platform/tvxpl/TvXplMsg.h"

namespace zntopo::tools {

/// The store refused something; the text has the driver's messages in it.
class StoreError : public std::runtime_error {
 public:
  StoreError(const std::string& what, const TvXplMsg::MessageList_t& messages)
      : std::runtime_error(what + "\n" + messages.Format(TvXplMsg::fRecurse_k)) {}
  explicit StoreError(const std::string& what) : std::runtime_error(what) {}
};

/// There is topology in a store where there must not be any.
class StoreNotEmpty : public StoreError {
 public:
  StoreNotEmpty() : StoreError("There is topology in the store already.") {}
};

}  // namespace zntopo::tools
