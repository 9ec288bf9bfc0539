#pragma once

#include <array>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "zntopo/core/AtomicField.h"
#include "zntopo/core/ObjID.h"
#include "zntopo/core/OwnedText.h"
#include "zntopo/core/ZNMutex.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/model/AssEndPoint.h"
#include "zntopo/model/EntityType.h"
#include "zntopo/model/ObjectStatus.h"
#include "zntopo/model/TopoDBType.h"
#include "zntopo/model/UserDefVar.h"
#include "zntopo/model/ZNAddress.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

class ZNEntityDB;

/// What every topology object has in common: a row of the table nwentity, a snapshot that keeps
/// the identifiers of its addresses and asks the store for the addresses on demand.
///
/// Shared through ZNRefPtr between threads. Operations lock the object for their own duration
/// (status setters: across the store write and the event), apart from getObjID, getQRMObjID,
/// setQRMObjID and the operations on modification marks. Getters that return references hand out
/// the field: a status may be read through it at any time; a list, a vector or an end must not be
/// read through it while another thread sets the same field. setQRMObjID, setObjID and all the
/// filling setters are for the one who builds the object. The destructor takes no lock.
///
/// The text forms change nothing but what they load on demand; each asks the store for the
/// addresses, and what can't be read is missing in it.
class ZNTOPO_EXPORT ZNEntity {
 public:
  /// Which of the statuses of an object.
  enum EntityStatusType : int {
    IPv6Overall = 0,
    IPv6LinkLocal = 1,
    IPv6SiteLocal = 2,
    IPv6Global = 3,
    IPv4Overall = 4,
    Overall = 5
  };
  /// What was changed in memory and is not in the store.
  enum Field : int {
    F_QRMObjId = 0,
    F_V4OverallStatus = 1,
    F_UDV = 2,
    F_V6GlobalStatus = 3,
    F_V6SiteStatus = 4,
    F_V6OverallStatus = 5
  };
  /// Which protocols an object carries: column IPLevel.
  enum IPLevel : int { AllProtocol = 0, IPv4 = 4, IPv6 = 6 };
  enum AffectedPart : int { Refresh_Status = 0, Refresh_All = 1 };

  /// A null object of the active tables, of kind E_Unknown.
  ZNEntity();
  /// Without parent, user variables and addresses. Times are seconds UTC.
  ZNEntity(const ObjID& id, const std::string& zoneNumber, const ObjID& QRMObjId,
           const std::string& name, const std::string& description, const EntityType& entityType,
           const ObjectStatus& overallStatus, const ObjectStatus& v6CompoundStatus,
           const ObjectStatus& v6GlobalStatus, const ObjectStatus& v6SiteStatus, long createTime,
           long changeTime, long statusChangeTime, int routeDistinguisher, const IPLevel& ipLevel,
           TopoDBType theDBType);
  /// Of the active tables, with route distinguisher 0.
  ZNEntity(ZNEntityDB ent);  // NOLINT(google-explicit-constructor)
  /// The parent, the modification marks and the mutex are not copied.
  ZNEntity(const ZNEntity& other);
  /// Takes the texts, addresses and user variables out of an object that nobody shares; parent,
  /// modification marks and mutex as in a copy.
  ZNEntity(ZNEntity&& other);  // NOLINT(performance-noexcept-move-constructor): makes a mutex
  ZNEntity& operator=(const ZNEntity& other);
  virtual ~ZNEntity();

  /// All of the object in lines of labels and values, for diagnosis.
  virtual std::string toString() const;
  /// The same in elements, for programs that know them: see ZNTopoXMLTag.
  virtual std::string toXML() const;
  /// A row of the dump tool's table. Empty, unless a derived class gives it meaning.
  virtual std::string toShortString() const;

  /// Overwrites the object in place. An empty name, description or zone leaves the old one;
  /// parent and modification marks stay.
  void updateZNEntity(const ObjID& id, const std::string& zoneNumber, const ObjID& QRMObjId,
                      const std::string& name, const std::string& description,
                      const EntityType& entityType, const ObjectStatus& overallStatus,
                      const ObjectStatus& v6CompoundStatus, const ObjectStatus& v6GlobalStatus,
                      const ObjectStatus& v6SiteStatus, long createTime, long changeTime,
                      long statusChangeTime, int routeDistinguisher, const IPLevel& ipLevel,
                      const std::list<ObjID>& addrs, const std::vector<UserDefVar>& varList,
                      TopoDBType theDBType);

