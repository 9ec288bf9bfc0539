#include "zntopo/api/detail/GroupRows.h"

#include "zntopo/api/detail/Grouping.h"
#include "zntopo/api/detail/RowValues.h"

namespace zntopo::detail {

ZNRefPtr<ZNIfcAssocInfo> ifcAssociationFromRow(const Row& row) {
  return ZNRefPtr<ZNIfcAssocInfo>(new ZNIfcAssocInfo(
      ObjID(row.text(IFCA_Left)), ObjID(row.text(IFCA_Right)), row.integer(IFCA_RelType),
      row.integer(IFCA_LeftType), row.integer(IFCA_RightType), row.integer(IFCA_State),
      row.integer(IFCA_StateChangeTime), row.text(IFCA_Description), row.text(IFCA_ExtraInfo)));
}

void addHSRPInfo(const Row& row, ZNTopoAPI_Impl::OwnedHSRPInfoMap::element_type& map) {
  if (auto* const members = groupOf(map, ObjID(row.text(H_Group)))) {
    members->emplace_back(row.integer(H_Number), ObjID(row.text(H_Interface)),
                          ObjID(row.text(H_Address)), row.integer(H_Priority),
                          ZNHSRPAddressInfo::getHSRPStateFromInt(row.integer(H_State)),
                          presentText(row, H_TrackList), presentInt(row, H_Certainty));
  }
}

}  // namespace zntopo::detail
