#include "zntopo/model/ObjectStatus.h"

#include <gtest/gtest.h>

#include <string>

namespace zntopo::test {
namespace {

struct State {
  ObjectStatus::Status status;
  int number;
  const char* text;
  int mapped;
  ObjectStatus::QRMMappedStatus mappedStatus;
};

constexpr State kStates[] = {
    {ObjectStatus::NoStatus, 0, "NoStatus", 0, ObjectStatus::QRMNoStatus},
    {ObjectStatus::Normal, 1, "Normal", 2, ObjectStatus::QRMNormal},
    {ObjectStatus::Unknown, 2, "Unknown", 1, ObjectStatus::QRMUnknown},
    {ObjectStatus::Warning, 3, "Warning", 6, ObjectStatus::QRMWarning},
    {ObjectStatus::Marginal, 4, "Marginal", 3, ObjectStatus::QRMMarginal},
    {ObjectStatus::Major, 5, "Major", 7, ObjectStatus::QRMMajor},
    {ObjectStatus::Critical, 6, "Critical", 4, ObjectStatus::QRMCritical},
    {ObjectStatus::Unmanaged, 10, "Unmanaged", 5, ObjectStatus::QRMUnmanaged},
    {ObjectStatus::Restricted, 11, "Restricted", 8, ObjectStatus::QRMRestricted},
    {ObjectStatus::Testing, 12, "Testing", 9, ObjectStatus::QRMTesting},
    {ObjectStatus::Disabled, 13, "Disabled", 10, ObjectStatus::QRMDisabled},
};

constexpr int kNoStates[] = {-1, 7, 8, 9, 14, 255, 65537};

TEST(ObjectStatusTest, EachStateHasItsNumberTextAndMappedNumber) {
  for (const State& state : kStates) {
    SCOPED_TRACE(state.text);
    const ObjectStatus status(state.status);
    EXPECT_EQ(state.status, status.getStatus());
    EXPECT_EQ(state.number, status.getStatusAsInt());
    EXPECT_EQ(state.text, status.toString());
    EXPECT_EQ(state.mapped, status.getQRMMappedStatusAsInt());
    EXPECT_EQ(state.mapped, state.mappedStatus);
  }
}

TEST(ObjectStatusTest, EachStateComesBackFromItsNumber) {
  for (const State& state : kStates) {
    EXPECT_EQ(state.status, ObjectStatus::IntToStatus(state.number)) << state.text;
    EXPECT_EQ(state.status, ObjectStatus(state.number).getStatus()) << state.text;
  }
}

TEST(ObjectStatusTest, NumbersThatAreNoStateGiveNoStatus) {
  for (const int number : kNoStates) {
    EXPECT_EQ(ObjectStatus::NoStatus, ObjectStatus::IntToStatus(number)) << number;
    EXPECT_EQ(ObjectStatus::NoStatus, ObjectStatus(number).getStatus()) << number;
  }
}

TEST(ObjectStatusTest, AnEnumeratorIsTakenAsItIsEvenIfItIsNoState) {
  const ObjectStatus status(static_cast<ObjectStatus::Status>(7));
  EXPECT_EQ(7, status.getStatusAsInt());
  EXPECT_EQ("NoStatus", status.toString());
  EXPECT_EQ(0, status.getQRMMappedStatusAsInt());
}

TEST(ObjectStatusTest, AFreshStatusIsNormalAndSoIsOneAfterAReset) {
  ObjectStatus status;
  EXPECT_EQ(ObjectStatus::Normal, status.getStatus());
  status = ObjectStatus(ObjectStatus::Critical);
  EXPECT_EQ(ObjectStatus::Critical, status.getStatus());
  status.reset();
  EXPECT_EQ(ObjectStatus::Normal, status.getStatus());
}

TEST(ObjectStatusTest, ACopyIsAValueOfItsOwn) {
  ObjectStatus source(ObjectStatus::Major);
  const ObjectStatus copy(source);
  source = ObjectStatus(ObjectStatus::Testing);
  EXPECT_EQ(ObjectStatus::Major, copy.getStatus());
  EXPECT_EQ(ObjectStatus::Testing, source.getStatus());
}

}  // namespace
}  // namespace zntopo::test
