#include "zntopo/platform/tvsnmp/detail/EventPdu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <limits>
#include <memory>

#include "tests/support/Scratch.h"

namespace {

using testing::ElementsAre;
using tvsnmp::Event;
using tvsnmp::EventError;
using tvsnmp::EventVariable;

struct Free {
  void operator()(SNMPPdu* pdu) const { TVsnmpFreePdu(pdu); }
};
using Pdu = std::unique_ptr<SNMPPdu, Free>;

const tvsnmp::Oid kName = {1, 3, 6, 1, 4, 1, 47231, 9};

Event eventOf(std::vector<EventVariable> variables) { return {60001102, std::move(variables)}; }

EventVariable integer(long value) { return {kName, tvsnmp::kIntegerType, value, ""}; }
EventVariable text(std::string value) { return {kName, tvsnmp::kTextType, 0, std::move(value)}; }

std::string encoded(const Event& event) {
  std::string bytes;
  EXPECT_EQ(tvsnmp::encode(event, bytes), EventError::None);
  return bytes;
}

Pdu decoded(const std::string& bytes) { return Pdu(tvsnmp::decode(bytes)); }

std::string identifier(const SNMPPdu& pdu) {
  char buffer[128];
  return TVsnmpOidToStr(pdu.notify_oid, pdu.notify_oid_length, buffer, sizeof buffer);
}

/// The variables behind the platform's own.
std::vector<const SNMPVarBind*> sent(const SNMPPdu& pdu) {
  std::vector<const SNMPVarBind*> all;
  for (const SNMPVarBind* next = pdu.variables; next != nullptr; next = next->next_variable) {
    all.push_back(next);
  }
  if (!all.empty()) all.erase(all.begin());
  return all;
}

std::string textOf(const SNMPVarBind& variable) {
  return {reinterpret_cast<const char*>(variable.val.string),
          static_cast<std::size_t>(variable.val_len)};
}

TEST(EventPduTest, TheIdentifierOfTheEventIsLiftedOut) {
  const Pdu pdu = decoded(encoded(eventOf({})));
  EXPECT_EQ(identifier(*pdu), ".1.3.6.1.4.1.47231.2.17.1.0.60001102");
  EXPECT_EQ(pdu->notify_oid_length, 12);
}

TEST(EventPduTest, TheUpTimeStaysAsTheOneVariableInFront) {
  const Pdu pdu = decoded(encoded(eventOf({})));
  const SNMPVarBind& first = *pdu->variables;
  char buffer[64];
  EXPECT_STREQ(TVsnmpOidToStr(first.oid, first.oid_length, buffer, sizeof buffer),
               ".1.3.6.1.2.1.1.3.0");
  EXPECT_EQ(first.type, 0x43);
  EXPECT_EQ(first.next_variable, nullptr);
}

TEST(EventPduTest, VariablesComeInTheirOrderWithTypesAndNames) {
  const Pdu pdu = decoded(encoded(eventOf({text("first"), integer(7), text("")})));
  const auto variables = sent(*pdu);
  ASSERT_EQ(variables.size(), 3U);
  EXPECT_EQ(variables[0]->type, 4);
  EXPECT_EQ(textOf(*variables[0]), "first");
  EXPECT_EQ(variables[1]->type, 2);
  EXPECT_EQ(*variables[1]->val.integer, 7);
  EXPECT_EQ(variables[2]->type, 4);
  EXPECT_EQ(textOf(*variables[2]), "");
  EXPECT_EQ(TVsnmpOidCompare(variables[1]->oid, variables[1]->oid_length, kName.data(),
                             static_cast<int>(kName.size())),
            0);
}

TEST(EventPduTest, IntegersOf32BitsComeBack) {
  using Limits = std::numeric_limits<int>;
  for (const int value : {0, 1, -1, 127, 128, -128, -129, 65536, Limits::max(), Limits::min()}) {
    const Pdu pdu = decoded(encoded(eventOf({integer(value)})));
    ASSERT_EQ(sent(*pdu).size(), 1U);
    EXPECT_EQ(*sent(*pdu)[0]->val.integer, value);
  }
}

TEST(EventPduTest, TextsOfAnyBytesComeBackWithANulBehind) {
  const std::string all = std::string("a\0\xff\n", 4) + std::string(5000, 'x');
  const Pdu pdu = decoded(encoded(eventOf({text(all)})));
  ASSERT_EQ(sent(*pdu).size(), 1U);
  EXPECT_EQ(textOf(*sent(*pdu)[0]), all);
  EXPECT_EQ(sent(*pdu)[0]->val.string[all.size()], '\0');
}

TEST(EventPduTest, AnEventThatIsTooLargeIsRefused) {
  std::string bytes;
  EXPECT_EQ(tvsnmp::encode(eventOf({text(std::string(59990, 'x'))}), bytes), EventError::TooLarge);
  EXPECT_EQ(tvsnmp::encode(eventOf({text(std::string(70000, 'x'))}), bytes), EventError::TooLarge);
  EXPECT_EQ(tvsnmp::encode(eventOf({text(std::string(59000, 'x'))}), bytes), EventError::None);
  EXPECT_LE(bytes.size(), tvsnmp::kMostBytesOfEvent);
}

TEST(EventPduTest, BytesThatAreNoNotificationGiveAnEmptyOne) {
  const std::string whole = encoded(eventOf({text("some"), integer(3)}));
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const Pdu pdu = decoded(whole.substr(0, size));
    ASSERT_NE(pdu, nullptr);
    EXPECT_EQ(pdu->notify_oid, nullptr) << size;
    EXPECT_EQ(pdu->notify_oid_length, 0);
    EXPECT_EQ(pdu->variables, nullptr);
  }
}

TEST(EventPduTest, AnotherKindOfMessageGivesAnEmptyOne) {
  std::string bytes = encoded(eventOf({integer(3)}));
  ASSERT_EQ(bytes[0], '\xA7');
  bytes[0] = '\xA6';  // an inform request
  EXPECT_EQ(decoded(bytes)->notify_oid, nullptr);
}

TEST(EventPduTest, WithoutTheTwoVariablesInFrontItIsEmpty) {
  std::string bytes = encoded(eventOf({integer(3)}));
  const std::string upTime("\x06\x08\x2b\x06\x01\x02\x01\x01\x03\x00", 10);
  const std::size_t at = bytes.find(upTime);
  ASSERT_NE(at, std::string::npos);
  bytes[at + 9] = 1;
  EXPECT_EQ(decoded(bytes)->notify_oid, nullptr);
}

TEST(EventPduTest, NothingIsWrittenToStandardError) {
  const zntopo::test::Scratch scratch;
  const std::string file = scratch.write("error", "");
  const std::string whole = encoded(eventOf({text("some"), integer(3)}));
  const int before = dup(STDERR_FILENO);
  ASSERT_NE(freopen(file.c_str(), "w", stderr), nullptr);
  for (std::size_t i = 0; i < whole.size(); ++i) {
    std::string broken = whole;
    broken[i] = static_cast<char>(~broken[i]);
    decoded(broken);
    decoded(whole.substr(0, i));
  }
  std::string bytes;
  const EventError error = tvsnmp::encode(eventOf({text(std::string(59999, 'x'))}), bytes);
  std::fflush(stderr);
  dup2(before, STDERR_FILENO);
  close(before);
  EXPECT_EQ(error, EventError::TooLarge);
  EXPECT_EQ(scratch.read("error"), "");
}

}  // namespace
