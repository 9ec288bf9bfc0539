#pragma once

#include <string>

#include "zntopo/model/VarValue.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// One dynamic property of an object: a name and a tagged value. A plain value.
class ZNTOPO_EXPORT UserDefVar {
 public:
  UserDefVar() = default;
  UserDefVar(const std::string& name, const VarValue& value) : _name(name), _val(value) {}

  void setName(const std::string& name) { _name = name; }
  void setValue(const VarValue& value) { _val = value; }
  const std::string& getName() const { return _name; }
  const VarValue& getValue() const { return _val; }
  std::string toString() const;
  /// An attribute named by the variable. A boolean is "true" or "false" of the type "int"; octets
  /// give an empty text.
  std::string toXML() const;

 private:
  std::string _name;
  VarValue _val;
};

}  // namespace zntopo
