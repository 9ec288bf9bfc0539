#include "tools/import/GraphmlDocument.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string_view>

#include "tools/import/GraphmlKeys.h"

namespace zntopo::tools::graphml {

namespace {

/// What an element of the file is to the reader.
enum class Part {
  Graphml,
  Key,
  Default,
  Graph,
  Node,
  Edge,
  Port,
  Description,
  Data,
  /// A program's own elements inside data.
  Drawing,
  DrawingLabel,
  Hyperedge,
  Locator,
  /// Passed over with all that is in it.
  Ignored
};

struct Rule {
  Part parent;
  std::string_view element;
  Part part;
};

/// Which elements stand where. What is not here is counted and passed over.
constexpr Rule kRules[] = {
    {Part::Graphml, "key", Part::Key},       {Part::Graphml, "graph", Part::Graph},
    {Part::Graphml, "data", Part::Ignored},  {Part::Graphml, "desc", Part::Ignored},
    {Part::Key, "default", Part::Default},   {Part::Key, "desc", Part::Ignored},
    {Part::Graph, "node", Part::Node},       {Part::Graph, "edge", Part::Edge},
    {Part::Graph, "data", Part::Ignored},    {Part::Graph, "desc", Part::Ignored},
    {Part::Graph, "locator", Part::Locator}, {Part::Graph, "hyperedge", Part::Hyperedge},
    {Part::Node, "data", Part::Data},        {Part::Node, "desc", Part::Description},
    {Part::Node, "port", Part::Port},        {Part::Node, "graph", Part::Graph},
    {Part::Node, "locator", Part::Locator},  {Part::Edge, "data", Part::Data},
    {Part::Edge, "desc", Part::Description}, {Part::Edge, "graph", Part::Graph},
    {Part::Port, "port", Part::Port},        {Part::Port, "data", Part::Ignored},
    {Part::Port, "desc", Part::Ignored},
};

constexpr std::string_view kNamespace = "http://graphml.graphdrawing.org/";
constexpr std::string_view kDrawingNamespace = "http://www.yworks.com/xml/graphml";

const std::string& told(Field field, const Fields& fields) {
  return fields[static_cast<std::size_t>(field)];
}

std::string firstOf(std::initializer_list<std::string> texts) {
  for (const std::string& one : texts) {
    if (!one.empty()) return one;
  }
  return "";
}

/// "Country (12.5, -3.25)", as far as it is told.
std::string placeText(const Fields& fields) {
  const std::string& country = told(Field::Country, fields);
  const std::string& latitude = told(Field::Latitude, fields);
  const std::string& longitude = told(Field::Longitude, fields);
  if (latitude.empty() || longitude.empty()) return country;
  return country + (country.empty() ? "(" : " (") + latitude + ", " + longitude + ")";
}

class Parser : public XmlHandler {
 public:
  Parser(const InputFile& file, NetworkReport& report) : file_(file), report_(report) {}

  Document take() { return std::move(document_); }

  void startElement(const XmlElement& element) override {
    Frame frame{partOf(element), "", ""};
    switch (frame.part) {
      case Part::Key:
        keys_.add(element, file_);
        break;
      case Part::Graph:
        startGraph(element);
        break;
      case Part::Node:
        startNode(element);
        break;
      case Part::Edge:
        startEdge(element);
        break;
      case Part::Port:
        addPort(element);
        break;
      case Part::Data:
        startData(element, frame);
        break;
      case Part::Hyperedge:
        report_.add("hyperedge (a link has two ends)", where(element));
        frame.part = Part::Ignored;
        break;
      case Part::Locator:
        report_.add("locator (the file that it points to is not read)", where(element));
        frame.part = Part::Ignored;
        break;
      default:
        break;
    }
    frames_.push_back(std::move(frame));
  }

