#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/Scratch.h"
#include "tests/tools/import/ReadNetwork.h"
#include "tools/import/Rfc8345Reader.h"

/// @file
/// Texts of RFC 8345 documents, put together from their parts, and what the reader makes of them.

namespace zntopo::test {

/// A document around the text of its networks.
inline std::string document(const std::string& networks) {
  return R"({"ietf-network:networks": {"network": [)" + networks + "]}}";
}

inline std::string network(const std::string& id, const std::string& type, const std::string& nodes,
                           const std::string& links = "") {
  const std::string types = type.empty() ? "" : "\"" + type + "\": {}";
  return R"({"network-id": ")" + id + R"(", "network-types": {)" + types + R"(}, "node": [)" +
         nodes + R"(], "ietf-network-topology:link": [)" + links + "]}";
}

inline std::string node(const std::string& id, const std::string& rest = "") {
  return R"({"node-id": ")" + id + "\"" + (rest.empty() ? "" : ", ") + rest + "}";
}

inline std::string on(const std::string& network, const std::string& node) {
  return R"("supporting-node": [{"network-ref": ")" + network + R"(", "node-ref": ")" + node +
         R"("}])";
}

inline std::string tps(const std::string& list) {
  return R"("ietf-network-topology:termination-point": [)" + list + "]";
}

inline std::string tp(const std::string& id, const std::string& rest = "") {
  return R"({"tp-id": ")" + id + "\"" + (rest.empty() ? "" : ", ") + rest + "}";
}

inline std::string tpOn(const std::string& network, const std::string& node,
                        const std::string& tp) {
  return R"("supporting-termination-point": [{"network-ref": ")" + network + R"(", "node-ref": ")" +
         node + R"(", "tp-ref": ")" + tp + R"("}])";
}

inline std::string addresses(const std::string& list) {
  return R"("ietf-l3-unicast-topology:l3-termination-point-attributes": {"ip-address": [)" + list +
         "]}";
}

inline std::string link(const std::string& node1, const std::string& tp1, const std::string& node2,
                        const std::string& tp2) {
  return R"({"link-id": ")" + node1 + tp1 + node2 + tp2 + R"(", "source": {"source-node": ")" +
         node1 + R"(", "source-tp": ")" + tp1 + R"("}, "destination": {"dest-node": ")" + node2 +
         R"(", "dest-tp": ")" + tp2 + R"("}})";
}

inline constexpr const char* kL2 = "ietf-l2-topology:l2-topology";
inline constexpr const char* kL3 = "ietf-l3-unicast-topology:l3-unicast-topology";

/// A document as the reader understood it.
struct Rfc8345Read : ReadNetwork {
  explicit Rfc8345Read(const std::string& content) {
    const TempFile file(content);
    model = tools::readRfc8345(tools::loadInputFile(file.path()), report);
  }

  const tools::NodeModel& node(const std::string& name) const {
    return *std::find_if(model.nodes.begin(), model.nodes.end(),
                         [&](const tools::NodeModel& one) { return one.name == name; });
  }
  std::vector<std::string> interfaceNames(const std::string& nodeName) const {
    std::vector<std::string> names;
    for (const auto& one : node(nodeName).interfaces) names.push_back(one.name);
    return names;
  }
};
/// The complaint about a content, without the file's name.
inline std::string complaint(const std::string& content) {
  const TempFile file(content);
  tools::NetworkReport report;
  try {
    tools::readRfc8345(tools::loadInputFile(file.path()), report);
    return "";
  } catch (const tools::ImportError& error) {
    return std::string(error.what()).substr(file.path().size() + 2);
  }
}

}  // namespace zntopo::test
