#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "tools/network/ToolError.h"

namespace zntopo::tools {

/// A file that can't be imported: what is wrong, and where ("campus.json: /network/0/node/3").
class ImportError : public ToolError {
 public:
  ImportError(const std::string& where, const std::string& what)
      : ToolError(ZN_API_ILLEGAL_INPUT, where + ": " + what) {}
};

/// What an import met and did not carry over as it stood: each kind of thing once, with the
/// number of times and the first place.
class NetworkReport {
 public:
  struct Note {
    std::string what;
    int count = 0;
    std::string firstWhere;
  };

  /// Counts one more occurrence. Beyond some hundred kinds of things the rest counts as one.
  void add(const std::string& what, const std::string& where);
  /// In the order of first occurrence.
  const std::vector<Note>& notes() const { return notes_; }

 private:
  std::vector<Note> notes_;
  std::map<std::string, std::size_t> index_;
};

}  // namespace zntopo::tools
