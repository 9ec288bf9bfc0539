#include "zntopo/core/MCLog.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/model/detail/EntityText.h"

namespace zntopo {

namespace {

using Line = detail::Line<ZNEntity>;

std::string addressIDsOf(const ZNEntity& entity) {
  return detail::section(
      "<AddressIDList>\n", entity.getAddresses(),
      [](const ZNRefPtr<ZNAddress>& address) {
        return address.isNull() ? std::string()
                                : ZNTopoXMLTag::formXMLAttribute(
                                      "AddressID", "objID", detail::shown(address->getAddressID()));
      },
      "</AddressIDList>\n");
}

std::string userVarsOf(const ZNEntity& entity) {
  return detail::section("<UserDefVarList>\n", entity.getUserVars(), detail::asXml,
                         "</UserDefVarList>\n");
}

constexpr Line kZone[] = {{"\nDiscovered in Zone:", Line::of<&ZNEntity::getZoneNumber>}};
constexpr Line kOADId[] = {{"\nOADId:", Line::of<&ZNEntity::getRD>}};

constexpr Line kXml[] = {
    {"<ZNEntity>\n"},
    {"ObjID", Line::of<&ZNEntity::getObjID>, "objID"},
    {"QRMObjID", Line::of<&ZNEntity::getQRMObjID>, "objID"},
    {"EntityName", Line::of<&ZNEntity::getName>, "str"},
    {"Description", Line::of<&ZNEntity::getDescription>, "str"},
    {"ZoneNumber", Line::of<&ZNEntity::getZoneNumber>, "str"},
    {"EntityType", Line::of<&ZNEntity::getEntityType>, "int"},
    {"IPLevel", Line::of<&ZNEntity::getIPLevel>, "int"},
    {"OADId", Line::of<&ZNEntity::getRD>, "int"},
    {"V6CompoundStatus", Line::of<&ZNEntity::getV6OverallStatus>, "status", detail::isAtIPv6},
    // The small g stands in this form alone: readers know it so.
    {"V6globalStatus", Line::of<&ZNEntity::getV6GlobalStatus>, "status", detail::isAtIPv6},
    {"V6SiteStatus", Line::of<&ZNEntity::getV6SiteStatus>, "status", detail::isAtIPv6},
    {"StatusChangeTime", Line::of<&ZNEntity::getStatusChangeTime>, "int"},
    {"ChangeTime", Line::of<&ZNEntity::getChangeTime>, "int"},
    {"CreateTime", Line::of<&ZNEntity::getCreateTime>, "int"},
    {"ContainmentParentID",
     [](const ZNEntity& entity) { return detail::shown(entity.getContainmentParent().getObjID()); },
     "objID", detail::hasParent},
    {"", addressIDsOf},
    {"", userVarsOf},
    {"</ZNEntity>\n"},
};

}  // namespace

std::string ZNEntity::toString() const {
  MCLog::log(MC_TRACE_L2, "Entering ZNEntity::toString \n");
  std::string text = detail::entityText(*this, kZone, kOADId);
  MCLog::log(MC_TRACE_L2, "Exiting ZNEntity::toString \n");
  return text;
}

std::string ZNEntity::toXML() const { return detail::rendered(*this, kXml); }

std::string ZNEntity::toShortString() const { return ""; }

}  // namespace zntopo
