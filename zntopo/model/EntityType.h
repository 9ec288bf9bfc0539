#pragma once

#include <string>

#include "zntopo/platform/Export.h"

namespace zntopo {

/// The kind of a topology object, as the column EntityType holds it.
enum EntityType : int {
  E_Unknown = 0,
  E_Node = 1,
  E_Interface = 2,
  E_LogicalInterface = 3,
  E_Vlan = 4,
  E_Card = 5,
  E_PSU = 6,
  E_Subnet = 7,
  E_Module = 8,
  E_Mesh = 10,
  E_HSRP = 11,
  E_IfC = 12,
  E_Address = 25
};

/// "InvalidType" for E_Address and for numbers that are no kind.
ZNTOPO_EXPORT std::string getEntityTypeAsString(EntityType type);
/// E_Unknown for numbers that are no kind, and for 25.
ZNTOPO_EXPORT EntityType getEntityTypeFromInt(int value);
ZNTOPO_EXPORT short getEntityTypeAsShort(EntityType type);

}  // namespace zntopo
