#pragma once

#include <string>
#include <vector>

#include "tools/zntopo/fields/Field.h"
#include "tools/zntopo/fields/LinkFields.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/ZNIfc.h"

namespace zntopo::tools {

/// An interface in a container. The numbers are the application's.
struct ContainerMember {
  int sequence = 0;
  LinkEnd end;
  int containment = 0;
};

/// A relation between two containers, by names.
struct ContainerAssociation {
  ZNRefPtr<ZNIfcAssocInfo> object;
  std::string left;
  std::string right;
};

/// A container with what it does not hold itself.
struct ContainerDetails {
  ZNRefPtr<ZNIfc> object;
  /// For the view of one alone: in their order if the container has one, else by name.
  std::vector<ContainerMember> members = {};
  std::vector<ContainerAssociation> associations = {};
};

std::span<const Field<ContainerDetails>> containerFields();
std::span<const Field<ContainerMember>> containerMemberFields();
std::span<const Field<ContainerAssociation>> containerAssociationFields();

}  // namespace zntopo::tools
