#pragma once

namespace zntopo {

/// Which attribute an attribute change tells of. The numbers travel in events; 7, the state of an
/// association of containers, has no enumerator.
enum TopologyAttributeType : int {
  HSRP_State = 0,
  HSRP_Certainity = 1,
  IfAdmin_Status = 2,
  IfOper_Status = 3,
  Ping_State = 4,
  Snmp_State = 5,
  HSRP_Priority = 6
};

}  // namespace zntopo
