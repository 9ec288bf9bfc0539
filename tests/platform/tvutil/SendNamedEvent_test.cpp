#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/platform/tvsnmp/SessionSupport.h"
#include "tests/support/EventBroker.h"
#include "zntopo/platform/tvutil/TvUtil.h"

namespace zntopo::test {
namespace {

constexpr const TVsnmpArc* kEnd = nullptr;

class SendNamedEventTest : public EventModeFixture {
 protected:
  void SetUp() override {
    EventModeFixture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    session_ = openSession(kTwo);
    ASSERT_TRUE(session_);
  }

  /// The variables of the next event behind the platform's own, as "type name: value".
  std::vector<std::string> received() const {
    const ReceivedPdu pdu = receive(session_);
    if (!pdu) return {described(pdu)};
    std::vector<std::string> all;
    for (auto* next = pdu->variables->next_variable; next != nullptr; next = next->next_variable) {
      const std::string value = next->type == 2
                                    ? std::to_string(*next->val.integer)
                                    : std::string(reinterpret_cast<const char*>(next->val.string),
                                                  static_cast<std::size_t>(next->val_len));
      all.push_back(std::to_string(next->type) + " " + nameOf(*next) + ": " + value);
    }
    return all;
  }

  static std::string nameOf(const SNMPVarBind& variable) {
    const auto is = [&variable](const TVsnmpArc* name) {
      return TVsnmpOidCompare(variable.oid, variable.oid_length, name, marloAttributesLen) == 0;
    };
    if (is(marloSourceNameId)) return "source";
    if (is(marloTVwOIDId)) return "object";
    return is(marloDataId) ? "data" : "unknown";
  }

  OpenSession session_;
};
ZNTOPO_ON_EVENT_MODES(SendNamedEventTest);

using Lines = std::vector<std::string>;

TEST_P(SendNamedEventTest, IntegersAndTextsTravelMixed) {
  const char* error = nullptr;
  ASSERT_EQ(_qrmVSendNamedEvent(nullptr, session_.get(), &error, 60001102,          //
                                marloSourceNameId, marloAttributesLen, 4, "", -1,   //
                                marloTVwOIDId, marloAttributesLen, 4, "node", -1,   //
                                marloDataId, marloAttributesLen, 2, -5, 1,          //
                                marloDataId, marloAttributesLen, 4, "text", 2,      //
                                marloDataId, marloAttributesLen, 2, 2000000000, 1,  //
                                kEnd),
            0);
  EXPECT_EQ(error, nullptr);
  EXPECT_EQ(received(), (Lines{"4 source: ", "4 object: node", "2 data: -5", "4 data: te",
                               "2 data: 2000000000"}));
}

TEST_P(SendNamedEventTest, MoreArgumentsThanRegistersHoldArrive) {
  const TVsnmpArc* const name = marloDataId;
  const int length = marloAttributesLen;
  ASSERT_EQ(
      _qrmVSendNamedEvent(nullptr, session_.get(), nullptr, 60001102, name, length, 2, 1, 1, name,
                          length, 4, "2", -1, name, length, 2, 3, 1, name, length, 4, "4", -1, name,
                          length, 2, 5, 1, name, length, 4, "6", -1, name, length, 2, 7, 1, kEnd),
      0);
  EXPECT_EQ(received(), (Lines{"2 data: 1", "4 data: 2", "2 data: 3", "4 data: 4", "2 data: 5",
                               "4 data: 6", "2 data: 7"}));
}

TEST_P(SendNamedEventTest, AnEventNeedsNoVariables) {
  ASSERT_EQ(_qrmVSendNamedEvent(nullptr, session_.get(), nullptr, 60001102, kEnd), 0);
  EXPECT_EQ(received(), Lines{});
}

TEST_P(SendNamedEventTest, ANullTextIsEmpty) {
  constexpr const char* kNone = nullptr;
  ASSERT_EQ(_qrmVSendNamedEvent(nullptr, session_.get(), nullptr, 60001102, marloDataId,
                                marloAttributesLen, 4, kNone, -1, kEnd),
            0);
  EXPECT_EQ(received(), Lines{"4 data: "});
}

TEST_P(SendNamedEventTest, AnUnknownTypeIsRefused) {
  const char* error = nullptr;
  EXPECT_NE(_qrmVSendNamedEvent(nullptr, session_.get(), &error, 60001102, marloDataId,
                                marloAttributesLen, 6, "x", -1, kEnd),
            0);
  EXPECT_STREQ(error, "the event cannot be encoded");
  // Nothing of it travels: the next event is the first to come.
  ASSERT_EQ(_qrmVSendNamedEvent(nullptr, session_.get(), &error, 60001102, kEnd), 0);
  EXPECT_EQ(received(), Lines{});
}

TEST(SendNamedEventWithoutASessionTest, FailsWithAText) {
  const char* error = nullptr;
  EXPECT_NE(_qrmVSendNamedEvent(nullptr, nullptr, &error, 60001102, kEnd), 0);
  EXPECT_STREQ(error, "there is no event session");
  EXPECT_NE(_qrmVSendNamedEvent(nullptr, nullptr, nullptr, 60001102, kEnd), 0);
}

}  // namespace
}  // namespace zntopo::test
