#pragma once

#include <string>

#include "zntopo/model/TopoDBType.h"

namespace zntopo {

/// The names of the store's tables in one of its two table sets: sixteen tables stand twice, the
/// second time with the ending "_update"; "state" and "nwtopoaudittrail" belong to both sets.
///
/// A plain value that never changes after its construction.
struct TableSet {
  /// Any type but WorkingDB gives the names of ActiveDB.
  explicit TableSet(TopoDBType type = ActiveDB);

  std::string nwentityTbl_;
  std::string nwnodeTbl_;
  std::string nwinterfaceTbl_;
  std::string nwvlanTbl_;
  std::string nwifcTbl_;
  std::string nwifcctmTbl_;
  std::string nwifcascTbl_;
  std::string nwhsrpTbl_;
  std::string nwinterfaceassociationTbl_;
  std::string containmentTbl_;
  std::string addressTbl_;
  std::string interfacepropertyTbl_;
  std::string nodepropertyTbl_;
  std::string addressmappingTbl_;
  std::string userdefvarTbl_;
  std::string hsrpaddressTbl_;
  std::string stateTbl_;
  std::string nwtopoaudittrailTbl_;
};

}  // namespace zntopo