  void endElement() override {
    Frame frame = std::move(frames_.back());
    frames_.pop_back();
    switch (frame.part) {
      case Part::Default:
        keys_.setDefault(tidy(frame.text));
        break;
      case Part::Graph:
        areDirected_.pop_back();
        break;
      case Part::Node:
        endNode();
        break;
      case Part::Edge:
        endEdge();
        break;
      case Part::Description:
        keepFirst(items_.back().description, frame.text);
        break;
      case Part::DrawingLabel:
        keepFirst(items_.back().drawnLabel, frame.text);
        break;
      case Part::Data:
        endData(frame);
        break;
      default:
        break;
    }
  }

  void text(std::string_view text) override {
    if (frames_.empty()) return;
    Frame& frame = frames_.back();
    switch (frame.part) {
      case Part::Default:
      case Part::Description:
      case Part::Data:
      case Part::DrawingLabel:
        frame.text += text;
        break;
      default:
        break;
    }
  }

 private:
  /// An element that is open.
  struct Frame {
    Part part;
    /// The text directly inside.
    std::string text;
    /// The key that data name.
    std::string key;
  };
  /// A node or an edge that is open.
  struct Item {
    bool isNode = false;
    /// Where it stands in the document's list.
    std::size_t index = 0;
    XmlPlace place;
    Fields fields{};
    std::string description;
    std::string drawnLabel;
    std::set<std::string> portNames;
  };

  std::string where(const XmlElement& element) const { return element.place.in(file_); }

  Part partOf(const XmlElement& element) {
    if (frames_.empty()) return rootPart(element);
    const Part parent = frames_.back().part;
    if (parent == Part::Ignored) return Part::Ignored;
    if (parent == Part::Data || parent == Part::Drawing || parent == Part::DrawingLabel) {
      return drawingPart(element);
    }
    if (element.name.space == space_) {
      for (const Rule& rule : kRules) {
        if (rule.parent == parent && rule.element == element.name.local) return rule.part;
      }
    }
    report_.add("element \"" + element.name.local + "\"", where(element));
    return Part::Ignored;
  }

  Part rootPart(const XmlElement& element) {
    space_ = element.name.space;
    const bool isKnown = space_.empty() || space_.compare(0, kNamespace.size(), kNamespace) == 0;
    if (element.name.local == "graphml" && isKnown) return Part::Graphml;
    throw ImportError(where(element), "is no GraphML: the root element is \"" +
                                          shortComplaint(element.name.local) + "\"" +
                                          (isKnown ? "" : " of another namespace"));
  }

  static Part drawingPart(const XmlElement& element) {
    const std::string& name = element.name.local;
    const bool isLabel = name == "NodeLabel" || name == "EdgeLabel";
    return isLabel && element.name.space == kDrawingNamespace ? Part::DrawingLabel : Part::Drawing;
  }

  void startGraph(const XmlElement& element) {
    const std::string* const value = element.find("edgedefault");
    if (value && *value != "directed" && *value != "undirected") {
      throw ImportError(where(element),
                        "has an edgedefault that is neither directed nor undirected");
    }
    areDirected_.push_back(value && *value == "directed");
  }

  /// An attribute that is a name.
  std::string nameOf(const XmlElement& element, const std::string& attribute) const {
    const std::string* const value = element.find(attribute);
    if (!value) {
      throw ImportError(where(element), "has an element \"" + element.name.local +
                                            "\" without the attribute " + attribute);
    }
    checkName(where(element) + ": " + element.name.local + " " + attribute, *value);
    return *value;
  }
  std::string optionalName(const XmlElement& element, const std::string& attribute) const {
    const std::string* const value = element.find(attribute);
    return value && !value->empty() ? nameOf(element, attribute) : "";
  }

  void startNode(const XmlElement& element) {
    Node node;
    node.id = nameOf(element, "id");
    node.place = element.place;
    const auto [known, isNew] = document_.nodeIndex.try_emplace(node.id, document_.nodes.size());
    if (!isNew) {
      throw ImportError(where(element),
                        "has the node \"" + node.id + "\" a second time, first at line " +
                            std::to_string(document_.nodes[known->second].place.line));
    }
    if (!items_.empty() && items_.back().isNode) {
      document_.nodes[items_.back().index].hasInnerNodes = true;
    }
    openItem(element, true, document_.nodes.size());
    document_.nodes.push_back(std::move(node));
  }

