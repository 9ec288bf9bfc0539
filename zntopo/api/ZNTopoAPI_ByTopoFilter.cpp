// Identifiers and objects by XML filters.

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/core/detail/Failure.h"
#include "zntopo/core/detail/OperationScope.h"

namespace zntopo {

using detail::OperationScope;
using TvXplMsg::MessageList_t;

namespace {

using IDs = std::list<ObjID>;

ZNTopoAPI_Impl::OwnedIDList noIDs() { return std::make_unique<IDs>(); }

// The objects of identifiers; without any, each of these requests says that there are none.

ZNTopoAPI_Impl::OwnedNodeList nodesOf(ZNTopoAPI_Impl& api, const IDs& ids,
                                      ZNTopoAPIStatus& status) {
  std::set<ObjID> notFound;
  return api.getNodesByObjIDList(ZNTopoAPI_Impl::ConvertObjIDListToSet(ids), notFound, status,
                                 false, false, false, ZNEntity::AllProtocol, -1);
}

ZNTopoAPI_Impl::OwnedInterfaceList interfacesOf(ZNTopoAPI_Impl& api, const IDs& ids,
                                                ZNTopoAPIStatus& status) {
  std::set<ObjID> notFound;
  return api.getInterfacesByObjIDList(ZNTopoAPI_Impl::ConvertObjIDListToSet(ids), notFound, status,
                                      false, false);
}

ZNTopoAPI_Impl::OwnedAddressVector addressesOf(ZNTopoAPI_Impl& api, const IDs& ids,
                                               ZNTopoAPIStatus& status) {
  return api.getAddrsByObjIDs(ids, status, false, ZNAddress::IPv4);
}

/// Loads the objects of what a filter selected; after its failure there are none.
template <typename Owned>
Owned loaded(Owned (*load)(ZNTopoAPI_Impl&, const IDs&, ZNTopoAPIStatus&), ZNTopoAPI_Impl& api,
             const ZNTopoAPI_Impl::OwnedIDList& ids, ZNTopoAPIStatus& status) {
  return status.isOK() ? load(api, *ids, status) : std::make_unique<typename Owned::element_type>();
}

/// Complains if a filter is known to select something else.
void expectKind(const TopoFiltHandler& filters, const std::string& name, EntityType expected,
                ZNTopoAPIStatus& status) {
  EntityType type = expected;
  if (filters.getFilterObjType(name, type) != 0 || type == expected) return;
  // That of an address has no text, but the expectation has one.
  const std::string text = expected == E_Address ? "Address" : getEntityTypeAsString(expected);
  detail::setFailure(status, ZN_API_XML_FILTER_OBJECT_TYPE_MISMATCH_ERROR,
                     "The filter definition has object type: " + getEntityTypeAsString(type) +
                         " vs expected type : " + text + " ");
}

}  // namespace

// ---- identifiers ------------------------------------------------------------------------------

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getObjIDsByTopoFilter(const std::string& aFilter,
                                                                  ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getObjIDsByTopoFilter");
  MessageList_t messages;
  OwnedIDList ids = m_FiltHandler.ExecFilter(messages, aFilter, theStatus);
  if (!theStatus.isOK()) addErrorListMessage(messages, theStatus);
  return ids;
}

// None of these looks at what kind of objects the filter selects.

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getNodeIDsByTopoFilter(const std::string& aFilter,
                                                                   ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getNodeIDsByTopoFilter");
  return getObjIDsByTopoFilter(aFilter, theStatus);
}

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getInterfaceIDsByTopoFilter(
    const std::string& aFilter, ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getInterfaceIDsByTopoFilter");
  return getObjIDsByTopoFilter(aFilter, theStatus);
}

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getAddresseIDsByTopoFilter(const std::string& aFilter,
                                                                       ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getAddresseIDsByTopoFilter");
  return getObjIDsByTopoFilter(aFilter, theStatus);
}

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::idsOfKind(EntityType theType,
                                                      const std::string& aFilter,
                                                      ZNTopoAPIStatus& theStatus) {
  // The filter runs before its kind is looked at.
  OwnedIDList ids = getObjIDsByTopoFilter(aFilter, theStatus);
  if (theStatus.isOK()) expectKind(m_FiltHandler, aFilter, theType, theStatus);
  return ids;
}

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::idsOfDocument(const std::string& aXmlString,
                                                          const std::string& aFilter,
                                                          ZNTopoAPIStatus& theStatus) {
  // A document that is taken leaves the status as it is.
  theStatus.reset();
  if (ParseXmlString(aXmlString, theStatus) != ZN_API_SUCCESS) return noIDs();
  return getObjIDsByTopoFilter(aFilter, theStatus);
}

// ---- objects ----------------------------------------------------------------------------------

ZNTopoAPI_Impl::OwnedNodeList ZNTopoAPI_Impl::getNodesByTopoFilter(const std::string& aFilter,
                                                                   ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getNodesByTopoFilter");
  theStatus.reset();
  // Interfaces and addresses leave this to the requests for the objects.
  if (!validate(theStatus)) return std::make_unique<OwnedNodeList::element_type>();
  return loaded(nodesOf, *this, idsOfKind(E_Node, aFilter, theStatus), theStatus);
}

ZNTopoAPI_Impl::OwnedInterfaceList ZNTopoAPI_Impl::getInterfacesByTopoFilter(
    const std::string& aFilter, ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getInterfacesByTopoFilter");
  return loaded(interfacesOf, *this, idsOfKind(E_Interface, aFilter, theStatus), theStatus);
}

// The identifiers are those of the owners, and none of them is that of an address.
ZNTopoAPI_Impl::OwnedAddressVector ZNTopoAPI_Impl::getAddressesByTopoFilter(
    const std::string& aFilter, ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getAddressesByTopoFilter");
  return loaded(addressesOf, *this, idsOfKind(E_Address, aFilter, theStatus), theStatus);
}

ZNTopoAPI_Impl::OwnedNodeList ZNTopoAPI_Impl::ParseAndGetNodesByTopoFilter(
    const std::string& aXmlString, const std::string& aFilter, ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("ParseAndGetNodesByTopoFilter");
  return loaded(nodesOf, *this, idsOfDocument(aXmlString, aFilter, theStatus), theStatus);
}

ZNTopoAPI_Impl::OwnedInterfaceList ZNTopoAPI_Impl::ParseAndGetInterfacesByTopoFilter(
    const std::string& aXmlString, const std::string& aFilter, ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("ParseAndGetInterfacesByTopoFilter");
  return loaded(interfacesOf, *this, idsOfDocument(aXmlString, aFilter, theStatus), theStatus);
}

ZNTopoAPI_Impl::OwnedAddressVector ZNTopoAPI_Impl::ParseAndGetAddressesByTopoFilter(
    const std::string& aXmlString, const std::string& aFilter, ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("ParseAndGetAddressesByTopoFilter");
  return loaded(addressesOf, *this, idsOfDocument(aXmlString, aFilter, theStatus), theStatus);
}

// ---- addresses by their own identifiers -------------------------------------------------------

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getAddressIDsOfTopoFilter(const std::string& aFilter,
                                                                      ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getAddressIDsOfTopoFilter");
  theStatus.reset();
  if (validate(theStatus)) expectKind(m_FiltHandler, aFilter, E_Address, theStatus);
  if (!theStatus.isOK()) return noIDs();
  MessageList_t messages;
  OwnedIDList ids = m_FiltHandler.ExecAddressFilter(messages, aFilter, theStatus);
  if (!theStatus.isOK()) addErrorListMessage(messages, theStatus);
  // A join may give an address more than once.
  const ObjIDSet distinct = ConvertObjIDListToSet(*ids);
  ids->assign(distinct.begin(), distinct.end());
  return ids;
}

ZNTopoAPI_Impl::OwnedAddressVector ZNTopoAPI_Impl::getAddressesOfTopoFilter(
    const std::string& aFilter, ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getAddressesOfTopoFilter");
  const OwnedIDList ids = getAddressIDsOfTopoFilter(aFilter, theStatus);
  if (!theStatus.isOK() || ids->empty())
    return std::make_unique<OwnedAddressVector::element_type>();
  return addressesOf(*this, *ids, theStatus);
}

}  // namespace zntopo
