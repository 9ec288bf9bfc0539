#pragma once

#include <string>
#include <vector>

#include "tools/network/NetworkModel.h"
#include "tools/network/NetworkReport.h"

namespace zntopo::test {

/// What a reader made of a file, with questions that tests ask.
struct ReadNetwork {
  tools::NetworkModel model;
  tools::NetworkReport report;

  /// How often a thing was counted as not carried over.
  int counted(const std::string& what) const {
    for (const auto& note : report.notes()) {
      if (note.what == what) return note.count;
    }
    return 0;
  }
  std::vector<std::string> nodeNames() const {
    std::vector<std::string> names;
    for (const auto& one : model.nodes) names.push_back(one.name);
    return names;
  }
};

}  // namespace zntopo::test
