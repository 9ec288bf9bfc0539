#pragma once

#include <cstdint>

/// @file
/// The bits in the masks of ZNNodeCapabilitySet and ZNInterfaceCapabilitySet.

namespace zntopo {

/// The bits of what a node can do.
struct NodeCapability {
  enum Bit : std::uint32_t {
    LanSwitch = 0x1,
    IPv4Router = 0x2,
    IPv6Router = 0x4,
    ATM = 0x8,
    HSRP = 0x10,
    FrameRelay = 0x20,
    CDP = 0x40,
    BGP = 0x80,
    OSPF = 0x100,
    STP = 0x200,
    VRRP = 0x400,
    Wireless = 0x800,
    SONET = 0x1000,
    RMON = 0x2000,
    RMON2 = 0x4000,
    DS1 = 0x8000,
    DS3 = 0x10000,
    MPLS = 0x20000,
    MultiHome = 0x40000,
    Manageable = 0x80000,
    SnmpSupported = 0x200000
  };
};

/// The bits of what an interface can do. What has the name of a node's capability has its bit.
struct InterfaceCapability {
  enum Bit : std::uint32_t {
    AccessPort = 0x1,
    L2Connected = 0x2,
    ATM = NodeCapability::ATM,
    HSRP = NodeCapability::HSRP,
    FrameRelay = NodeCapability::FrameRelay,
    CDP = NodeCapability::CDP,
    BGP = NodeCapability::BGP,
    OSPF = NodeCapability::OSPF,
    STP = NodeCapability::STP,
    VRRP = NodeCapability::VRRP,
    Wireless = NodeCapability::Wireless,
    SONET = NodeCapability::SONET,
    RMON = NodeCapability::RMON,
    RMON2 = NodeCapability::RMON2,
    DS1 = NodeCapability::DS1,
    DS3 = NodeCapability::DS3,
    MPLS = NodeCapability::MPLS,
    MeshInterface = 0x100000
  };
};

}  // namespace zntopo
