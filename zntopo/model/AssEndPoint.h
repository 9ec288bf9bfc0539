#pragma once

#include <string>
#include <utility>

#include "zntopo/core/ObjID.h"
#include "zntopo/model/EntityType.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// One end of an association: the name, identifier and kind of an object. A plain value.
class ZNTOPO_EXPORT AssEndPoint {
 public:
  AssEndPoint() = default;
  AssEndPoint(std::string name, const ObjID& id, EntityType type)
      : _name(std::move(name)), _id(id), _type(type) {}

  const ObjID& getObjID() const { return _id; }
  const std::string& getName() const { return _name; }
  EntityType getType() const { return _type; }
  std::string toString() const;

  void setObjID(const ObjID& id) { _id = id; }
  void setObjID(const long& id) { _id = ObjID(id); }
  void setName(const std::string& name) { _name = name; }
  void setType(EntityType type) { _type = type; }

 private:
  std::string _name;
  ObjID _id;
  EntityType _type = E_Unknown;
};

}  // namespace zntopo
