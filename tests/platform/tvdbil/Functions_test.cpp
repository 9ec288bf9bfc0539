// Functions that statements may use whatever the engine is.

#include "tests/platform/tvdbil/EngineFixture.h"

namespace zntopo::test {
namespace {

using namespace TvDbil;  // NOLINT(google-build-using-namespace)

// Of SQLite, the driver of its own: through ODBC there is no such function.
class FunctionsTest : public EngineFixture {};
ZNTOPO_ON_ENGINES(FunctionsTest, kMainEngines);

TEST_P(FunctionsTest, ChrGivesTheCharacterWithANumber) {
  EXPECT_EQ(ask("select chr(35)"), "#");
  EXPECT_EQ(ask("select 'a' || chr(39) || 'b'"), "a'b");
  EXPECT_EQ(ask("select chr(1)"), "\x01");
  EXPECT_EQ(ask("select chr(127)"), "\x7F");
  EXPECT_EQ(ask("select chr(228)"), "\u00E4");
  EXPECT_EQ(ask("select chr(8364)"), "\u20AC");
  EXPECT_EQ(ask("select chr(65535)"), "\uFFFF");
  EXPECT_EQ(ask("select chr(65536)"), "\U00010000");
  EXPECT_EQ(ask("select chr(1114111)"), "\U0010FFFF");
  EXPECT_EQ(ask("select length(chr(128512))"), "1");
}

TEST_P(FunctionsTest, ChrOfNullIsNull) { EXPECT_EQ(ask("select chr(null)"), "NULL"); }

TEST_P(FunctionsTest, ChrOfANumberWrittenAsATextIsThatCharacter) {
  EXPECT_EQ(ask("select chr('35')"), "#");
}

TEST_P(FunctionsTest, ChrOfWhatIsNoCharacterFails) {
  for (const char* number : {"0", "-1", "55296", "57343", "1114112", "2000000000", "35.5", "'x'"}) {
    EXPECT_NE(execute("select chr(" + std::string(number) + ")"), DBIL_SUCCESS) << number;
  }
  EXPECT_NE(execute("select chr()"), DBIL_SUCCESS);
  EXPECT_NE(execute("select chr(35, 36)"), DBIL_SUCCESS);
}

TEST_P(FunctionsTest, ChrCanBeUsedInAConditionOnRows) {
  mustExecute({"create table t (name varchar(20))", "insert into t values ('a#b')",
               "insert into t values ('ab')"});
  EXPECT_EQ(ask("select count(*) from t where name = 'a' || chr(35) || 'b'"), "1");
  EXPECT_EQ(ask("select count(*) from t where name like '%' || chr(35) || '%'"), "1");
}

}  // namespace
}  // namespace zntopo::test
