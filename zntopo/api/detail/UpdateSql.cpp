#include "zntopo/api/detail/UpdateSql.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <span>

namespace zntopo::detail {

namespace {

constexpr const char* kInterfaceColumns[] = {"IfAdminState", "IfOperStatus"};

/// By ZNEntity::EntityStatusType. Link-local and site-local share a column, and so do the overall
/// status of IPv4 and the overall status.
constexpr const char* kStatusColumns[] = {"V6COMPOUNDSTATUS", "V6SITESTATUS", "V6SITESTATUS",
                                          "V6GLOBALSTATUS",   "STATUS",       "STATUS",
                                          "SNMPState"};
/// The last one is of nodes alone, and no status of an entity.
constexpr std::span<const char* const> kNodeColumns = kStatusColumns;
constexpr std::span<const char* const> kEntityColumns = kNodeColumns.first(6);

/// An empty text for a number that has no column.
const char* columnOf(std::span<const char* const> columns, int number) {
  const bool isKnown = number >= 0 && number < static_cast<int>(columns.size());
  return isKnown ? columns[static_cast<std::size_t>(number)] : "";
}

const std::string& tableOf(const TableSet& tables, EntityType type) {
  switch (type) {
    case E_Node:
      return tables.nwnodeTbl_;
    case E_Interface:
      return tables.nwinterfaceTbl_;
    case E_IfC:
      return tables.nwifcTbl_;
    default:
      return tables.nwentityTbl_;
  }
}

/// As sprintf, into a text of whatever length comes out.
__attribute__((format(printf, 1, 2))) std::string formatted(const char* format, ...) {
  std::va_list values;
  std::va_list again;
  va_start(values, format);
  va_copy(again, values);
  const int length = std::vsnprintf(nullptr, 0, format, values);
  va_end(values);
  std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
  std::vsnprintf(text.data(), text.size() + 1, format, again);
  va_end(again);
  return text;
}

std::string stateUpdate(const std::string& table, const char* column, const ObjID& id, int value) {
  return formatted("update %s set %s = %d where ObjID = '%s' ", table.c_str(), column, value,
                   id.getStrValue().c_str());
}

}  // namespace

std::string hsrpAddressUpdate(const TableSet& tables, const ZNHSRPAddressInfo& info) {
  return formatted(
      " update %s set STATE = %d, HSRPSTATECERTAINTY = %d, HSRPPRIORITY = %d where ADDRESSID = "
      "'%s'",
      tables.hsrpaddressTbl_.c_str(), info.getHSRPState(), info.getHSRPStateCertainty(),
      info.getHSRPPriority(), info.getAddressID().getStrValue().c_str());
}

std::string interfaceStateUpdate(const TableSet& tables, const ObjID& id, int value,
                                 int attributeType) {
  return stateUpdate(tables.nwinterfaceTbl_, columnOf(kInterfaceColumns, attributeType), id, value);
}

std::string pingStateUpdate(const TableSet& tables, const ObjID& id, int value) {
  return formatted(" update %s set PingState = %d where ADDRESSID = '%s'",
                   tables.addressTbl_.c_str(), value, id.getStrValue().c_str());
}

std::string nodeStatusUpdate(const TableSet& tables, const ObjID& id, int status, int statType) {
  return stateUpdate(tables.nwnodeTbl_, columnOf(kNodeColumns, statType), id, status);
}

std::string entityStatusUpdate(const TableSet& tables, const ObjID& id, int status,
                               int statusChangeTimeUTC, ZNEntity::EntityStatusType statType,
                               EntityType entType) {
  return formatted("update %s set %s = %d,  STATUSCHANGETIMEUTC = %d where ObjID = '%s' ",
                   tableOf(tables, entType).c_str(), columnOf(kEntityColumns, statType), status,
                   statusChangeTimeUTC, id.getStrValue().c_str());
}

std::string l2DomainUpdate(const std::string& table, const ObjID& id, int domain) {
  return formatted(" update %s set L2DomainId = %d where objid = '%s'", table.c_str(), domain,
                   id.getStrValue().c_str());
}

std::string ifcAssociationUpdate() {
  return "update nwifcasc set state = ?, STATECHANGETIME = ?  where LEFTIFCONTAINEROBJID = ? and "
         "RIGHTIFCONTAINEROBJID = ? and RELTYPE = ? ";
}

}  // namespace zntopo::detail
