#pragma once

#include <string>

#include "tools/network/ToolError.h"
#include "zntopo/platform/tvxpl/TvXplMsg.h"

namespace zntopo::tools {

/// The store refused something; the text has the driver's messages in it.
class StoreError : public ToolError {
 public:
  explicit StoreError(const std::string& what) : ToolError(ZN_API_SQL_EXEC_ERROR, what) {}
  StoreError(const std::string& what, const TvXplMsg::MessageList_t& messages)
      : StoreError(what + "\n" + messages.Format(TvXplMsg::fRecurse_k)) {}
};

/// There is topology in a store where there must not be any.
class StoreNotEmpty : public StoreError {
 public:
  StoreNotEmpty() : StoreError("There is topology in the store already.") {}
};

}  // namespace zntopo::tools
