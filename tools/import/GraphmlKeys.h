#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "tools/import/XmlDocument.h"

namespace zntopo::tools::graphml {

/// The attributes of nodes and edges that are read.
enum class Field { Label, Name, LinkLabel, Description, Country, Latitude, Longitude, Count };

/// The texts of one element's attributes; empty for what was not told.
using Fields = std::array<std::string, static_cast<std::size_t>(Field::Count)>;

/// An attribute as a key element declares it.
struct Key {
  /// What people call it ("label"), or its id where it has no name.
  std::string name;
  /// Nothing if nobody reads it.
  std::optional<Field> field;
  /// True for a key whose data are a program's drawing.
  bool isDrawing = false;
};

/// The declared attributes of a file.
class Keys {
 public:
  /// Adds a key, and gives it to setDefault. Throws ImportError for one without an id, or with an
  /// id that another key for the same kind of element has.
  void add(const XmlElement& element, const InputFile& file);
  /// The default of the key that was added last.
  void setDefault(const std::string& text);

  /// The key of an id for "node" or "edge"; nullptr if none is declared.
  const Key* find(const std::string& kind, const std::string& id) const;
  /// Fills what an element does not tell with the defaults of its kind.
  void fillDefaults(const std::string& kind, Fields& fields) const;

  /// The field of an attribute's name, upper or lower case.
  static std::optional<Field> fieldOf(std::string_view name);

 private:
  std::map<std::string, Key> keys_;
  std::map<std::string, Fields> defaults_;
  std::string lastKind_;
  std::optional<Field> lastField_;
};

/// A text with each run of blanks, line ends and control characters as one blank, and none at
/// its ends.
std::string tidy(std::string_view text);

}  // namespace zntopo::tools::graphml
