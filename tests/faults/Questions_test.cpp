// The questions that the store's faults meet are all that there are.

#include <set>

#include "tests/faults/LittleNetwork.h"
#include "tests/faults/Questions.h"

namespace zntopo::test {
namespace {

/// What a statement reads, whichever rows of it.
std::string readOf(const std::string& shape) { return shape.substr(0, shape.find(" where ")); }

bool begins(const std::string& text, const std::string& prefix) {
  return text.compare(0, prefix.size(), prefix) == 0;
}

class QuestionsTest : public StoreTest {};
ZNTOPO_ON_ENGINES(QuestionsTest, kSqlite);

TEST_P(QuestionsTest, TogetherTheyReadAllThatTheLibraryReadsByItsKnownStatements) {
  fillLittleNetwork(*store_);
  ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
  Healthy healthy;
  healthy.learn();
  std::set<std::string> seen;
  for (std::size_t i = 0; i < questions().size(); ++i) {
    for (const std::string& sql : healthy.statements(i)) seen.insert(shapeOf(sql));
  }
  // A user's own statement.
  EXPECT_EQ(seen.erase("select ObjId from nwnode"), 1U);
  std::set<std::string> known;
  std::set<std::string> seenReads;
  for (const std::string& shape : seen) seenReads.insert(readOf(shape));
  for (const std::string& sql : everyStatement(TableSet())) {
    known.insert(shapeOf(sql));
    const std::string read = readOf(shapeOf(sql));
    // No query asks for the one, and no engine that is there wants the other.
    if (begins(read, "select TopologyReady, TopologyReadyChangeTime")) continue;
    if (begins(read, "select --+ ORDERED")) continue;
    EXPECT_EQ(seenReads.count(read), 1U) << "no question runs " << sql;
  }
  for (const std::string& shape : seen) {
    EXPECT_EQ(known.count(shape), 1U) << "not in Statements.cpp: " << shape;
  }
}

}  // namespace
}  // namespace zntopo::test
