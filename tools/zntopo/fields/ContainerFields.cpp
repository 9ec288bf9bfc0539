#include "tools/zntopo/fields/ContainerFields.h"

#include "tools/zntopo/fields/EntityFields.h"

namespace zntopo::tools {

namespace {

Json nodes(const ContainerDetails& details) { return details.object->getAllIfcInfos().size(); }

Json interfaces(const ContainerDetails& details) {
  std::size_t result = 0;
  for (const ZNIfcInfo& info : details.object->getAllIfcInfos()) {
    result += info.getAllIfcIFInfos().size();
  }
  return result;
}

constexpr Field<ContainerDetails> kOwnFields[] = {
    {.key = "type", .head = "TYPE", .value = ofObject<&ZNIfc::getIfcType>},
    {.key = "application", .head = "APPLICATION", .value = ofObject<&ZNIfc::getAppsId>},
    {.key = "ordered", .head = "ORDERED", .value = ofObject<&ZNIfc::isOrdered>},
    {.key = "nodes", .head = "NODES", .value = nodes},
    {.key = "interfaces", .head = "INTERFACES", .value = interfaces},
};

constexpr auto kContainerFields = joined(kNameFields<ContainerDetails>, std::to_array(kOwnFields),
                                         kDescriptionFields<ContainerDetails>);

constexpr auto kMemberFields =
    joined(std::array{Field<ContainerMember>{
               .key = "sequence", .head = "SEQUENCE", .value = member<&ContainerMember::sequence>}},
           kEndFields<&ContainerMember::end, ContainerMember>,
           std::array{Field<ContainerMember>{.key = "containment",
                                             .head = "CONTAINMENT",
                                             .value = member<&ContainerMember::containment>}});

std::string since(const ContainerAssociation& association) {
  return timeText(association.object->getAssocStateTime());
}

constexpr Field<ContainerAssociation> kAssociationFields[] = {
    {.key = "left", .head = "LEFT", .value = knownMember<&ContainerAssociation::left>},
    {.key = "left_id", .value = ofObject<&ZNIfcAssocInfo::getLeftIfcId>},
    {.key = "left_type", .value = ofObject<&ZNIfcAssocInfo::getLeftIfcType>},
    {.key = "relation", .head = "RELATION", .value = ofObject<&ZNIfcAssocInfo::getIfcRelationType>},
    {.key = "right", .head = "RIGHT", .value = knownMember<&ContainerAssociation::right>},
    {.key = "right_id", .value = ofObject<&ZNIfcAssocInfo::getRightIfcId>},
    {.key = "right_type", .value = ofObject<&ZNIfcAssocInfo::getRightIfcType>},
    {.key = "state", .head = "STATE", .value = ofObject<&ZNIfcAssocInfo::getAssocState>},
    {.key = "state_change_time",
     .head = "SINCE",
     .value = ofObject<&ZNIfcAssocInfo::getAssocStateTime>,
     .text = since},
    {.key = "description",
     .head = "DESCRIPTION",
     .value = knownOfObject<&ZNIfcAssocInfo::getAssocDescription>},
    {.key = "extra_info",
     .head = "EXTRA INFO",
     .value = knownOfObject<&ZNIfcAssocInfo::getAssocExtraInfo>,
     .isRare = true},
};

}  // namespace

std::span<const Field<ContainerDetails>> containerFields() { return kContainerFields; }
std::span<const Field<ContainerMember>> containerMemberFields() { return kMemberFields; }
std::span<const Field<ContainerAssociation>> containerAssociationFields() {
  return kAssociationFields;
}

}  // namespace zntopo::tools
