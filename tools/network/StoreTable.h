#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// @file
/// The tables of the store as far as the tools fill them, and rows of them.

namespace zntopo::tools {

/// NULL, a number or a text.
using Cell = std::variant<std::monostate, int, float, std::string>;
/// NULL for an empty text.
inline Cell textCell(const std::string& text) { return text.empty() ? Cell() : Cell(text); }

struct ColumnDef {
  enum Type : int { Int, Text, Float };
  enum Role : int {
    Key,
    Value,
    /// A value that only some sources tell. Where a row does not, what is in the store stays.
    Told,
    /// A flag that stays set once it is: what it tells of stays in the store too.
    Sticky,
    /// The time at which the row was made.
    Created,
    /// The time at which it was last changed.
    Changed
  };
  const char* name;
  Type type;
  Role role;
  /// Of texts, in bytes.
  int width;
};

/// A table, as far as the tools fill it.
struct TableDef {
  const char* name;
  std::span<const ColumnDef> columns;
};

/// In an order in which a reader of the counts looks for them.
enum Table : int {
  NwEntity,
  NwNode,
  NwInterface,
  NwVlan,
  NwHsrp,
  NwIfc,
  UserDefVar,
  Address,
  AddressMapping,
  Containment,
  NwInterfaceAsc,
  HsrpAddress,
  NwIfcCtm,
  NwIfcAsc,
  NodeProperty,
  InterfaceProperty,
  NwTopoAuditTrail,
  TableCount
};

namespace columns {

constexpr ColumnDef key(const char* name, int width = 36) {
  return {name, ColumnDef::Text, ColumnDef::Key, width};
}
constexpr ColumnDef intKey(const char* name) { return {name, ColumnDef::Int, ColumnDef::Key, 0}; }
constexpr ColumnDef text(const char* name, int width) {
  return {name, ColumnDef::Text, ColumnDef::Value, width};
}
constexpr ColumnDef id(const char* name) { return text(name, 36); }
constexpr ColumnDef number(const char* name) { return {name, ColumnDef::Int, ColumnDef::Value, 0}; }
constexpr ColumnDef real(const char* name) { return {name, ColumnDef::Float, ColumnDef::Value, 0}; }
constexpr ColumnDef told(const char* name) { return {name, ColumnDef::Int, ColumnDef::Told, 0}; }
constexpr ColumnDef toldText(const char* name, int width) {
  return {name, ColumnDef::Text, ColumnDef::Told, width};
}
constexpr ColumnDef sticky(const char* name) {
  return {name, ColumnDef::Int, ColumnDef::Sticky, 0};
}
constexpr ColumnDef created(const char* name) {
  return {name, ColumnDef::Int, ColumnDef::Created, 0};
}
constexpr ColumnDef changed(const char* name) {
  return {name, ColumnDef::Int, ColumnDef::Changed, 0};
}

template <std::size_t First, std::size_t Second>
consteval std::array<ColumnDef, First + Second> join(const std::array<ColumnDef, First>& first,
                                                     const std::array<ColumnDef, Second>& second) {
  std::array<ColumnDef, First + Second> result{};
  for (std::size_t i = 0; i < First; ++i) result[i] = first[i];
  for (std::size_t i = 0; i < Second; ++i) result[First + i] = second[i];
  return result;
}

/// What the entity table begins with, and the tables of nodes and interfaces too.
inline constexpr std::array kEntity = {key("ObjId"),
                                       text("EntityName", 255),
                                       number("IPLevel"),
                                       toldText("QRMObjId", 36),
                                       text("Description", 2000),
                                       number("EntityType"),
                                       text("ZoneNumber", 64),
                                       told("V6CompoundStatus"),
                                       told("V6GlobalStatus"),
                                       told("V6SiteStatus"),
                                       told("StatusChangeTimeUTC"),
                                       created("CreateTimeUTC"),
                                       changed("ChangeTimeUTC"),
                                       number("hasDynamicProperty"),
                                       sticky("hasAddress"),
                                       told("Status")};
inline constexpr auto kNwEntity =
    join(kEntity, std::array{toldText("EntityOID", 64), number("RouteDistinguisher")});
inline constexpr auto kNwNode = join(kEntity, std::array{told("isOSPF"),
                                                         told("isBGP"),
                                                         told("isHSRP"),
                                                         told("isMultiHome"),
                                                         number("isLanSwitch"),
                                                         number("isManageable"),
                                                         number("isIPV4Router"),
                                                         number("isIPV6Router"),
                                                         text("SysOID", 64),
                                                         text("V4ManagementAddress", 15),
                                                         text("PubV4ManagementAdd", 15),
                                                         number("V4ManagementAddressRD"),
                                                         told("L2DomainId"),
                                                         told("SNMPState"),
                                                         told("isCDP"),
                                                         told("isSTP"),
                                                         told("isWireless"),
                                                         toldText("sysContact", 128),
                                                         toldText("sysLocation", 128),
                                                         told("isSNMPSupported")});
inline constexpr auto kNwInterface =
    join(kEntity, std::array{id("NodeObjID"),         text("PhysicalAddress", 256),
                             text("VendorCard", 3),   text("VendorPort", 3),
                             text("Port", 3),         number("IfIndex"),
                             text("IfName", 255),     told("IfType"),
                             text("IfAlias", 255),    text("nodeName", 255),
                             sticky("isL2Connected"), told("isHSRP"),
                             told("L2DomainId"),      told("IfOperStatus"),
                             told("IfAdminState"),    told("isOSPF"),
                             told("isBGP"),           told("isMeshInterface"),
                             told("isCDP"),           told("isSTP"),
                             told("isWireless"),      number("routeDistinguisher"),
                             number("IfSpeed"),       number("isAccessPort"),
                             told("AscChangeTime")});
inline constexpr std::array kIdAlone = {key("ObjId")};
inline constexpr std::array kNwIfc = {key("ObjId"),
                                      text("EntityName", 129),
                                      text("Description", 259),
                                      text("ZoneNumber", 64),
                                      told("StatusChangeTimeUTC"),
                                      created("CreateTimeUTC"),
                                      changed("ChangeTimeUTC"),
                                      number("hasDynamicProperty"),
                                      number("RouteDistinguisher"),
                                      told("Status"),
                                      number("IFCType"),
                                      number("isOrdered"),
                                      number("AppsID")};
inline constexpr std::array kUserDefVar = {key("ObjID"),         key("VarName", 128),
                                           number("VarValType"), text("StrVal", 2000),
                                           number("IntVal"),     real("FloatVal")};
inline constexpr std::array kAddress = {key("AddressId"),
                                        id("ObjId"),
                                        number("AddressType"),
                                        number("IPLevel"),
                                        number("isSubnet"),
                                        id("SubnetObjId"),
                                        text("V6Address", 41),
                                        text("V6AddressBS", 129),
                                        number("V6ScopeType"),
                                        number("PrefixLength"),
                                        text("V4Address", 16),
                                        id("NodeObjId"),
                                        toldText("DNSName", 256),
                                        number("RouteDistinguisher"),
                                        toldText("AddressQRMId", 36),
                                        told("PingStatus"),
                                        told("V6AddressType"),
                                        told("V6AddressNtmState"),
                                        told("V6AddressStatus"),
                                        told("LastPingTimeUTC"),
                                        told("LastPingStateUpdTimeUTC"),
                                        text("PubV4Address", 16),
                                        told("PingState")};
inline constexpr std::array kAddressMapping = {key("LeftAddressId"), key("RightAddressId"),
                                               intKey("AddressMappingType")};
inline constexpr std::array kContainment = {key("ContainerObjID"), key("ContainedObjID"),
                                            number("ContainerType"), number("ContainedType"),
                                            id("ContainedNodeObjId")};
inline constexpr std::array kNwInterfaceAsc = {key("leftobjid"), key("rightobjid"),
                                               id("leftifnodeobjid"), id("rightifnodeobjid"),
                                               intKey("reltype")};
inline constexpr std::array kHsrpAddress = {key("AddressID"),
                                            id("AddressIfObjID"),
                                            key("ObjID"),
                                            number("state"),
                                            number("HSRPPriority"),
                                            number("HSRPNumber"),
                                            text("TrackInterfaceList", 1999),
                                            number("HSRPStateCertainty")};
inline constexpr std::array kNwIfcCtm = {key("ContainerObjId"), key("InterfaceObjId"),
                                         id("NodeObjId"),       number("ContainmentType"),
                                         number("IFCType"),     number("SequenceNumber")};
inline constexpr std::array kNwIfcAsc = {
    key("LeftIFContainerObjID"), key("RightIFContainerObjID"), intKey("RelType"),
    number("LeftIfcType"),       number("RightIfcType"),       number("State"),
    number("StateChangeTime"),   text("Description", 259),     text("ExtraInfo", 259)};
inline constexpr std::array kProperty = {key("ObjID"), key("PropertyName", 128),
                                         text("PropertyValue", 2000)};
/// The table has no key: a row that is there in every column is the same row.
inline constexpr std::array kNwTopoAuditTrail = {
    intKey("ActionTimeUTC"), intKey("ActionType"), key("ObjID"),
    intKey("ActionDetail"),  intKey("ObjectType"), key("ActionInfo", 254)};

}  // namespace columns

/// In the order of the enumeration.
inline constexpr std::array<TableDef, TableCount> kTables = {{
    {"nwentity", columns::kNwEntity},
    {"nwnode", columns::kNwNode},
    {"nwinterface", columns::kNwInterface},
    {"nwvlan", columns::kIdAlone},
    {"nwhsrp", columns::kIdAlone},
    {"nwifc", columns::kNwIfc},
    {"userdefvar", columns::kUserDefVar},
    {"address", columns::kAddress},
    {"addressmapping", columns::kAddressMapping},
    {"containment", columns::kContainment},
    {"NWInterfaceAsc", columns::kNwInterfaceAsc},
    {"hsrpaddress", columns::kHsrpAddress},
    {"nwifcctm", columns::kNwIfcCtm},
    {"nwifcasc", columns::kNwIfcAsc},
    {"nodeproperty", columns::kProperty},
    {"interfaceproperty", columns::kProperty},
    {"nwtopoaudittrail", columns::kNwTopoAuditTrail},
}};

constexpr const TableDef& tableDef(Table table) { return kTables[table]; }

/// A row of any table: a cell for each of its columns.
struct Row {
  explicit Row(Table of) : table(of), cells(tableDef(of).columns.size()) {}
  Table table;
  std::vector<Cell> cells;
};

/// The place of a column in its table; a name that the table does not have does not compile.
template <Table table>
struct ColumnOf {
  consteval ColumnOf(const char* name) {  // NOLINT(google-explicit-constructor)
    while (std::string_view(tableDef(table).columns[index].name) != name) ++index;
  }
  std::size_t index = 0;
};

/// A row of one table, filled by the names of its columns: row["IfIndex"] = 7.
template <Table of>
struct RowOf : Row {
  RowOf() : Row(of) {}
  Cell& operator[](ColumnOf<of> column) { return cells[column.index]; }
};

}  // namespace zntopo::tools
