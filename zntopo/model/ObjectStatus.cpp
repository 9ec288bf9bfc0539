#include "zntopo/model/ObjectStatus.h"

namespace zntopo {

namespace {

struct State {
  ObjectStatus::Status status;
  const char* text;
  ObjectStatus::QRMMappedStatus mapped;
};

constexpr State kStates[] = {
    {ObjectStatus::NoStatus, "NoStatus", ObjectStatus::QRMNoStatus},
    {ObjectStatus::Normal, "Normal", ObjectStatus::QRMNormal},
    {ObjectStatus::Unknown, "Unknown", ObjectStatus::QRMUnknown},
    {ObjectStatus::Warning, "Warning", ObjectStatus::QRMWarning},
    {ObjectStatus::Marginal, "Marginal", ObjectStatus::QRMMarginal},
    {ObjectStatus::Major, "Major", ObjectStatus::QRMMajor},
    {ObjectStatus::Critical, "Critical", ObjectStatus::QRMCritical},
    {ObjectStatus::Unmanaged, "Unmanaged", ObjectStatus::QRMUnmanaged},
    {ObjectStatus::Restricted, "Restricted", ObjectStatus::QRMRestricted},
    {ObjectStatus::Testing, "Testing", ObjectStatus::QRMTesting},
    {ObjectStatus::Disabled, "Disabled", ObjectStatus::QRMDisabled},
};

/// The state of a number, that of NoStatus for a number that is none.
const State& stateOf(int value) {
  for (const State& state : kStates) {
    if (state.status == value) return state;
  }
  return kStates[0];
}

}  // namespace

int ObjectStatus::getQRMMappedStatusAsInt() const { return stateOf(_stat).mapped; }

std::string ObjectStatus::toString() const { return stateOf(_stat).text; }

ObjectStatus::Status ObjectStatus::IntToStatus(int value) { return stateOf(value).status; }

}  // namespace zntopo
