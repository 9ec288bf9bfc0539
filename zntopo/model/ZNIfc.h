#pragma once

#include <list>
#include <memory>
#include <string>

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/model/ZNIfcAssocInfo.h"
#include "zntopo/model/ZNIfcInfo.h"

namespace zntopo {

/// An interface container: a named set of interfaces across nodes, arranged by node, and its
/// relations to other containers: a row of nwifc, with those of nwifcctm and nwifcasc. What its
/// numbers mean is the applications'. The lists have no lock: they are filled before the object is
/// shared.
class ZNTOPO_EXPORT ZNIfc : public ZNEntity {
 public:
  ZNIfc();
  explicit ZNIfc(const ZNEntity& theEnt);
  ZNIfc(const ZNEntity& theEnt, const std::list<ZNIfcInfo>& theInfoList);
  ZNIfc(const ZNEntity& theEnt, const std::list<ZNIfcInfo>& theInfoList, int type, int appsId,
        bool isOrdered, bool cleanUpIfEmpty);
  ZNIfc(const ZNEntity& theEnt, const std::list<ZNIfcInfo>& theInfoList,
        const std::list<ZNRefPtr<ZNIfcAssocInfo>>& assocList, int type, int appsId, bool isOrdered,
        bool cleanUpIfEmpty);
  ZNIfc(const ZNIfc& other) = default;
  ZNIfc& operator=(const ZNIfc& other) = default;
  ~ZNIfc() override;

  std::string toString() const override;
  /// The banner of toString() and nothing else: containers have no XML form.
  std::string toXML() const override;

  int getIfcType() const { return _znIfcType; }
  void setIfcType(int type) { _znIfcType = type; }
  int getAppsId() const { return _znAppsId; }
  void setAppsId(int appsId) { _znAppsId = appsId; }
  bool isOrdered() const { return _znIsOrdered; }
  void setOrder(bool ordered) { _znIsOrdered = ordered; }
  bool willCleanUpIfEmpty() const { return _znCleanUpIfEmpty; }
  void setCleanUpIfEmpty(bool cleanUp) { _znCleanUpIfEmpty = cleanUp; }

  const std::list<ZNIfcInfo>& getAllIfcInfos() const { return _znIfcInfoList; }
  void setIfcInfoList(const std::list<ZNIfcInfo>& list) { _znIfcInfoList = list; }
  void addIfcInfo(const ZNIfcInfo& info) { _znIfcInfoList.push_back(info); }
  const std::list<ZNRefPtr<ZNIfcAssocInfo>>& getAllIfcAssocInfos() const {
    return _znIfcAssocInfoRefPtrList;
  }
  void setIfcAssocInfoList(const std::list<ZNRefPtr<ZNIfcAssocInfo>>& list) {
    _znIfcAssocInfoRefPtrList = list;
  }
  void addIfcAssocInfo(const ZNRefPtr<ZNIfcAssocInfo>& info) {
    _znIfcAssocInfoRefPtrList.push_back(info);
  }

  /// The part of a node; for an unknown node an empty one that lives forever.
  const ZNIfcInfo& getIfcInfoByNodeObjID(const ObjID& id) const;
  /// All members by ascending sequence number, whether the container is ordered or not.
  std::unique_ptr<std::list<ZNIfcIFInfo>> getAllIfcIFInfosByOrder() const;
  /// setOverallStatus() at the current time.
  ZNTopoAPIStatus setStatus(int status, bool updateDB);
  using ZNEntity::setStatus;

 private:
  int _znIfcType = 0;
  int _znAppsId = 0;
  bool _znIsOrdered = false;
  bool _znCleanUpIfEmpty = false;
  std::list<ZNIfcInfo> _znIfcInfoList;
  std::list<ZNRefPtr<ZNIfcAssocInfo>> _znIfcAssocInfoRefPtrList;
};

}  // namespace zntopo
