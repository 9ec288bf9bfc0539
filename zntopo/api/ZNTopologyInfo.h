#pragma once

#include <map>
#include <string>

#include "zntopo/cache/ZNTopologyState.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// How large the stored topology is: a snapshot of counters without a tie to the store.
class ZNTOPO_EXPORT ZNTopologyInfo {
 public:
  /// All counters 0, the map empty, the state UNKNOWN.
  ZNTopologyInfo() = default;
  ZNTopologyInfo(int aNumNode, int aNumIPV4Node, int aNumIPV6Node, int aNumInterface,
                 int aNumIPV4Interface, int aNumIPV6Interface, int aNumPrefixGroup, int aNumSubnet,
                 int aNumVlan, int aNumHSRP, int aNumMesh, int aNumL2Link, int aNumV4Addr,
                 int aNumV6Addr, int aNumDNSName, int aNumV4SNMPNode,
                 const std::map<std::string, int>& aRDMap, const ZNTopologyState& aStat)
      : myNumNode(aNumNode),
        myNumIPV4Node(aNumIPV4Node),
        myNumIPV6Node(aNumIPV6Node),
        myNumV4SNMPNode(aNumV4SNMPNode),
        myNumInterface(aNumInterface),
        myNumIPV4Interface(aNumIPV4Interface),
        myNumIPV6Interface(aNumIPV6Interface),
        myNumPrefixGroup(aNumPrefixGroup),
        myNumVlan(aNumVlan),
        myNumHSRP(aNumHSRP),
        myNumMesh(aNumMesh),
        myNumL2Link(aNumL2Link),
        myNumV4Addr(aNumV4Addr),
        myNumV6Addr(aNumV6Addr),
        myNumDNSName(aNumDNSName),
        myNumSubnet(aNumSubnet),
        myRDMap(aRDMap),
        myStat(aStat) {}

  int getNumberOfNode() const { return myNumNode; }
  int getNumberOfIPV4Node() const { return myNumIPV4Node; }
  int getNumberOfIPV6Node() const { return myNumIPV6Node; }
  /// Nodes with a system OID.
  int getNumberOfV4SNMPNode() const { return myNumV4SNMPNode; }
  int getNumberOfInterface() const { return myNumInterface; }
  int getNumberOfIPV4Interface() const { return myNumIPV4Interface; }
  int getNumberOfIPV6Interface() const { return myNumIPV6Interface; }
  /// IPv6 subnets.
  int getNumberOfPrefixGroup() const { return myNumPrefixGroup; }
  int getNumberOfVlan() const { return myNumVlan; }
  int getNumberOfHSRP() const { return myNumHSRP; }
  int getNumberOfMesh() const { return myNumMesh; }
  int getNumberOfL2Link() const { return myNumL2Link; }
  int getNumberOfV4Address() const { return myNumV4Addr; }
  int getNumberOfV6Address() const { return myNumV6Addr; }
  int getNumberOfDNSName() const { return myNumDNSName; }
  /// IPv4 subnets.
  int getNumberOfSubnet() const { return myNumSubnet; }
  /// The number of nodes of each route distinguisher, which stands as text.
  const std::map<std::string, int>& getRDMap() const { return myRDMap; }
  const ZNTopologyState& getTopologyState() const { return myStat; }
  /// The state and the counters in lines for people, in the language of LANG. DNS names are not
  /// among them, and the number of topology objects leaves meshes out.
  std::string toString() const;

 private:
  int myNumNode = 0;
  int myNumIPV4Node = 0;
  int myNumIPV6Node = 0;
  int myNumV4SNMPNode = 0;
  int myNumInterface = 0;
  int myNumIPV4Interface = 0;
  int myNumIPV6Interface = 0;
  int myNumPrefixGroup = 0;
  int myNumVlan = 0;
  int myNumHSRP = 0;
  int myNumMesh = 0;
  int myNumL2Link = 0;
  int myNumV4Addr = 0;
  int myNumV6Addr = 0;
  int myNumDNSName = 0;
  int myNumSubnet = 0;
  std::map<std::string, int> myRDMap;
  ZNTopologyState myStat;
};

}  // namespace zntopo
