// Attribute filters.

#include "tests/faults/QuestionRows.h"

namespace zntopo::test {
namespace {

// A request for no node follows the filter's failure.
const std::vector<Ending> kNodeObjects = {{"select TopologyReady", ZN_API_DB_NOT_READY},
                                          {"select nwnode.objid", ZN_API_EMPTY_OBJID_LIST}};

ZNTopoFilter named(const std::string& pattern) {
  ZNTopoFilter filter;
  filter.setRegexEntityName(pattern);
  return filter;
}
ZNTopoFilter withAddress(const std::string& address) {
  ZNTopoFilter filter;
  filter.setAddressType(ZNAddress::IPv4);
  filter.setAddressStr(address);
  return filter;
}

}  // namespace

std::vector<Question> filterQuestions() {
  return {
      {"getNodeIDsByFilter",
       [](OpenImpl& impl, Status& status) { return impl.getNodeIDsByFilter({}, status)->size(); },
       kGated},
      {"getNodeIDsByFilter, by an address",
       [](OpenImpl& impl, Status& status) {
         return impl.getNodeIDsByFilter(withAddress("10.1.1.2"), status)->size();
       },
       kGated},
      {"getNodesByFilter",
       [](OpenImpl& impl, Status& status) { return impl.getNodesByFilter({}, status)->size(); },
       kNodeObjects},
      {"getSubnetIDsByFilter",
       [](OpenImpl& impl, Status& status) {
         return impl.getSubnetIDsByFilter({}, status)->size();
       }},
      {"getEntityIDsByFilter",
       [](OpenImpl& impl, Status& status) {
         return impl.getEntityIDsByFilter(named("vlan%"), status)->size();
       }},
      {"getAddressIDsByFilter",
       [](OpenImpl& impl, Status& status) {
         return impl.getAddressIDsByFilter({}, status)->size();
       },
       kGated},
  };
}

}  // namespace zntopo::test
