#pragma once

namespace zntopo {

/// How an address answers, as the column PingState of address holds it.
enum PingState : int {
  Ping_Responding = 0,
  Ping_NotResponding = 1,
  Ping_Unreachable = 2,
  Ping_AgentDown = 3,
  Ping_Disabled = 4
};

}  // namespace zntopo
