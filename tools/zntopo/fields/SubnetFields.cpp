#include "tools/zntopo/fields/SubnetFields.h"

#include <set>

#include "tools/zntopo/fields/EntityFields.h"

namespace zntopo::tools {

namespace {

Json prefix(const SubnetDetails& subnet) { return known(prefixText(subnet)); }

/// Most subnets are called by their prefix: then the column has nothing to tell.
std::string otherPrefix(const SubnetDetails& subnet) {
  const std::string text = prefixText(subnet);
  return valueText(text == subnet.object->getName() ? Json() : known(text));
}

Json scope(const SubnetDetails& subnet) { return nameOrNull(kScopeNames, scopeOf(subnet.address)); }

Json nodes(const SubnetDetails& subnet) {
  std::set<std::string> ids;
  for (const ObjID& id : subnet.object->getContainedNodeObjIDs()) ids.insert(id.toString());
  return ids.size();
}

Json addresses(const SubnetDetails& subnet) {
  return subnet.object->getSubnetEndPointList().size();
}

constexpr Field<SubnetDetails> kOwnFields[] = {
    {.key = "prefix", .value = prefix},
    {.head = "PREFIX", .value = prefix, .text = otherPrefix, .isRare = true},
    {.key = "ip_level", .value = ofObject<&ZNSubnet::getIPLevel>},
    {.key = "scope", .head = "SCOPE", .value = scope, .isRare = true},
    {.key = "nodes", .head = "NODES", .value = nodes},
    {.key = "addresses", .head = "ADDRESSES", .value = addresses},
};

constexpr auto kSubnetFields = joined(kNameFields<SubnetDetails>, std::to_array(kOwnFields),
                                      kDescriptionFields<SubnetDetails>);

constexpr auto kMemberFields =
    joined(kEndFields<&SubnetMember::end, SubnetMember>,
           std::array{Field<SubnetMember>{
               .key = "address", .head = "ADDRESS", .value = knownMember<&SubnetMember::address>}});

}  // namespace

std::string prefixText(const SubnetDetails& subnet) { return textWithLength(subnet.address); }

std::span<const Field<SubnetDetails>> subnetFields() { return kSubnetFields; }
std::span<const Field<SubnetMember>> subnetMemberFields() { return kMemberFields; }

}  // namespace zntopo::tools
