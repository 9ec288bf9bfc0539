#pragma once

#include <list>
#include <string>

#include "zntopo/core/AtomicField.h"
#include "zntopo/core/ObjID.h"
#include "zntopo/core/Published.h"
#include "zntopo/core/ZNMutex.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/model/PingState.h"
#include "zntopo/model/TopoDBType.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// Base of the addresses of topology objects, rows of the table address.
///
/// Built by one thread and shared then through ZNRefPtr: all read-only operations and
/// setPingState() may be called by several threads at once. setAddressID() and setAssEntityID()
/// are for the builder. The destructor takes no lock.
class ZNTOPO_EXPORT ZNAddress {
 public:
  /// The kind of an address, as the column AddressType holds it.
  enum AddressType : int {
    Unknown = 0,
    IPv4 = 1,
    IPv6 = 2,
    Physical = 3,
    IDName = 4,
    FDN = 5,
    DNS = 16
  };
  enum AffectedPart : int { Refresh_Status = 0, Refresh_All = 1 };
  enum AddrMapType : int { IPV6_IPV4 = 0, IPV6_DNS = 1 };

  virtual ~ZNAddress();

  /// True if the address serves in an HSRP group. May ask the store.
  virtual bool isInHSRP() const;
  /// The HSRP groups that the address serves in. May ask the store. The reference lives as long
  /// as the address.
  virtual const std::list<ObjID>& getHSRPObjIDs() const;
  virtual bool isInetAddress() const;
  virtual const std::string& getAddressAsString() const;
  virtual bool isMonitored() const;
  /// The address in lines of labels and values, for diagnosis.
  virtual std::string toString() const;
  /// The same in elements, for programs that know them: see ZNTopoXMLTag. Of the kinds of addresses
  /// IPv4 alone has the address itself in it.
  virtual std::string toXML() const;

  AddressType getAddressType() const { return _type; }
  short getAddressTypeAsShort() const { return static_cast<short>(_type); }
  /// The address's own identifier: column AddressId.
  const ObjID& getAddressID() const { return _aID; }
  /// The object that owns the address, an interface as a rule: column ObjId.
  const ObjID& getAssEntityID() const { return _entID; }
  void setAddressID(const ObjID& id) { _aID = id; }
  void setAssEntityID(const ObjID& id) { _entID = id; }

  PingState getPingState() const { return myPingState; }
  /// When the store's ping state was last updated, in seconds UTC.
  long getPingStateUpdTime() const { return myPingStateUpdTime; }
  /// Changes the ping state; with updateDB writes it to the store and sends an attribute change,
  /// the same state included. Nothing changes while the topology is not ready
  /// (ZN_API_DB_NOT_READY); after a failed write or send the object stays changed.
  ZNTopoAPIStatus setPingState(PingState aPingState, bool updateDB);

  TopoDBType getDBType() const { return myDBType; }

 protected:
  ZNAddress();
  ZNAddress(AddressType type, TopoDBType dbType);
  ZNAddress(AddressType type, const ObjID& aid, TopoDBType dbType);
  ZNAddress(AddressType type, const ObjID& aid, const ObjID& eid, TopoDBType dbType);
  ZNAddress(AddressType type, const ObjID& aid, const ObjID& eid, const PingState& aPingState,
            long aPingStateUpdTime, TopoDBType dbType);
  /// Everything but the mutex is copied.
  ZNAddress(const ZNAddress& other);
  ZNAddress& operator=(const ZNAddress& other);

  AddressType _type = Unknown;
  ObjID _aID;
  ObjID _entID;
  std::string _tmpStr;
  /// Filled lazily by InetAddress.
  mutable Published<std::list<ObjID>> myHSRPObjIDList;
  ZNMutex myMutex;
  TopoDBType myDBType = ActiveDB;
  AtomicField<PingState> myPingState;
  long myPingStateUpdTime = 0;
};

}  // namespace zntopo
