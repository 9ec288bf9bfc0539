#pragma once

#include <string>
#include <xercesc/util/XMLEntityResolver.hpp>

#include "zntopo/filter/detail/XmlDocument.h"

namespace zntopo::detail {

/// Where a schema is, from "namespace URI": the URI has "%20" for a blank.
struct SchemaLocation {
  std::string space;
  std::string uri;

  /// Both empty without a blank between two parts.
  static SchemaLocation of(const std::string& text);
};

/// Serves a validation its one grammar, and nothing else, whatever a document or a schema names.
class SchemaResolver : public xercesc::XMLEntityResolver {
 public:
  /// Both outlive the resolver.
  SchemaResolver(const SchemaLocation& location, const XmlDocument& schema)
      : location_(location), schema_(schema) {}

  /// The caller deletes what it gets; it is never null, for that would stand for the entity itself.
  xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier* entity) override;

 private:
  bool isTheSchema(const xercesc::XMLResourceIdentifier& entity) const;

  const SchemaLocation& location_;
  const XmlDocument& schema_;
};

}  // namespace zntopo::detail
