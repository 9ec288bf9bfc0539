#pragma once

#include "tools/network/NetworkModel.h"
#include "tools/network/NumberName.h"

/// @file
/// The words for numbers in files of networks and in the command, as data/yang/zntopo-topology.yang
/// has them.

namespace zntopo::tools {

namespace names {

inline constexpr NumberName<> kStatus[] = {{"no-status", 0}, {"normal", 1},     {"unknown", 2},
                                           {"warning", 3},   {"marginal", 4},   {"major", 5},
                                           {"critical", 6},  {"unmanaged", 10}, {"restricted", 11},
                                           {"testing", 12},  {"disabled", 13}};
inline constexpr NumberName<> kSnmpState[] = {{"responding", 0},
                                              {"not-responding", 1},
                                              {"unreachable", 2},
                                              {"agent-down", 3},
                                              {"disabled", 4}};
inline constexpr NumberName<> kAdminState[] = {{"up", 1}, {"down", 2}, {"testing", 3}};
inline constexpr NumberName<> kOperState[] = {
    {"up", 1},      {"down", 2},        {"testing", 3},         {"unknown", 4},
    {"dormant", 5}, {"not-present", 6}, {"lower-layer-down", 7}};
inline constexpr NumberName<> kNetToMedia[] = {{"reachable", 1}, {"stale", 2},   {"delay", 3},
                                               {"probe", 4},     {"invalid", 5}, {"unknown", 6}};
inline constexpr NumberName<> kPreference[] = {
    {"preferred", 1}, {"deprecated", 2}, {"inaccessible", 3}, {"unknown", 4}};
inline constexpr NumberName<> kOrigin[] = {{"stateless", 1}, {"stateful", 2}, {"unknown", 3}};
inline constexpr NumberName<> kHsrpState[] = {
    {"initial", 1}, {"learn", 2}, {"listen", 3},      {"speak", 4},      {"standby", 5},
    {"active", 6},  {"misc", 7},  {"unavailable", 8}, {"no-response", 9}};
inline constexpr NumberName<> kObjectType[] = {{"node", 1},
                                               {"interface", 2},
                                               {"vlan", 4},
                                               {"subnet", 7},
                                               {"mesh", 10},
                                               {"hsrp-group", 11},
                                               {"interface-container", 12},
                                               {"address", 25}};
inline constexpr NumberName<> kAuditAction[] = {
    {"object-deletion", 1},      {"object-creation", 2},    {"association-creation", 3},
    {"association-deletion", 4}, {"association-change", 5}, {"attribute-change", 6}};
inline constexpr NumberName<> kAuditDetail[] = {{"not-applicable", 0},
                                                {"layer-2-connection", 1},
                                                {"vlan-containment", 2},
                                                {"container-containment", 3},
                                                {"node-interface-containment", 4},
                                                {"interface-address-association", 5},
                                                {"subnet-address-association", 6},
                                                {"hsrp-address-change", 101},
                                                {"hsrp-address-add-or-delete", 102}};
/// The bits of NodeFeature.
inline constexpr NumberName<> kFeature[] = {{"ospf", SpeaksOspf},    {"bgp", SpeaksBgp},
                                            {"cdp", SpeaksCdp},      {"stp", SpeaksStp},
                                            {"snmp", SpeaksSnmp},    {"multi-homed", IsMultiHomed},
                                            {"wireless", IsWireless}};

}  // namespace names

}  // namespace zntopo::tools
