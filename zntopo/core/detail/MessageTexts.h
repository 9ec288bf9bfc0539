#pragma once

#include <array>

#include "zntopo/core/MessageCatalogue.h"
#include "zntopo/core/ZNTopoStatus.h"

/// @file
/// Every text of the catalogue "zorb_topo" with its number and its default. The catalogue's
/// source in data/messages/ holds the same texts; a test keeps the two together.

namespace zntopo::detail {

inline constexpr int kMessageSet = 1;
/// The number of a text that never comes from the catalogue.
inline constexpr int kNotInCatalogue = -1;

/// One text of the catalogue.
struct Message {
  int number;
  const char* text;

  /// The text in the language of LANG; it stays valid for the life of the process.
  const char* get() const { return _zorb_topoMsg(kMessageSet, number, text); }
};

/// The message of a status code.
struct StatusText {
  ZNTopoStatus status;
  const char* name;
  Message message;
};

/// What a code without a text of its own reads.
inline constexpr Message kUnknownErrorCode{52, "Unknown Error code "};

/// Sorted by code.
extern const std::array<StatusText, 57> kStatusTexts;

/// The message of any number that is used as a status.
const Message& statusMessage(ZNTopoStatus status);

namespace messages {

inline constexpr Message kNoSortedLogFile{1, " unable to open sorted log file %s "};
inline constexpr Message kNoLogFile{4, " Failed to open file %s for logging, using standard out!"};
inline constexpr Message kNoClientFactory{
    53, "Memory Allocation for TopoNotificationClientFactory Failed\n"};
inline constexpr Message kNodes{72, "Total number of Nodes:\t\t\t"};
inline constexpr Message kInterfaces{73, "Total number of Interfaces:\t\t"};
inline constexpr Message kVlans{74, "Total number of Vlans:\t\t\t"};
inline constexpr Message kHSRPGroups{75, "Total number of HSRP Groups:\t\t"};
inline constexpr Message kSwitchMeshes{76, "Total number of Switch Meshes:\t\t"};
inline constexpr Message kObjects{77, "Total number of Topology Objects:\t"};
inline constexpr Message kL2Links{78, "Total number of L2Links:\t\t\t"};
inline constexpr Message kIPv4Nodes{79, "Number of IPV4 Nodes:\t\t\t"};
inline constexpr Message kIPv6Nodes{80, "Number of IPV6 Nodes:\t\t\t"};
inline constexpr Message kIPv6PrefixGroups{81, "Number of IPV6 PrefixGroups:\t\t"};
inline constexpr Message kIPv4Subnets{82, "Number of IPV4 Subnets:\t\t\t"};
inline constexpr Message kV4SnmpNodes{83, "Number of Nodes supporting V4SNMP :\t"};
inline constexpr Message kIPv4Interfaces{84, "Number of IPV4 Interfaces:\t\t"};
inline constexpr Message kIPv6Interfaces{85, "Number of IPV6 Interfaces:\t\t"};
inline constexpr Message kIPv4Addresses{86, "Total number of IPV4 Addresses:\t\t"};
inline constexpr Message kIPv6Addresses{87, "Total number of IPV6 Addresses:\t\t"};
inline constexpr Message kAddressObjects{88, "Total number of Address Objects:\t\t"};
inline constexpr Message kOverlappingDomains{
    89, "Overlapping Address Domain and node counts for each:\n"};
inline constexpr Message kHas{90, " has "};
inline constexpr Message kNodesOfDomain{91, " nodes\n"};
inline constexpr Message kName{92, "Name"};
inline constexpr Message kNoObjects{93, "No topology objects found !! \n\n"};
inline constexpr Message kRetrievalError{94, "Error in Topology data retrieval "};
inline constexpr Message kUsage{95, "Usage: "};
inline constexpr Message kStatus{96, "Status"};
inline constexpr Message kCommAddr{97, "CommAddr"};
inline constexpr Message kPrivateAddr{98, "PrivateAddr"};
inline constexpr Message kOADId{99, "OADId"};
inline constexpr Message kIPVer{100, "IPVer"};
inline constexpr Message kErrorMessage{101, "ErrorMessage: "};
inline constexpr Message kAuxMessage{102, "AuxMessage: "};
inline constexpr Message kNodeUsage{103, " [ IP Address | NodeName ] [-filt <FileterName>] \n"};
inline constexpr Message kFilterUsageInBrackets{104, " <FilterName> ]\t\t\t\n"};
inline constexpr Message kAddressUsage{105, " <IP Address| NodeName> [<OADId>]\t\t\t\n"};
inline constexpr Message kFilterUsage{106, " <FilterName> \t\t\t\n"};

}  // namespace messages

/// Every message that is not the text of a status, by number.
extern const std::array<Message, 38> kOtherMessages;

}  // namespace zntopo::detail
