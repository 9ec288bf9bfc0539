#pragma once

#include <string>
#include <vector>

#include "tools/zntopo/fields/Field.h"
#include "tools/zntopo/fields/LinkFields.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/ZNHSRP.h"

namespace zntopo::tools {

/// An interface that a member of an HSRP group tracks.
struct HsrpTrack {
  LinkEnd end;
  int priority = 0;
};

/// A member of an HSRP group, by names.
struct HsrpMember {
  ZNHSRPAddressInfo info;
  LinkEnd end;
  /// Empty if the store does not have it.
  std::string address;
  std::vector<HsrpTrack> tracks = {};
};

/// An HSRP group with what it does not hold itself.
struct HsrpDetails {
  ZNRefPtr<ZNHSRP> object;
  /// The active ones first, then those that stand by; by falling priority.
  std::vector<HsrpMember> members = {};
};

/// Whether a group has not exactly one active member.
bool isFaulty(const ZNHSRP& group);

std::span<const Field<HsrpDetails>> hsrpFields();
std::span<const Field<HsrpMember>> hsrpMemberFields();

}  // namespace zntopo::tools
