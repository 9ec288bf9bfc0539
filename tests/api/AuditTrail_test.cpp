// What discovery did to its objects, as the store tells it.

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "zntopo/api/detail/AuditSql.h"
#include "zntopo/core/ltos.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr auto kAnyType = ZNAuditAction::TypeDontCare;
constexpr auto kAnyObject = ZNAuditTrail::ObjectTypeDontCare;

constexpr const char* kSelect =
    "select ActionTimeUTC, ActionType, ObjID, ActionDetail,  ObjectType, ActionInfo from  "
    "nwtopoaudittrail ";

struct SqlCase {
  long start;
  long end;
  ZNAuditAction::Type type;
  ZNAuditTrail::ObjectType object;
  const char* condition;
};

TEST(AuditSqlTest, TheConditionFollowsTheWindowAndTheFilters) {
  const SqlCase cases[] = {
      {0, 0, kAnyType, kAnyObject, ""},
      {10, 10, kAnyType, kAnyObject, " where  ActionTimeUTC = 10"},
      {10, 0, kAnyType, kAnyObject, " where  ActionTimeUTC >= 10"},
      {0, 20, kAnyType, kAnyObject, " where  ActionTimeUTC <= 20"},
      {10, 20, kAnyType, kAnyObject, " where  ActionTimeUTC >= 10 AND  ActionTimeUTC <= 20"},
      {-5, 20, kAnyType, kAnyObject, " where  ActionTimeUTC <= 20"},
      {-5, -5, kAnyType, kAnyObject, " where  ActionTimeUTC = -5"},
      {-5, 0, kAnyType, kAnyObject, ""},
      {0, 0, ZNAuditAction::ObjectDeletion, kAnyObject, " where  ActionType = 1"},
      {0, 0, kAnyType, ZNAuditTrail::HSRP, " where  ObjectType = 11"},
      {10, 20, ZNAuditAction::AttributeChange, ZNAuditTrail::Node,
       " where  ActionTimeUTC >= 10 AND  ActionTimeUTC <= 20 AND  ActionType = 6 AND  "
       "ObjectType = 1"},
  };
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    for (const SqlCase& one : cases) {
      EXPECT_EQ(detail::auditTrailSelect(TableSet(set), one.start, one.end, one.type, one.object),
                kSelect + std::string(one.condition));
    }
  }
}

class AuditTrailTest : public ApiTest {
 protected:
  void add(const Value& time, const Value& type, const Value& id, const Value& detail,
           const Value& objectType, const Value& info) {
    store->insert("nwtopoaudittrail", {{"ActionTimeUTC", time},
                                       {"ActionType", type},
                                       {"ObjID", id},
                                       {"ActionDetail", detail},
                                       {"ObjectType", objectType},
                                       {"ActionInfo", info}});
  }
  void add(int time, const std::string& id = "a", int type = 2, int objectType = 1) {
    add(time, type, id, 0, objectType, "at " + std::to_string(time));
  }

  /// Each trail in a line: its object, and what was done.
  std::vector<std::string> trails(long start = 0, long end = 0, ZNAuditAction::Type type = kAnyType,
                                  ZNAuditTrail::ObjectType object = kAnyObject) {
    std::vector<std::string> lines;
    const auto all = impl.getAuditTrail(start, end, type, object, status);
    for (const auto& trail : *all) {
      std::string line = trail->getObjID().getStrValue() + " " + ltos(trail->getObjType()) + ":";
      const auto actions = trail->getActionList();
      for (const ZNAuditAction& action : *actions) {
        line += " (" + ltos(action.getActionTimeUTC()) + " " + ltos(action.getType()) + " " +
                ltos(action.getDetail()) + " " + action.getInfo() + ")";
      }
      lines.push_back(line);
    }
    return lines;
  }
};
ZNTOPO_ON_ENGINES(AuditTrailTest, kEngines);

TEST_P(AuditTrailTest, WithoutAWindowAndFiltersAllRowsAreRead) {
  add(10);
  add(20, "b", 6, 11);
  EXPECT_THAT(trails(), ElementsAre("a 1: (10 2 0 at 10)", "b 11: (20 6 0 at 20)"));
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
  const auto both = ZNTopoAPI(WorkingDB).getAuditTrail(0, 0, kAnyType, kAnyObject, status);
  EXPECT_EQ(both->size(), 2U);
}

