#include "tools/export/GraphmlWriter.h"

#include <string_view>

#include "tools/export/NodeLook.h"
#include "tools/export/UniqueNames.h"
#include "tools/export/XmlText.h"

namespace zntopo::tools {

namespace {

constexpr std::string_view kHead =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<graphml xmlns="http://graphml.graphdrawing.org/xmlns">
  <key id="label" for="node" attr.name="label" attr.type="string"/>
  <key id="description" for="node" attr.name="description" attr.type="string"/>
  <key id="kind" for="node" attr.name="kind" attr.type="string"/>
  <key id="status" for="node" attr.name="status" attr.type="string"/>
  <key id="management_address" for="node" attr.name="management_address" attr.type="string"/>
  <key id="link_description" for="edge" attr.name="description" attr.type="string"/>
  <graph id="zntopo" edgedefault="undirected">
)";

class Writer {
 public:
  Writer(const StoredNetwork& network, std::ostream& out)
      : network_(network), model_(network.model), out_(out) {}

  void write() {
    out_ << kHead;
    for (Index i = 0; i < model_.nodes.size(); ++i) writeNode(i);
    for (const LinkModel& link : model_.links) writeEdge(link);
    out_ << "  </graph>\n</graphml>\n";
  }

 private:
  void writeData(const char* key, const std::string& text) {
    if (text.empty()) return;
    out_ << "      <data key=\"" << key << "\">" << xmlText(text) << "</data>\n";
  }

  void writeNode(Index index) {
    const NodeModel& node = model_.nodes[index];
    ids_.push_back(uniqueIds_.take(node.id));
    out_ << "    <node id=\"" << xmlText(ids_.back()) << "\">\n";
    writeData("label", node.name);
    writeData("description", node.description);
    writeData("kind", kindName(kindOf(network_.traits[index])));
    writeData("status", statusName(node));
    if (node.managementAddress) writeData("management_address", node.managementAddress->text());
    UniqueNames ports;
    for (const InterfaceModel& interface : node.interfaces) {
      ports_.push_back(ports.take(interface.name, interface.id));
      out_ << "      <port name=\"" << xmlText(ports_.back()) << "\"/>\n";
    }
    firstPort_.push_back(ports_.size() - node.interfaces.size());
    out_ << "    </node>\n";
  }

  const std::string& port(const EndPoint& end) const {
    return ports_[firstPort_[end.node] + end.interface];
  }

  void writeEdge(const LinkModel& link) {
    out_ << "    <edge source=\"" << xmlText(ids_[link.left.node]) << "\" target=\""
         << xmlText(ids_[link.right.node]) << "\" sourceport=\"" << xmlText(port(link.left))
         << "\" targetport=\"" << xmlText(port(link.right)) << "\"";
    const std::string& description = model_.at(link.left).description;
    // It is the link's only if both ends say the same.
    const bool isOfLink = !description.empty() && description == model_.at(link.right).description;
    if (!isOfLink) {
      out_ << "/>\n";
      return;
    }
    out_ << ">\n";
    writeData("link_description", description);
    out_ << "    </edge>\n";
  }

  const StoredNetwork& network_;
  const NetworkModel& model_;
  std::ostream& out_;
  UniqueNames uniqueIds_;
  std::vector<std::string> ids_;
  /// Of all nodes, one behind the other, and where those of each begin.
  std::vector<std::string> ports_;
  std::vector<std::size_t> firstPort_;
};

}  // namespace

std::string xmlText(const std::string& text) {
  std::string result;
  for (const char c : plainText(text, text.size() * 3)) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        result += c;
    }
  }
  // The two numbers at the end of the plane are no characters of XML.
  for (const char* none : {"\xef\xbf\xbe", "\xef\xbf\xbf"}) {
    for (std::size_t at = result.find(none); at != std::string::npos; at = result.find(none, at)) {
      result.replace(at, 3, "\xef\xbf\xbd");
    }
  }
  return result;
}

void writeGraphml(const StoredNetwork& network, std::ostream& out) { Writer(network, out).write(); }

}  // namespace zntopo::tools
