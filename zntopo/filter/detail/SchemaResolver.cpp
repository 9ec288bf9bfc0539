#include "zntopo/filter/detail/SchemaResolver.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>

#include "zntopo/platform/tvxpl/TvXplStr.h"

namespace zntopo::detail {

namespace {

namespace xml = xercesc;
using TvXplStr::narrowed;

/// An entity that is not there.
class NothingToRead : public xml::InputSource {
 public:
  explicit NothingToRead(const XMLCh* name) : InputSource(name) {
    setIssueFatalErrorIfNotFound(false);
  }
  xml::BinInputStream* makeStream() const override { return nullptr; }
};

}  // namespace

SchemaLocation SchemaLocation::of(const std::string& text) {
  const std::size_t blank = text.find(' ');
  if (blank == std::string::npos || blank == 0 || blank + 1 == text.size()) return {};
  return {text.substr(0, blank), text.substr(blank + 1)};
}

bool SchemaResolver::isTheSchema(const xml::XMLResourceIdentifier& entity) const {
  return entity.getResourceIdentifierType() == xml::XMLResourceIdentifier::SchemaGrammar &&
         narrowed(entity.getNameSpace()) == location_.space &&
         blanksOf(narrowed(entity.getSystemId())) == blanksOf(location_.uri);
}

xml::InputSource* SchemaResolver::resolveEntity(xml::XMLResourceIdentifier* entity) {
  if (!isTheSchema(*entity)) return new NothingToRead(entity->getSystemId());
  const std::string& bytes = schema_.bytes();
  return new xml::MemBufInputSource(reinterpret_cast<const XMLByte*>(bytes.data()), bytes.size(),
                                    TvXplStr::widen(schema_.name()).c_str());
}

}  // namespace zntopo::detail
