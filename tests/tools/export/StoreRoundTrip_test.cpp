#include <gmock/gmock.h>

#include <filesystem>
#include <sstream>

#include "tests/tools/export/ReadStored.h"
#include "tests/tools/import/Rfc8345Text.h"
#include "tools/export/Rfc8345Writer.h"
#include "tools/generate/GenerateCampus.h"
#include "tools/generate/SiteBuilder.h"

/// @file
/// What is exported as RFC 8345 and imported again makes the same store: row by row, identifiers
/// and all.

namespace zntopo::tools {
namespace {

class StoreRoundTripTest : public test::StoredNetworkTest {
 protected:
  std::string exported() {
    NetworkReport report;
    std::ostringstream out;
    writeRfc8345(read().model, out, report);
    for (const auto& note : report.notes()) ADD_FAILURE() << note.what << note.firstWhere;
    return out.str();
  }

  static NetworkModel readBack(const std::string& text) {
    test::Rfc8345Read read(text);
    for (const auto& note : read.report.notes()) ADD_FAILURE() << note.what << note.firstWhere;
    return std::move(read.model);
  }

  /// Exports what the store holds, imports that into it and into an empty one, and exports again.
  void expectSame() {
    const std::string before = dump();
    ASSERT_GT(before.size(), 1000u);
    const std::string text = exported();
    const NetworkModel again = readBack(text);
    write(again);
    EXPECT_EQ(dump(), before) << "importing into the same store changed it";
    startAnew();
    write(again);
    EXPECT_EQ(dump(), before);
    EXPECT_EQ(exported(), text);
  }
};

TEST_P(StoreRoundTripTest, TheSampleNetwork) {
  write(test::networkOf(test::samplePath()));
  expectSame();
}

TEST_P(StoreRoundTripTest, NetworksInTwoZonesAndAGraph) {
  const NetworkModel sample = test::networkOf(test::samplePath());
  write(sample);
  write(sample, "second");
  write(test::networkOf(test::samplePath("skerry-ring.graphml")));
  expectSame();
}

TEST_P(StoreRoundTripTest, AGeneratedCampus) {
  CampusPlan plan;
  plan.nodes = 60;
  plan.interfaces = 1000;
  plan.sites = 2;
  plan.userVariableShare = 0.1;
  plan.brokenGroupShare = 0.3;
  generateCampus(*connection_, plan);
  expectSame();
}

TEST_P(StoreRoundTripTest, AnExportIntoAnotherZoneIsAnotherNetwork) {
  write(test::networkOf(test::samplePath()));
  const int nodes = store_->count("nwnode");
  write(readBack(exported()), "copy");
  EXPECT_EQ(store_->count("nwnode"), 2 * nodes);
  EXPECT_EQ(value("select count(*) from nwnode where ZoneNumber = 'copy'"), std::to_string(nodes));
}

ZNTOPO_ON_ENGINES(StoreRoundTripTest, test::kEngines);

class RecordedRoundTripTest : public StoreRoundTripTest {};

/// Every network that others recorded and that imports.
TEST_P(RecordedRoundTripTest, EveryRecordedNetworkThatImports) {
  const std::filesystem::path folder = ZNTOPO_REALDATA;
  if (!std::filesystem::exists(folder)) GTEST_SKIP() << "There is no " << folder;
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    NetworkModel model;
    try {
      model = test::networkOf(entry.path());
    } catch (const ImportError&) {
      continue;
    }
    SCOPED_TRACE(entry.path());
    startAnew();
    write(model);
    expectSame();
    ++count;
  }
  EXPECT_GE(count, 8u);
}

ZNTOPO_ON_ENGINES(RecordedRoundTripTest, test::kMainEngines);

}  // namespace
}  // namespace zntopo::tools
