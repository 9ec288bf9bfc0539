#pragma once

#include <map>
#include <string>
#include <vector>

namespace zntopo::test {

/// An element of an XML file, for tests that look into one.
struct XmlTree {
  /// Without its prefix.
  std::string name;
  std::map<std::string, std::string> attributes;
  /// The text directly in it.
  std::string text;
  std::vector<XmlTree> children;

  /// The attribute, or an empty text.
  std::string attribute(const std::string& key) const;
  /// The first child of that name; throws std::out_of_range without one.
  const XmlTree& child(const std::string& childName) const;
  /// Calls a function with each element, this one first, and the elements around it.
  template <typename Visitor>
  void walk(const Visitor& visit, std::vector<const XmlTree*> around = {}) const {
    visit(*this, around);
    around.push_back(this);
    for (const XmlTree& each : children) each.walk(visit, around);
  }
};

/// Reads a document; throws std::runtime_error if it is not well-formed.
/// @param schema a file that has to find it valid; of documents without a namespace
XmlTree readXml(const std::string& document, const std::string& schema = "");

}  // namespace zntopo::test