  void startEdge(const XmlElement& element) {
    Edge edge;
    edge.source = nameOf(element, "source");
    edge.target = nameOf(element, "target");
    edge.sourcePort = optionalName(element, "sourceport");
    edge.targetPort = optionalName(element, "targetport");
    edge.place = element.place;
    edge.isDirected = areDirected_.back();
    if (const std::string* const directed = element.find("directed")) {
      edge.isDirected = isTrue(*directed, element);
    }
    openItem(element, false, document_.edges.size());
    document_.edges.push_back(std::move(edge));
  }

  bool isTrue(const std::string& value, const XmlElement& element) const {
    if (value == "true" || value == "1") return true;
    if (value == "false" || value == "0") return false;
    throw ImportError(where(element), "has an attribute directed that is neither true nor false");
  }

  void openItem(const XmlElement& element, bool isNode, std::size_t index) {
    Item item;
    item.isNode = isNode;
    item.index = index;
    item.place = element.place;
    items_.push_back(std::move(item));
  }

  void addPort(const XmlElement& element) {
    const std::string name = nameOf(element, "name");
    Item& item = items_.back();
    if (!item.portNames.insert(name).second) {
      throw ImportError(where(element), "has the port \"" + name + "\" of a node a second time");
    }
    document_.nodes[item.index].ports.push_back({name, element.place});
  }

  void startData(const XmlElement& element, Frame& frame) {
    const std::string* const key = element.find("key");
    if (!key) throw ImportError(where(element), "has data without the attribute key");
    frame.key = *key;
  }

  void endData(const Frame& frame) {
    Item& item = items_.back();
    const std::string kind = item.isNode ? "node" : "edge";
    const Key* const key = keys_.find(kind, frame.key);
    if (!key) report_.add(kind + " data of a key that is not declared", item.place.in(file_));
    if (key && key->isDrawing) return;
    const std::string value = tidy(frame.text);
    const std::optional<Field> field = key ? key->field : Keys::fieldOf(frame.key);
    if (field) {
      keepFirst(item.fields[static_cast<std::size_t>(*field)], value);
    } else if (key && !value.empty()) {
      report_.add(kind + " attribute \"" + key->name + "\"", item.place.in(file_));
    }
  }

  static void keepFirst(std::string& target, const std::string& value) {
    if (target.empty()) target = tidy(value);
  }

  Item takeItem() {
    Item item = std::move(items_.back());
    items_.pop_back();
    keys_.fillDefaults(item.isNode ? "node" : "edge", item.fields);
    return item;
  }

  void endNode() {
    const Item item = takeItem();
    Node& node = document_.nodes[item.index];
    node.label =
        firstOf({told(Field::Label, item.fields), told(Field::Name, item.fields), item.drawnLabel});
    node.description =
        firstOf({item.description, told(Field::Description, item.fields), placeText(item.fields)});
  }

  void endEdge() {
    const Item item = takeItem();
    document_.edges[item.index].description =
        firstOf({told(Field::Label, item.fields), told(Field::LinkLabel, item.fields),
                 told(Field::Name, item.fields), item.drawnLabel, item.description,
                 told(Field::Description, item.fields)});
  }

  const InputFile& file_;
  NetworkReport& report_;
  Document document_;
  Keys keys_;
  std::string space_;
  std::vector<Frame> frames_;
  std::vector<Item> items_;
  /// What edges are in the open graphs, unless they say themselves.
  std::vector<bool> areDirected_;
};

}  // namespace

Document readDocument(const InputFile& file, NetworkReport& report,
                      const ProgressFunction& progress) {
  Parser parser(file, report);
  readXml(file, parser, {}, progress);
  return parser.take();
}

}  // namespace zntopo::tools::graphml
