#pragma once

#include <string>

/// @file
/// The keys of what an RFC 8345 document names, made of the identifiers in it.

namespace zntopo::tools::rfc8345 {

inline std::string nodeKey(const std::string& network, const std::string& node) {
  return "node\n" + network + "\n" + node;
}
inline std::string interfaceKey(const std::string& network, const std::string& node,
                                const std::string& tp) {
  return "interface\n" + network + "\n" + node + "\n" + tp;
}
inline std::string vlanKey(const std::string& network, int number) {
  return "vlan\n" + network + "\n" + std::to_string(number);
}
/// A subnet that has a name and no prefix, or shares its prefix with others.
inline std::string segmentKey(const std::string& network, const std::string& name) {
  return "segment\n" + network + "\n" + name;
}
/// A group of one of the kinds that zntopo-topology has ("hsrp-group").
inline std::string groupKey(const std::string& kind, const std::string& network,
                            const std::string& id) {
  return kind + "\n" + network + "\n" + id;
}

}  // namespace zntopo::tools::rfc8345
