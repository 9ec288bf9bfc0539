// What the address queries tell when a step of their statements fails.

#include "tests/support/ApiFixture.h"

namespace zntopo::test {
namespace {

using testing::IsEmpty;
using testing::StartsWith;

class AddressFailuresTest : public ApiTest {
 protected:
  void failAt(StatementSpy::Step step) { spy_.emplace().fail(step, "from address"); }
  std::string lastStatement() { return spy_->statements().back(); }

 private:
  std::optional<StatementSpy> spy_;
};

TEST_P(AddressFailuresTest, AStatementThatIsNotPreparedIsToldWithItsText) {
  failAt(StatementSpy::BindSql);
  EXPECT_THAT(*impl.getAddressesByWhereClause("", "", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_BIND_STATEMENT_ERROR);
  EXPECT_THAT(status.getAuxMsg(),
              StartsWith("Unable to bind SQL Statement: " + lastStatement() + "\n"));
  EXPECT_NE(status.getAuxMsg().find(StatementSpy::kMessage), std::string::npos);
}

TEST_P(AddressFailuresTest, AColumnThatIsNotBoundHasAStatusOfItsOwn) {
  failAt(StatementSpy::BindColumn);
  EXPECT_THAT(*impl.getAddressesByWhereClause("", "", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_ADDR_QUERY_FAILURE);
  EXPECT_THAT(status.getAuxMsg(), StartsWith("Problem binding values for Address\n"));
  EXPECT_NE(status.getAuxMsg().find(StatementSpy::kMessage), std::string::npos);
}

TEST_P(AddressFailuresTest, AStatementThatIsNotExecutedIsTold) {
  failAt(StatementSpy::Exec);
  EXPECT_THAT(*impl.getAddressesByWhereClause("", "", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_THAT(status.getAuxMsg(), StartsWith("Problem Executing SQL Command\n"));
}

TEST_P(AddressFailuresTest, WithoutAConnectionTheHoldersStatusComesBack) {
  breakConnections();
  EXPECT_THAT(*working.getAddressesByWhereClause("", "", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
  EXPECT_THAT(*working.getObjIDs("select ObjId from address", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
  EXPECT_THAT(*working.resolveIPv6ToDNS("v6", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
}

TEST_P(AddressFailuresTest, IdentifiersCountAsInvalidIfAColumnIsNotBoundAndCachedAddressesStay) {
  store->addAddress("a", "if", "n1", "10.0.0.1");
  impl.getAddressByObjID("a", status);
  failAt(StatementSpy::BindColumn);
  EXPECT_EQ(impl.getAddrsByObjIDs({"a", "b"}, status, false, ZNAddress::IPv4)->size(), 1u);
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_NE(status.getAuxMsg().find("All of the Address ObjID's were invalid\n"),
            std::string::npos);
}

TEST_P(AddressFailuresTest, AFailedExecutionIsNotTakenForInvalidIdentifiers) {
  failAt(StatementSpy::Exec);
  EXPECT_THAT(*impl.getAddrsByObjIDs({"a"}, status, false, ZNAddress::IPv4), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
}

TEST_P(AddressFailuresTest, ALegacyIdentifierKeepsTheStatusOfAColumnThatIsNotBound) {
  failAt(StatementSpy::BindColumn);
  EXPECT_TRUE(impl.getAddressByQRMObjID(ObjID(5), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_ADDR_QUERY_FAILURE);
  EXPECT_TRUE(status.getAuxMsg().ends_with("QRMObjiId not found in database.\n"));
}

TEST_P(AddressFailuresTest, OwnersGetNothingAfterAFailure) {
  failAt(StatementSpy::Exec);
  EXPECT_THAT(*impl.getAddrsByAssociatedObjIDList({"i1"}, status, 0), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
}

/// A failed step, and what is told of it.
struct FailedStep {
  StatementSpy::Step step;
  ZNTopoStatus code;
  const char* text;
};

TEST_P(AddressFailuresTest, AListOfIdentifiersTellsItsStatementWithEachFailure) {
  const std::string sql = "select ObjId from address";
  const FailedStep steps[] = {
      {StatementSpy::BindSql, ZN_API_SQL_BIND_STATEMENT_ERROR, "Unable to bind SQL Statement: "},
      {StatementSpy::BindColumn, ZN_API_SQL_BIND_COLUMN_ERROR,
       "Problem binding values for getObjIDs:"},
      {StatementSpy::Exec, ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command:"},
  };
  for (const FailedStep& expected : steps) {
    StatementSpy spy;
    spy.fail(expected.step, sql);
    EXPECT_THAT(*impl.getObjIDs(sql, status), IsEmpty());
    EXPECT_EQ(status.getStatus(), expected.code);
    EXPECT_THAT(status.getAuxMsg(), StartsWith(expected.text + sql + "\n"));
  }
}

TEST_P(AddressFailuresTest, DnsNamesTellThatAColumnIsNotBoundAndThatTheStatementIsNotExecuted) {
  const FailedStep steps[] = {
      {StatementSpy::BindColumn, ZN_API_SQL_BIND_COLUMN_ERROR,
       "Problem binding values for resolveIPv6ToDNS\n"},
      {StatementSpy::Exec, ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command\n"},
  };
  for (const auto& [step, code, text] : steps) {
    StatementSpy spy;
    spy.fail(step, "select a.DNSName");
    EXPECT_THAT(*impl.resolveIPv6ToDNS("v6", status), IsEmpty());
    EXPECT_EQ(status.getStatus(), code);
    EXPECT_THAT(status.getAuxMsg(), StartsWith(text));
  }
}

ZNTOPO_ON_ENGINES(AddressFailuresTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
