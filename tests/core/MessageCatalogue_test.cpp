#include "zntopo/core/MessageCatalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/Places.h"
#include "tests/support/Scratch.h"
#include "zntopo/core/detail/CatalogueFiles.h"
#include "zntopo/platform/tv/MsgCatalogue.h"

using testing::ElementsAre;
using zntopo::___zorb_topoMsg_fd__;
using zntopo::_zorb_topoMsg;
using zntopo::reopenMessageCatalogue;
using zntopo::detail::catalogueFiles;
using zntopo::test::setEnv;

namespace {

const std::string kData = zntopo::test::inBuildTree("data");
const char* const kGerman29 = "Es wurde kein Layer-2-Pfad gefunden";

bool isOpen() { return ___zorb_topoMsg_fd__() != reinterpret_cast<nl_catd>(-1); }

class MessageCatalogueTest : public testing::Test {
 protected:
  MessageCatalogueTest() {
    setEnv("TV_DATA_PATH", "/no/such/folder");
    unsetenv("NLSPATH");
    unsetenv("LANG");
  }

  static void speak(const std::string& language) {
    setEnv("NLSPATH", kData + "/messages/%l/%N.cat");
    setEnv("LANG", language);
  }
};

}  // namespace

TEST_F(MessageCatalogueTest, WithoutALanguageEveryTextIsTheDefault) {
  setEnv("NLSPATH", kData + "/messages/de/%N.cat");
  EXPECT_STREQ(_zorb_topoMsg(1, 29, "default"), "default");
  EXPECT_TRUE(isOpen());
  EXPECT_STREQ(_zorb_topoMsg(1, 29, "another"), "another");
}

TEST_F(MessageCatalogueTest, WithoutACatalogueEveryTextIsTheDefault) {
  setEnv("LANG", "de_DE.UTF-8");
  EXPECT_STREQ(_zorb_topoMsg(1, 29, "default"), "default");
  EXPECT_FALSE(isOpen());
  EXPECT_STREQ(_zorb_topoMsg(1, 29, "another"), "another");
}

TEST_F(MessageCatalogueTest, ThePathOfTheEnvironmentLeadsToTheCatalogue) {
  speak("de_DE.UTF-8");
  EXPECT_FALSE(isOpen());
  EXPECT_STREQ(_zorb_topoMsg(1, 29, "default"), kGerman29);
  EXPECT_TRUE(isOpen());
}

TEST_F(MessageCatalogueTest, TheInstalledCatalogueServesWhereNoPathLeads) {
  setEnv("TV_DATA_PATH", kData);
  setEnv("LANG", "de_AT.UTF-8@euro");
  EXPECT_STREQ(_zorb_topoMsg(1, 29, "default"), kGerman29);
  EXPECT_EQ(std::getenv("NLSPATH"), nullptr);
  EXPECT_STREQ(std::getenv("LANG"), "de_AT.UTF-8@euro");
}

TEST_F(MessageCatalogueTest, ThePathOfTheEnvironmentComesFirst) {
  setEnv("TV_DATA_PATH", kData);
  setEnv("NLSPATH", kData + "/messages/en/%N.cat");
  setEnv("LANG", "de");
  EXPECT_STREQ(_zorb_topoMsg(1, 29, "default"), "No layer 2 path is found");
}

TEST_F(MessageCatalogueTest, ALanguageThatIsNotThereGivesTheDefault) {
  setEnv("TV_DATA_PATH", kData);
  setEnv("LANG", "fr_FR.UTF-8");
  EXPECT_STREQ(_zorb_topoMsg(1, 29, "default"), "default");
}

TEST_F(MessageCatalogueTest, AFileThatIsNoCatalogueGivesTheDefault) {
  const zntopo::test::Scratch scratch;
  std::filesystem::create_directories(scratch.path("messages/de"));
  scratch.write("messages/de/zorb_topo.cat", "not a catalogue");
  setEnv("TV_DATA_PATH", scratch.folder());
  setEnv("LANG", "de");
  EXPECT_STREQ(_zorb_topoMsg(1, 29, "default"), "default");
}

