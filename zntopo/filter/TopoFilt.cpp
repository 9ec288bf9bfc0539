#include "zntopo/filter/TopoFilt.h"

namespace zntopo {

namespace {

struct TypeText {
  const char* text;
  EntityType type;
};

constexpr TypeText kTypeTexts[] = {
    {"Node", E_Node}, {"Interface", E_Interface}, {"Address", E_Address}};

EntityType typeOf(const std::string& text) {
  for (const TypeText& entry : kTypeTexts) {
    if (text == entry.text) return entry.type;
  }
  return E_Unknown;
}

}  // namespace

TopoFilt::TopoFilt(const std::string& name, const std::string& objectType, const std::string& where)
    : FilterName(name), ObjType(typeOf(objectType)), WhereQueryString(where) {}

const std::string& TopoFilt::setWhereQueryString(const std::string& where) {
  return WhereQueryString = where;
}

const std::string& TopoFilt::setFinalWhereClause(const std::string& where) {
  return FinalWhereString = where;
}

}  // namespace zntopo