  /// The key in the topology store: column ObjId.
  const ObjID& getObjID() const { return _id; }
  /// The identity in the legacy object store: column QRMObjId.
  const ObjID& getQRMObjID() const { return _QRMObjId; }
  std::string getName() const;
  std::string getDescription() const;
  std::string getZoneNumber() const;
  EntityType getEntityType() const;
  /// At level IPv6 the IPv6 overall status, else the IPv4 one.
  const ObjectStatus& getOverallStatus() const;
  const ObjectStatus& getV6OverallStatus() const;
  const ObjectStatus& getV6GlobalStatus() const;
  const ObjectStatus& getV6SiteStatus() const;
  /// IPv4Overall and Overall give getOverallStatus(), and so do, with a log line, the types that
  /// no status stands for.
  const ObjectStatus& getStatus(EntityStatusType type) const;
  int getRD() const;
  IPLevel getIPLevel() const;
  short getIPLevelAsShort() const;
  long getCreateTime() const;
  long getChangeTime() const;
  long getStatusChangeTime() const;
  TopoDBType getDBType() const;
  /// A copy of the first variable of that name, a default one without any.
  UserDefVar getUserDefVarByName(const std::string& name) const;
  const std::vector<UserDefVar>& getUserVars() const;
  std::vector<UserDefVar>& getUserVariables();
  /// Always empty.
  std::vector<UserDefVar> getModifiedUserVars() const;
  /// The container; a null end after a copy, until setPartOf() is called.
  const AssEndPoint& getContainmentParent() const;
  /// Asks the store on every call, on the active tables. Empty or partial after a failure, which
  /// is only logged.
  std::vector<ZNRefPtr<ZNAddress>> getAddresses() const;
  std::unique_ptr<std::vector<ZNRefPtr<ZNAddress>>> getAddressesByType(
      ZNAddress::AddressType type) const;

  void setObjID(const ObjID& id);
  void setName(const std::string& name);
  void setIPLevel(const IPLevel& level);
  void setUserVars(const std::vector<UserDefVar>& vars);
  void setPartOf(const AssEndPoint& parent);
  void setPartOf(AssEndPoint&& parent);
  /// Appends the identifiers of the addresses.
  void setAddresses(const std::vector<ZNRefPtr<ZNAddress>>& addresses);
  /// Marks F_QRMObjId.
  void setQRMObjID(const ObjID& id);

  /// The status setters change the object, and mark it unless updateDB; with updateDB they write
  /// the store and send a status change, whose own failure is not reported. The same status
  /// changes nothing. While the topology is not ready nothing changes (ZN_API_DB_NOT_READY);
  /// after a failed write the object stays changed. A time of 0 or less means now. The table set
  /// is the object's own, dbType is not consulted.
  ZNTopoAPIStatus setOverallStatus(const ObjectStatus& aStat, long changeTimeUTC, bool updateDB,
                                   TopoDBType dbType);
  ZNTopoAPIStatus setIPv4OverallStatus(const ObjectStatus& aStat, long changeTimeUTC, bool updateDB,
                                       TopoDBType dbType);
  ZNTopoAPIStatus setV6OverallStatus(const ObjectStatus& aStat, long changeTimeUTC, bool updateDB);
  ZNTopoAPIStatus setV6SiteStatus(const ObjectStatus& aStat, long changeTimeUTC, bool updateDB);
  ZNTopoAPIStatus setV6GlobalStatus(const ObjectStatus& aStat, long changeTimeUTC, bool updateDB);
  /// In memory only, without a result.
  void setStatus(const ObjectStatus& aStat, long changeTimeUTC, EntityStatusType type);

  bool isStatusModified() const;
  bool isV6OverallStatusModified() const { return _fieldVector[F_V6OverallStatus] != 0; }
  bool isV6SiteStatusModified() const { return _fieldVector[F_V6SiteStatus] != 0; }
  bool isV6GlobalStatusModified() const { return _fieldVector[F_V6GlobalStatus] != 0; }
  bool isV4OverallStatusModified() const { return _fieldVector[F_V4OverallStatus] != 0; }
  bool isQRMObjIDModified() const { return _fieldVector[F_QRMObjId] != 0; }
  bool isUDVModified() const { return _fieldVector[F_UDV] != 0; }
  void MarkFieldToBeUpdated(Field field);
  void clearModifiedData();
  /// F_QRMObjId for a number that is no field.
  static Field getFieldFromInt(int value);

 protected:
  /// A field of the object, read under its lock.
  template <typename T>
  T locked(const T& field) const {
    MutexLockInternal lock(myMutex);
    return field;
  }

  ObjID _id;
  ObjID _QRMObjId;
  OwnedText _name;
  OwnedText _description;
  EntityType _entityType = E_Unknown;
  OwnedText _zoneNumber;
  ObjectStatus _status;
  ObjectStatus _V6CompoundStatus;
  ObjectStatus _V6GlobalStatus;
  ObjectStatus _V6SiteStatus;
  long _createTime = 0;
  long _changeTime = 0;
  long _statusChangeTime = 0;
  IPLevel _ipLevel = AllProtocol;
  TopoDBType _dbType = ActiveDB;
  AssEndPoint _partOf;
  std::vector<UserDefVar> _userVars;
  int _routeDistinguisher = 0;
  std::list<ObjID> myAddresses;
  std::array<AtomicField<short>, 6> _fieldVector;
  mutable ZNMutex myMutex;

 private:
  struct Values;
  struct StatusRow;

  Values values() const;
  void overwrite(const Values& values);
  /// An empty text leaves the old one.
  void setTexts(const std::string& name, const std::string& description,
                const std::string& zoneNumber);
  void clear();
  void initFieldVector();
  std::vector<ZNRefPtr<ZNAddress>> getAddrsByObjIDList(const std::list<ObjID>& ids) const;
  ZNTopoAPIStatus changeStatus(const StatusRow& row, const ObjectStatus& aStat, long changeTimeUTC,
                               bool updateDB);
};

}  // namespace zntopo