TEST_P(AuditTrailTest, AnEmptyTableIsAnEmptyAnswer) {
  EXPECT_THAT(trails(), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

TEST_P(AuditTrailTest, RowsOfOneObjectAreOneTrailInTheOrderOfTheFirstRows) {
  add(10, "b");
  add(20, "a");
  add(30, "b", 6, 4);
  add(40, "c");
  add(50, "a");
  EXPECT_THAT(trails(), ElementsAre("b 1: (10 2 0 at 10) (30 6 0 at 30)",
                                    "a 1: (20 2 0 at 20) (50 2 0 at 50)", "c 1: (40 2 0 at 40)"));
}

TEST_P(AuditTrailTest, AWindowTakesItsEnds) {
  for (const int time : {10, 20, 30}) add(time);
  EXPECT_THAT(trails(10, 20), ElementsAre("a 1: (10 2 0 at 10) (20 2 0 at 20)"));
  EXPECT_THAT(trails(20, 20), ElementsAre("a 1: (20 2 0 at 20)"));
  EXPECT_THAT(trails(20, 0), ElementsAre("a 1: (20 2 0 at 20) (30 2 0 at 30)"));
  EXPECT_THAT(trails(0, 20), ElementsAre("a 1: (10 2 0 at 10) (20 2 0 at 20)"));
  EXPECT_THAT(trails(31, 40), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

TEST_P(AuditTrailTest, FiltersTakeOneKindOfActionAndOfObjects) {
  add(10, "n", 1, 1);
  add(10, "i", 1, 2);
  add(10, "m", 2, 1);
  EXPECT_THAT(trails(0, 0, ZNAuditAction::ObjectDeletion),
              ElementsAre("n 1: (10 1 0 at 10)", "i 2: (10 1 0 at 10)"));
  EXPECT_THAT(trails(0, 0, kAnyType, ZNAuditTrail::Node),
              ElementsAre("n 1: (10 1 0 at 10)", "m 1: (10 2 0 at 10)"));
  EXPECT_THAT(trails(0, 0, ZNAuditAction::ObjectCreation, ZNAuditTrail::Node),
              ElementsAre("m 1: (10 2 0 at 10)"));
}

TEST_P(AuditTrailTest, AStartBehindTheEndIsAnEmptyAnswerWithAGoodStatus) {
  add(15);
  const StatementSpy spy;
  expectAmongLogged(MC_INFO,
                    "Invalid parameters. Start time[20] greater than end time[10].\n"
                    "No AuditTrail entries can be returned.\n",
                    [this] { EXPECT_THAT(trails(20, 10), IsEmpty()); });
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(spy.allStatements(), IsEmpty());
}

TEST_P(AuditTrailTest, AConnectionIsNeededBeforeTheWindowIsLookedAt) {
  breakConnections();
  expectAmongLogged(MC_CRITICAL, "Failed to get an ODBC connection \n",
                    [this] { EXPECT_THAT(trails(20, 10), IsEmpty()); });
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
}

TEST_P(AuditTrailTest, ADetailAndAKindThatAreNullAreOne) {
  add(10, 2, "a", nullptr, nullptr, nullptr);
  add(20, 2, "a", 3, 4, "more");
  EXPECT_THAT(trails(), ElementsAre("a 1: (10 2 1 ) (20 2 3 more)"));
}

TEST_P(AuditTrailTest, NumbersBeyondTheEnumerationsAreKept) {
  add(10, 77, "a", 88, 99, "odd");
  EXPECT_THAT(trails(), ElementsAre("a 99: (10 77 88 odd)"));
}

TEST_P(AuditTrailTest, ARowWithoutTimeTypeOrObjectIsLeftOutAndThoseBehindItAreNot) {
  add(10, 2, nullptr, 0, 1, "no object");
  add(nullptr, 2, "a", 0, 1, "no time");
  add(10, nullptr, "a", 0, 1, "no type");
  add(10);
  const CapturedLog log(MC_INFO);
  EXPECT_THAT(trails(), ElementsAre("a 1: (10 2 0 at 10)"));
  EXPECT_TRUE(status.isOK());
  const std::string skipping = "Error creating AuditTrail entry. Skipping.\n";
  EXPECT_THAT(log.text(), HasSubstr("Received NULL value for ObjectID.\n" + skipping +
                                    "Received NULL value for ActionTimeUTC.\n" + skipping +
                                    "Received NULL value for ActionType.\n" + skipping));
}

TEST_P(AuditTrailTest, OfWhatIsLeftOutTheObjectIsToldQuietly) {
  const std::tuple<Value, Value, Value, MCDebugLevel, const char*> rows[] = {
      {nullptr, 2, "a", MC_MAJOR, "Received NULL value for ActionTimeUTC.\n"},
      {10, nullptr, "a", MC_MAJOR, "Received NULL value for ActionType.\n"},
      {10, 2, nullptr, MC_INFO, "Received NULL value for ObjectID.\n"},
  };
  for (const auto& [time, type, id, level, line] : rows) {
    store->execute("delete from nwtopoaudittrail");
    add(time, type, id, 0, 1, "left out");
    const auto work = [this] { trails(); };
    expectAmongLogged(level, line, work);
    expectAmongLogged(MC_MAJOR, "Error creating AuditTrail entry. Skipping.\n", work);
  }
}

TEST_P(AuditTrailTest, TheLogTellsTheStatementAndEachTrail) {
  add(10);
  add(20);
  const auto work = [this] { trails(); };
  expectAmongLogged(MC_INFO, "SQL : " + std::string(kSelect) + " \n", work);
  expectAmongLogged(MC_VERBOSE, "Creating AuditTrail: a \n", work);
  expectAmongLogged(MC_VERBOSE, "Found existing AuditTrail: a \n", work);
}

TEST_P(AuditTrailTest, AnIdentifierIsOfTheKindOfItsText) {
  add(10, "17");
  add(20, uuid(1));
  const auto all = impl.getAuditTrail(0, 0, kAnyType, kAnyObject, status);
  ASSERT_EQ(all->size(), 2U);
  EXPECT_EQ((*all)[0]->getObjID(), ObjID(17));
  EXPECT_EQ((*all)[1]->getObjID(), ObjID(uuid(1)));
}

TEST_P(AuditTrailTest, ALongInfoIsCutToItsBuffer) {
  // The schema's table has no such rows.
  store->execute("drop table nwtopoaudittrail");
  store->execute(
      "create table nwtopoaudittrail (ActionTimeUTC integer, ActionType integer, "
      "ObjID varchar(36), ActionDetail integer, ObjectType integer, ActionInfo varchar(400))");
  add(10, 2, "a", 0, 1, std::string(300, 'x'));
  EXPECT_THAT(trails(), ElementsAre("a 1: (10 2 0 " + std::string(254, 'x') + ")"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(AuditTrailTest, EachFailedStepHasItsStatusAndText) {
  add(10);
  const std::tuple<StatementSpy::Step, ZNTopoStatus, std::string> steps[] = {
      {StatementSpy::BindSql, ZN_API_SQL_BIND_STATEMENT_ERROR,
       "Failed to bind SQL statement: " + std::string(kSelect) + "\n"},
      {StatementSpy::BindColumn, ZN_API_SQL_BIND_COLUMN_ERROR,
       "Problem binding values for AuditTrail\n"},
      {StatementSpy::Exec, ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command\n"},
  };
  for (const auto& [step, code, text] : steps) {
    StatementSpy spy;
    spy.fail(step, "nwtopoaudittrail");
    EXPECT_THAT(trails(), IsEmpty());
    EXPECT_EQ(status.getStatus(), code);
    EXPECT_THAT(status.getAuxMsg(), StartsWith(text));
    EXPECT_THAT(status.getAuxMsg(), HasSubstr(StatementSpy::kMessage));
  }
}

TEST_P(AuditTrailTest, RowsThatEndInAFailureAreWhatWasRead) {
  add(10);
  add(20);
  StatementSpy spy;
  spy.fail(StatementSpy::Fetch, "nwtopoaudittrail", TvDbil::DBIL_ERROR, 2);
  EXPECT_THAT(trails(), ElementsAre("a 1: (10 2 0 at 10)"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(AuditTrailTest, ARowWithInfoIsARow) {
  add(10);
  StatementSpy spy;
  spy.answer(StatementSpy::Fetch, "nwtopoaudittrail", TvDbil::DBIL_SUCCESS_WITH_INFO);
  const auto all = trails();
  EXPECT_THAT(all, testing::Contains(StartsWith("a 1: (10 2 0 at 10)")));
}

}  // namespace
}  // namespace zntopo::test
