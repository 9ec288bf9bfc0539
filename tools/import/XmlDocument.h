#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/import/InputFile.h"

/// @file
/// Reading XML that may be hostile, with errors that say where.

namespace zntopo::tools {

/// A place in a file, both numbers from 1: where a tag ends.
struct XmlPlace {
  std::uint64_t line = 0;
  std::uint64_t column = 0;

  /// "file.xml:12:40".
  std::string in(const InputFile& file) const;
};

/// A name with the namespace that its prefix stands for.
struct XmlName {
  std::string space;
  std::string local;
};

struct XmlAttribute {
  XmlName name;
  std::string value;
};

/// A start tag.
struct XmlElement {
  XmlName name;
  std::vector<XmlAttribute> attributes;
  XmlPlace place;

  /// The value of an attribute without a prefix; nullptr if it is not there.
  const std::string* find(std::string_view attribute) const;
};

/// Hears a document, as UTF-8. What it throws ends the reading and comes out of readXml.
class XmlHandler {
 public:
  virtual ~XmlHandler() = default;
  virtual void startElement(const XmlElement& element) = 0;
  virtual void endElement() = 0;
  /// A piece of the text inside the innermost element; one text may come in several pieces.
  virtual void text(std::string_view text) = 0;
};

/// The bounds within which a document is read.
struct XmlLimits {
  int depth = 100;
};

/// Reads a document. Nothing else than the file is looked at, whatever it names: a document
/// type declaration that names a file or declares anything is refused, so there are no entities
/// of the document's own.
///
/// Throws ImportError for what is empty, deeper than the limits, no well-formed XML, in an
/// encoding that is unknown or not the one it says. The progress function hears the part read.
void readXml(const InputFile& file, XmlHandler& handler, const XmlLimits& limits = {},
             const ProgressFunction& progress = {});

}  // namespace zntopo::tools
