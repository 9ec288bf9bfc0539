#pragma once

#include <stdexcept>
#include <string>

#include "zntopo/core/ZNTopoAPIStatus.h"

namespace zntopo::tools {

/// The base of all errors of the tools: a status of the library, with its auxiliary text.
class ToolError : public std::runtime_error {
 public:
  explicit ToolError(const ZNTopoAPIStatus& status)
      : std::runtime_error(status.getAuxMsg()), status_(status) {}
  /// A text without a line end.
  ToolError(ZNTopoStatus code, const std::string& text)
      : std::runtime_error(text), status_(code, text + "\n") {}

  const ZNTopoAPIStatus& status() const { return status_; }

 private:
  ZNTopoAPIStatus status_;
};

}  // namespace zntopo::tools
