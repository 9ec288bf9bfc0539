#include "zntopo/api/detail/AttributeFilterSql.h"

#include "zntopo/core/ltos.h"
#include "zntopo/model/IPv6AddrToBin.h"

namespace zntopo::detail {

namespace {

using Filter = ZNTopoFilter;

bool has(const Filter& filter, Filter::Field field) { return !filter.isFieldIgnored(field); }

/// True for a filter with a text of an address and this type of addresses.
bool hasAddressOf(const Filter& filter, ZNAddress::AddressType type) {
  return has(filter, Filter::F_AddressValue) && has(filter, Filter::F_AddressType) &&
         filter.getAddressType() == type;
}

std::string anyCapability(const std::string& table, const std::vector<ZNCapability>& names) {
  std::string terms;
  for (const ZNCapability& name : names) {
    if (!terms.empty()) terms += " OR ";
    terms += table + "." + name.getCapabilityName() + " = 1 ";
  }
  return " ( " + terms + " ) ";
}

/// The conditions on a node's own columns.
std::string nodeTerms(const std::string& table, const Filter& filter) {
  std::string terms;
  if (has(filter, Filter::F_IPLevel)) {
    terms += " and " + table + ".IPLevel = " + ltos(filter.getIPLevel());
  }
  if (has(filter, Filter::F_L2DomainId)) {
    terms += " and " + table + ".L2DomainId = " + ltos(filter.getL2DomainId());
  }
  const std::string& name = filter.getRegexEntityName();
  if (!name.empty()) {
    terms += " and  ( " + table + ".EntityName like '" + name + "' or " + table +
             ".Description like '" + name + "') ";
  }
  return terms;
}

std::string prefixTerm(const Filter& filter) {
  const std::string bits = IPv6AddrToBin(filter.getPrefixAddressStr()).getBinStr();
  return " V6AddressBS like '" + IPv6AddrToBin::getBinStrPrefix(bits, filter.getPrefixLength()) +
         "%'";
}

}  // namespace

std::string nodesByFilterSql(const TableSet& tables, const ZNTopoFilter& filter) {
  const std::string& node = tables.nwnodeTbl_;
  std::string select = " select " + node + ".objid";
  std::string from = " from " + node;
  std::string where = " where entitytype = 1 " + nodeTerms(node, filter);
  if (hasAddressOf(filter, ZNAddress::IPv4) && !filter.getAddressStr().empty()) {
    select = "select a.nodeobjid from ";
    from = tables.nwinterfaceTbl_ + " a, " + tables.addressTbl_ + " b";
    // The conditions so far are lost.
    where = " where b.v4address = '" + filter.getAddressStr() +
            "'  and a.objid = b.objid and b.IPLevel = 4 and b.addresstype = " +
            ltos(filter.getAddressType());
  }
  if (has(filter, Filter::F_OrCapability)) {
    where += " and " + anyCapability(node, filter.getOrCapabilityNames());
  }
  return select + from + where;
}

std::string subnetsByFilterSql(const TableSet& tables, const ZNTopoFilter& filter) {
  std::string terms;
  if (has(filter, Filter::F_IPLevel)) {
    terms += "and a.IPLevel = " + ltos(filter.getIPLevel()) + " ";
  }
  if (has(filter, Filter::F_RegexEntityName)) {
    const std::string& name = filter.getRegexEntityName();
    terms += "and (a.EntityName like '" + name + "' or a.Description like '" + name + "') ";
  }
  if (has(filter, Filter::F_V6ScopeType)) {
    terms += "and b.V6ScopeType = " + ltos(filter.getV6ScopeType()) + " ";
  }
  return "select a.ObjID from " + tables.nwentityTbl_ + "  a, " + tables.addressTbl_ +
         " b where a.EntityType = " + ltos(E_Subnet) + " and a.ObjID = b.ObjID " + terms;
}

std::string entitiesByFilterSql(const TableSet& tables, const ZNTopoFilter& filter) {
  std::string where;
  const auto add = [&where](const std::string& term) {
    where += where.empty() ? term : " and " + term;
  };
  if (has(filter, Filter::F_IPLevel)) add(" nwentity.IPLevel = " + ltos(filter.getIPLevel()));
  if (has(filter, Filter::F_EntityType)) {
    add(" nwentity.EntityType = " + ltos(getEntityTypeAsShort(filter.getEntityType())));
  }
  if (!filter.getRegexEntityName().empty()) {
    add("  (nwentity.EntityName like '" + filter.getRegexEntityName() + "') ");
  }
  return " select " + tables.nwentityTbl_ + ".objid from " + tables.nwentityTbl_ + " where " +
         where;
}

std::string addressesByFilterSql(const TableSet& tables, const ZNTopoFilter& filter) {
  std::string sql = "select AddressId from " + tables.addressTbl_ + " where IsSubnet=0 ";
  const auto add = [&sql](const std::string& term) { sql += " and " + term; };
  if (has(filter, Filter::F_V6ScopeType)) {
    add(" V6ScopeType = " + ltos(filter.getV6ScopeType()) + " ");
  }
  if (has(filter, Filter::F_AddressType)) {
    add(" AddressType = " + ltos(filter.getAddressType()) + " ");
  }
  if (has(filter, Filter::F_PrefixLength) && has(filter, Filter::F_PrefixAddress)) {
    add(prefixTerm(filter));
  }
  if (hasAddressOf(filter, ZNAddress::IPv4))
    add(" V4Address like '" + filter.getAddressStr() + "'");
  if (hasAddressOf(filter, ZNAddress::IPv6))
    add(" V6Address like '" + filter.getAddressStr() + "'");
  if (has(filter, Filter::F_IPLevel)) add(" IPLevel = " + ltos(filter.getIPLevel()));
  return sql;
}

}  // namespace zntopo::detail