TEST_F(MessageCatalogueTest, NumbersAndSetsOutsideNeverReachTheCatalogue) {
  speak("de");
  for (const auto& [set, number] : {std::pair{1, -1}, {1, 0}, {256, 29}, {-1, 29}, {1000000, 29}}) {
    EXPECT_STREQ(_zorb_topoMsg(set, number, "default"), "default") << set << " " << number;
  }
  EXPECT_STREQ(_zorb_topoMsg(255, 29, "other set"), "other set");
  EXPECT_STREQ(_zorb_topoMsg(1, 2147483647, "huge"), "huge");
}

TEST_F(MessageCatalogueTest, TheFirstTextOfANumberIsKept) {
  speak("de");
  EXPECT_STREQ(_zorb_topoMsg(1, 3, "not in the catalogue"), "not in the catalogue");
  EXPECT_STREQ(_zorb_topoMsg(1, 3, "another default"), "not in the catalogue");
  const char* const text = _zorb_topoMsg(1, 29, "default");
  EXPECT_EQ(_zorb_topoMsg(1, 29, "another default"), text);
  unsetenv("LANG");
  EXPECT_EQ(_zorb_topoMsg(1, 29, "default"), text);
}

TEST_F(MessageCatalogueTest, ANullDefaultIsHandedBack) {
  speak("de");
  EXPECT_EQ(_zorb_topoMsg(1, 3, nullptr), nullptr);
  EXPECT_STREQ(_zorb_topoMsg(1, 3, "later"), "later");
}

TEST_F(MessageCatalogueTest, AReopenedCatalogueKeepsTheTextsFetchedBefore) {
  speak("de");
  const char* const before = _zorb_topoMsg(1, 29, "default");
  speak("en");
  EXPECT_STREQ(_zorb_topoMsg(1, 11, "default"),
               "Die Topologiedatenbank ist zurzeit nicht verfügbar");
  reopenMessageCatalogue();
  EXPECT_STREQ(_zorb_topoMsg(1, 12, "default"), "The given Topology Object ID is invalid");
  EXPECT_EQ(_zorb_topoMsg(1, 29, "default"), before);
  EXPECT_STREQ(before, kGerman29);
}

TEST_F(MessageCatalogueTest, ThePlatformMayAskForTheReopening) {
  speak("fr");
  EXPECT_STREQ(_zorb_topoMsg(1, 29, "default"), "default");
  EXPECT_FALSE(isOpen());
  speak("de");
  EXPECT_STREQ(_zorb_topoMsg(1, 29, "default"), "default");
  tvReopenMessageCatalogues();
  EXPECT_STREQ(_zorb_topoMsg(1, 29, "default"), kGerman29);
}

TEST_F(MessageCatalogueTest, TheErrorNumberOfTheCallerStays) {
  setEnv("LANG", "de");
  errno = 4711;
  _zorb_topoMsg(1, 29, "default");
  EXPECT_EQ(errno, 4711);
  _zorb_topoMsg(1, -1, "default");
  EXPECT_EQ(errno, 4711);
}

TEST_F(MessageCatalogueTest, SeveralThreadsMayLookUpAndReopenAtOnce) {
  speak("de");
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([t] {
      for (int i = 0; i < 200; ++i) {
        ASSERT_STREQ(_zorb_topoMsg(1, 29, "default"), kGerman29);
        _zorb_topoMsg(1, 10 + i % 90, "default");
        if (t == 0 && i % 20 == 0) reopenMessageCatalogue();
      }
    });
  }
  for (auto& thread : threads) thread.join();
}

TEST(CatalogueFilesTest, ALanguageIsTriedFromItsFullNameToItsShortest) {
  EXPECT_THAT(catalogueFiles("/d", "de_AT.UTF-8@euro"),
              ElementsAre("/d/messages/de_AT.UTF-8@euro/zorb_topo.cat",
                          "/d/messages/de_AT.UTF-8/zorb_topo.cat",
                          "/d/messages/de_AT/zorb_topo.cat", "/d/messages/de/zorb_topo.cat"));
  EXPECT_THAT(catalogueFiles("/d", "de"), ElementsAre("/d/messages/de/zorb_topo.cat"));
  EXPECT_THAT(catalogueFiles("/d", "C"), ElementsAre("/d/messages/C/zorb_topo.cat"));
}

TEST(CatalogueFilesTest, ALanguageNeverLeadsOutOfTheDataDirectory) {
  for (const char* language : {"", "..", ".", "../../etc", "/etc", "de/../../x"}) {
    EXPECT_THAT(catalogueFiles("/d", language), ElementsAre()) << language;
  }
}
