#include "tests/filterlanguage/GeneratedNetwork.h"

#include <stdexcept>

#include "tools/generate/GenerateCampus.h"
#include "zntopo/store/SchemaScript.h"

namespace zntopo::test {

namespace {

tools::CampusPlan plan() {
  tools::CampusPlan result;
  result.nodes = 60;
  result.interfaces = 1000;
  result.sites = 2;
  result.userVariableShare = 0.1;
  result.brokenGroupShare = 0.2;
  return result;
}

/// What happens to the network. Numbers in identifiers are spread evenly, so that each condition
/// takes some objects of every role.
constexpr const char* kEvents[] = {
    "update nwnode set SNMPState = 0",
    "update nwnode set SNMPState = 1 where ObjId like '%3'",
    "update nwnode set SNMPState = 2 where ObjId like '%7'",
    "update nwnode set SNMPState = 3 where ObjId like '%b'",
    "update nwnode set SNMPState = null where ObjId like '%d'",
    "update nwnode set Status = 5 where ObjId like '%1'",
    "update nwnode set Status = 6 where ObjId like '%2'",
    "update nwnode set Status = null where ObjId like '%4'",
    "update nwnode set isManageable = 0 where ObjId like '%5'",
    "update nwnode set isManageable = null where ObjId like '%6'",
    "update nwnode set isSNMPSupported = null where ObjId like '%8'",
    "update nwnode set isWireless = 1 where ObjId like '%9'",
    "update nwnode set isLanSwitch = null where ObjId like '%a'",
    "update nwnode set isLanSwitch = 1 where isIPV4Router = 1 and ObjId like '%c'",
    "update nwnode set isIPV4Router = null where ObjId like '%e'",
    "update nwnode set sysLocation = null where ObjId like '%0'",
    "update nwnode set sysLocation = '' where ObjId like '%f'",
    "update nwnode set CreateTimeUTC = 2000 where ObjId like '%a'",
    "update nwnode set CreateTimeUTC = null where ObjId like '%b'",
    "update state set PrevDiscoEndTime = 1900",
    "update nwnode set CreateTimeUTC = 1800 where CreateTimeUTC <> 2000",
    "update nwinterface set IfAdminState = 1, IfOperStatus = 1",
    "update nwinterface set IfOperStatus = 2 where ObjId like '%0'",
    "update nwinterface set IfOperStatus = 7 where ObjId like '%1'",
    "update nwinterface set IfOperStatus = 6 where ObjId like '%2'",
    "update nwinterface set IfOperStatus = null where ObjId like '%3'",
    "update nwinterface set IfAdminState = 2 where ObjId like '%4' or ObjId like '%00'",
    "update nwinterface set IfAdminState = null where ObjId like '%10'",
    "update nwinterface set isL2Connected = null where ObjId like '%5'",
    "update address set PingState = 0",
    "update address set PingState = 1 where AddressId like '%c4'",
    "update address set PingState = 2 where AddressId like '%a1'",
    "update address set PingState = 3 where AddressId like '%2b'",
    "update address set PingState = null where AddressId like '%9'",
    "update address set isSubnet = null where isSubnet = 0 and AddressId like '%1'",
    "delete from address where AddressType = 1 and NodeObjId in (select ObjId from nwnode where "
    "isIPV4Router = 0 and ObjId like '%6')",
    "update nwnode set PubV4ManagementAdd = null, V4ManagementAddress = null where ObjId like '%6'",
    "update address set PubV4Address = '172.31.255.1' where PubV4Address is not null and AddressId "
    "like '%d'",
    "update address set PubV4Address = '172.32.0.1' where PubV4Address is not null and AddressId "
    "like '%e'",
    "update address set PubV4Address = '192.168.7.7' where PubV4Address is not null and AddressId "
    "like '%f'",
    "delete from NWInterfaceAsc where leftifnodeobjid like '%7' or rightifnodeobjid like '%7'",
    "delete from containment where ContainedObjID like '%8' and ContainerType = 4",
};

void fill(const std::string& store) {
  TvXplMsg::MessageList_t messages;
  {
    const TvDbil::DbSource_t source(messages, store);
    TvDbil::DbConnection_t connection(messages, &source);
    if (createSchema(messages, connection) != TvDbil::DBIL_SUCCESS) {
      throw std::runtime_error(messages.Format(TvXplMsg::fRecurse_k));
    }
    tools::generateCampus(connection, plan());
  }
  for (const char* event : kEvents) executeOn(store, event);
}

}  // namespace

const StoreSeed& generatedNetwork() {
  static const auto* const seed = [] {
    std::string all;
    for (const char* event : kEvents) all += event;
    return new StoreSeed{"zntopo_filters_" + std::to_string(std::hash<std::string>()(all)), fill};
  }();
  return *seed;
}

}  // namespace zntopo::test
