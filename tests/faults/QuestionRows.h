#pragma once

#include <vector>

#include "tests/faults/LittleNetwork.h"
#include "tests/faults/Questions.h"

/// @file
/// The rows of the table of questions, by family, and what they have in common.

namespace zntopo::test {

std::vector<Question> nodeQuestions();
std::vector<Question> loaderQuestions();
std::vector<Question> interfaceQuestions();
std::vector<Question> addressQuestions();
std::vector<Question> groupQuestions();
std::vector<Question> walkQuestions();
std::vector<Question> infoQuestions();
std::vector<Question> filterQuestions();
std::vector<Question> topoFilterQuestions();

using Status = ZNTopoAPIStatus;

template <typename Object>
std::size_t one(const ZNRefPtr<Object>& found) {
  return found.isNull() ? 0 : 1;
}

inline std::set<ObjID> setOf(const std::list<ObjID>& ids) { return {ids.begin(), ids.end()}; }

inline const std::vector<Ending> kGated = {{"select TopologyReady", ZN_API_DB_NOT_READY}};

}  // namespace zntopo::test
