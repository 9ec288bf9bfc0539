#pragma once

#include <string>
#include <vector>

#include "tools/zntopo/fields/AddressFields.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/ZNSubnet.h"

namespace zntopo::tools {

/// What lies in a subnet, by names.
struct SubnetMember {
  LinkEnd end;
  /// Empty if the store does not have it.
  std::string address;
};

/// A subnet with what it does not hold itself.
struct SubnetDetails {
  ZNRefPtr<ZNSubnet> object;
  /// The subnet's own address; null if the store has none.
  ZNRefPtr<ZNAddress> address = {};
  /// For the view of one alone.
  std::vector<SubnetMember> members = {};
};

/// As "10.20.8.0/24"; empty if it is not known.
std::string prefixText(const SubnetDetails& subnet);

std::span<const Field<SubnetDetails>> subnetFields();
std::span<const Field<SubnetMember>> subnetMemberFields();

}  // namespace zntopo::tools
