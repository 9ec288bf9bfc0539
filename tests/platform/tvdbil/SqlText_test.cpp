#include "zntopo/platform/tvdbil/detail/SqlText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace TvDbil::detail {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> split(std::string_view text, const SqlDialect& dialect) {
  std::vector<std::string> texts;
  for (const SqlStatement& statement : splitStatements(text, dialect)) {
    texts.emplace_back(statement.text);
  }
  return texts;
}

std::vector<std::string> plain(std::string_view text) { return split(text, kPlainDialect); }
std::vector<std::string> sqlite(std::string_view text) { return split(text, kSqliteDialect); }
std::vector<std::string> postgres(std::string_view text) { return split(text, kPostgresDialect); }

int marks(std::string_view text, const SqlDialect& dialect = kPlainDialect) {
  return splitStatements(text, dialect).at(0).parameters;
}

TEST(SqlTextTest, SemicolonsSeparate) {
  EXPECT_THAT(plain("select 1; select 2"), ElementsAre("select 1", "select 2"));
  EXPECT_THAT(plain("select 1;"), ElementsAre("select 1"));
  EXPECT_THAT(plain(" ;; select 1 ;\n; "), ElementsAre("select 1"));
}

TEST(SqlTextTest, BlanksAndCommentsAloneAreNoStatement) {
  EXPECT_THAT(plain(""), IsEmpty());
  EXPECT_THAT(plain(" \t\r\n"), IsEmpty());
  EXPECT_THAT(plain("-- a\n/* b */;--"), IsEmpty());
  EXPECT_THAT(plain("/* never ends; select 1"), IsEmpty());
}

TEST(SqlTextTest, QuotedSemicolonsDoNotSeparate) {
  EXPECT_THAT(plain("select 'a;b'"), ElementsAre("select 'a;b'"));
  EXPECT_THAT(plain("select \"a;b\""), ElementsAre("select \"a;b\""));
  EXPECT_THAT(plain("select 'it''s;' ; x"), ElementsAre("select 'it''s;'", "x"));
  EXPECT_THAT(plain("select \"a\"\";\" ; x"), ElementsAre("select \"a\"\";\"", "x"));
}

TEST(SqlTextTest, AQuoteThatNeverEndsReachesToTheEnd) {
  EXPECT_THAT(plain("select 'a; b"), ElementsAre("select 'a; b"));
  EXPECT_THAT(postgres("select $a$ ; b"), ElementsAre("select $a$ ; b"));
  EXPECT_THAT(sqlite("select [a ; b"), ElementsAre("select [a ; b"));
  EXPECT_THAT(postgres("select E'a\\"), ElementsAre("select E'a\\"));
}

TEST(SqlTextTest, CommentsHideSemicolonsAndQuotes) {
  EXPECT_THAT(plain("select 1 -- it's; so\n; select 2"), ElementsAre("select 1", "select 2"));
  EXPECT_THAT(plain("select /* it's; so */ 1"), ElementsAre("select /* it's; so */ 1"));
  EXPECT_THAT(plain("select '-- ; ' ; x"), ElementsAre("select '-- ; '", "x"));
  EXPECT_THAT(plain("select 1 - - 1; x"), ElementsAre("select 1 - - 1", "x"));
}

TEST(SqlTextTest, CommentsNestWhereTheEngineNestsThem) {
  EXPECT_THAT(postgres("/* a /* b */ ; */ x"), ElementsAre("x"));
  EXPECT_THAT(sqlite("/* a /* b */ c; d"), ElementsAre("c", "d"));
}

TEST(SqlTextTest, DollarQuotesHideSemicolonsWhereTheEngineKnowsThem) {
  EXPECT_THAT(postgres("select $$a;b$$; x"), ElementsAre("select $$a;b$$", "x"));
  EXPECT_THAT(postgres("select $f1$a;$$;$f2$;$f1$; x"),
              ElementsAre("select $f1$a;$$;$f2$;$f1$", "x"));
  EXPECT_THAT(postgres("select a$b$; c$b$"), ElementsAre("select a$b$", "c$b$"));
  EXPECT_THAT(postgres("select $1; x"), ElementsAre("select $1", "x"));
  EXPECT_THAT(sqlite("select $$a;b$$"), ElementsAre("select $$a", "b$$"));
}

TEST(SqlTextTest, BackslashesGuardInEscapeTextsOnly) {
  EXPECT_THAT(postgres("select E'\\';' ; x"), ElementsAre("select E'\\';'", "x"));
  EXPECT_THAT(postgres("select '\\';' ; x"), ElementsAre("select '\\'", "' ; x"));
  EXPECT_THAT(postgres("select type'\\' ; x"), ElementsAre("select type'\\'", "x"));
  EXPECT_THAT(postgres("select E'a' -- c\n '\\';' ; x"),
              ElementsAre("select E'a' -- c\n '\\';'", "x"));
  EXPECT_THAT(postgres("select E'a''\\';' ; x"), ElementsAre("select E'a''\\';'", "x"));
  EXPECT_THAT(postgres("select E'a' '\\' ; x"), ElementsAre("select E'a' '\\'", "x"));
  EXPECT_THAT(sqlite("select E'\\' ; x"), ElementsAre("select E'\\'", "x"));
}

TEST(SqlTextTest, ForeignQuotesHideSemicolonsWhereTheEngineKnowsThem) {
  EXPECT_THAT(sqlite("select `a;b`, [c;d]; x"), ElementsAre("select `a;b`, [c;d]", "x"));
  EXPECT_THAT(postgres("select a[1]; x"), ElementsAre("select a[1]", "x"));
}

TEST(SqlTextTest, MarksCountOutsideQuotesAndComments) {
  EXPECT_EQ(marks("update t set a = ?, b=?,c = '?' where \"?\" = ? -- ?\n /* ? */"), 3);
  EXPECT_EQ(marks("select $$?$$, ?", kPostgresDialect), 1);
  EXPECT_EQ(marks("select 1"), 0);
}

TEST(SqlTextTest, AStatementMayEndInAnyByte) {
  for (const char* text :
       {"a'", "a\"", "a-", "a--", "a/", "a/*", "a/*/", "a$", "a $", "E'", "e'\\"}) {
    EXPECT_EQ(splitStatements(text, kPostgresDialect).size(), 1U) << text;
  }
}

}  // namespace
}  // namespace TvDbil::detail
