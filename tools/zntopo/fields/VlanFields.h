#pragma once

#include <string>
#include <vector>

#include "tools/zntopo/fields/Field.h"
#include "tools/zntopo/fields/LinkFields.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/ZNVlan.h"

namespace zntopo::tools {

/// An interface that is a member of a VLAN.
struct VlanMember {
  LinkEnd end;
  std::string card;
  std::string port;
};

/// A VLAN with what it does not hold itself.
struct VlanDetails {
  ZNRefPtr<ZNVlan> object;
  /// For the view of one alone.
  std::vector<VlanMember> members = {};
};

/// The number: the variable "VlanId" as it is, a text if it is one; null if it has none. The VLAN
/// itself knows it only if it was not read together with all others.
Json vlanNumber(const ZNVlan& vlan);

std::span<const Field<VlanDetails>> vlanFields();
std::span<const Field<VlanMember>> vlanMemberFields();

}  // namespace zntopo::tools
