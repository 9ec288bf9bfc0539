#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "zntopo/model/TopologyGateway.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/ZNNode.h"

namespace zntopo::test {

/// Stands for the floors above the model in tests: it records each call as a line of text, and
/// answers from what the test has put into it. Several threads may call it at once; a test
/// fills it before.
class FakeTopologyGateway : public TopologyGateway {
 public:
  static FakeTopologyGateway& instance();

  /// Forgets all calls and answers: the topology is ready, all succeeds, nothing is found.
  void reset();

  /// The calls so far, each as "operation(argument, argument)".
  std::vector<std::string> calls() const;
  /// How many calls of an operation there were.
  int callCount(const std::string& operation) const;
  /// What an operation reports from now on.
  void failWith(const std::string& operation, ZNTopoStatus status, const std::string& aux = "");
  void succeed(const std::string& operation);
  /// Runs inside every call, without a lock held.
  void onCall(std::function<void(const std::string& operation)> hook);

  void addNode(const ZNRefPtr<ZNNode>& node);
  void addInterface(const ZNRefPtr<ZNInterface>& interface);
  void addInterfaceOfNode(const ObjID& nodeID, const ZNRefPtr<ZNInterface>& interface);
  void addAddress(const ZNRefPtr<ZNAddress>& address);
  void answerAddressByIP(const std::string& ip, const ZNRefPtr<ZNAddress>& address);
  void answerHSRPObjIDs(const ObjID& id, const std::list<ObjID>& groups);
  void answerIfcInfos(const ObjID& nodeID, int ifcType, const std::list<ZNIfcInfo>& infos);

  int getTopoMode(TopoDBType dbType) override;
  ZNTopoAPIStatus setEntityStatus(TopoDBType dbType, const ObjID& id, int newStatus,
                                  long statusChangeTimeUTC, ZNEntity::EntityStatusType statusType,
                                  EntityType entityType) override;
  ZNTopoAPIStatus setAddressState(TopoDBType dbType, const ObjID& id, int state) override;
  ZNTopoAPIStatus setNWNodeStatus(TopoDBType dbType, const ObjID& id, int newStatus,
                                  int statusType) override;
  ZNTopoAPIStatus setNWInterfaceState(TopoDBType dbType, const ObjID& id, int newValue,
                                      int attributeType) override;
  ZNTopoAPIStatus setHSRPAddressInfo(TopoDBType dbType, const ZNHSRPAddressInfo& info) override;
  ZNTopoAPIStatus setL2DomainIdOfNode(TopoDBType dbType, ZNNode& node, int& id) override;
  ZNTopoAPIStatus setL2DomainIdOfInterface(TopoDBType dbType, ZNInterface& interface,
                                           int& id) override;
  ZNTopoAPIStatus setNWIfcAssocInfoState(const ObjID& leftIfcObjID, const ObjID& rightIfcObjID,
                                         int assocType, int state) override;
  ZNTopoAPIStatus ensureNotificationClient() override;
  ZNTopoAPIStatus sendStatusNotification(const StatusChange& change) override;
  ZNTopoAPIStatus sendAttributeNotification(const AttributeChange& change) override;
  std::unique_ptr<AddressVector> getAddrsByObjIDs(const std::list<ObjID>& ids,
                                                  ZNTopoAPIStatus& status) override;
  ZNRefPtr<ZNAddress> getAddressByObjID(TopoDBType dbType, const ObjID& id,
                                        ZNTopoAPIStatus& status) override;
  ZNRefPtr<ZNAddress> getAddressByIP(const std::string& ip, ZNTopoAPIStatus& status,
                                     int routeDistinguisher) override;
  ZNRefPtr<ZNNode> getNodeByObjID(TopoDBType dbType, const ObjID& id,
                                  ZNTopoAPIStatus& status) override;
  ZNRefPtr<ZNInterface> getInterfaceByObjID(TopoDBType dbType, const ObjID& id,
                                            ZNTopoAPIStatus& status) override;
  std::unique_ptr<InterfaceList> getInterfacesByObjIDList(const std::set<ObjID>& ids,
                                                          std::set<ObjID>& notFound,
                                                          ZNTopoAPIStatus& status) override;
  std::unique_ptr<InterfaceList> getInterfacesByNodeObjIDList(TopoDBType dbType,
                                                              const std::list<ObjID>& nodeIDs,
                                                              ZNTopoAPIStatus& status) override;
  std::unique_ptr<IfcInfoMap> getIfcInfosByObjIDList(const std::set<ObjID>& nodeIDs,
                                                     ZNTopoAPIStatus& status, int ifcType) override;
  std::unique_ptr<std::list<ObjID>> getHSRPObjIDsByIFAddressObjID(TopoDBType dbType,
                                                                  const ObjID& id,
                                                                  HSRPObjType objType,
                                                                  ZNTopoAPIStatus& status) override;

  /// What getTopoMode() answers.
  int topoMode = 0;

 private:
  /// Identifiers by their text, which tells the kinds apart for all that tests use.
  template <typename T>
  using ByText = std::map<std::string, T>;

  /// All that a test has put in.
  struct Answers {
    ByText<ZNTopoAPIStatus> statuses;
    ByText<ZNRefPtr<ZNNode>> nodes;
    ByText<ZNRefPtr<ZNInterface>> interfaces;
    ByText<InterfaceList> interfacesOfNode;
    ByText<ZNRefPtr<ZNAddress>> addresses;
    ByText<ZNRefPtr<ZNAddress>> addressesByIP;
    ByText<std::list<ObjID>> hsrpObjIDs;
    std::map<std::pair<std::string, int>, std::list<ZNIfcInfo>> ifcInfos;
    std::function<void(const std::string&)> hook;
  };

  /// Records a call, runs the hook and gives the operation's status.
  ZNTopoAPIStatus enter(const std::string& operation, const std::string& arguments);

  mutable std::mutex mutex_;
  std::vector<std::string> calls_;
  std::vector<std::string> operations_;
  Answers answers_;
};

}  // namespace zntopo::test
