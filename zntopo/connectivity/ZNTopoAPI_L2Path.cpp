// Layer-2 paths between two addresses, nodes or interfaces. The search itself is in
// ZNTopoAPI_FindPath.cpp.

#include <algorithm>
#include <iterator>
#include <string>

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/connectivity/detail/Walks.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/LogText.h"
#include "zntopo/core/detail/OperationScope.h"

namespace zntopo {

namespace {

using InterfaceList = std::list<ZNRefPtr<ZNInterface>>;
using DataPath = std::list<ZNRefPtr<ZNConnData>>;

/// Replaces whatever the status held; the reason behind it stays in the log alone.
void replaceStatus(ZNTopoAPIStatus& status, ZNTopoStatus code, const char* text = nullptr) {
  status.reset();
  status.setStatus(code);
  if (text) status.addAuxMsg(text);
}

/// What is said of an element of a path that is not to be had.
struct Problem {
  const char* log;  // "%s" in it stands for the identifier
  const char* auxMsg;
};

/// What is said on one direction of crossing a link.
struct Problems {
  Problem nearInterface;
  Problem nearNodeID;
  Problem farInterface;
  Problem farNode;
};

constexpr char kNullInterface[] = "NULL interface in path ";
constexpr char kNullNode[] = "NULL node in path ";

constexpr Problems kForwards = {
    {"Found NULL Interface %s in Path, can't continue \n", kNullInterface},
    {"Found NULL node for %s, can't compute path!! \n", nullptr},
    {"FOUND NULL Interface for %s, can't compute path!! \n", kNullInterface},
    {"FOUND NULL node for %s, can't computer path!! \n", kNullNode},
};
constexpr Problems kBackwards = {
    {"NULL Interface in path, can't continue \n", kNullInterface},
    {"NULL Node in path, can't continue! \n", kNullNode},
    {"NULL interface in path, can't continue! \n", kNullInterface},
    {"NULL node in path, can't continue! \n", kNullNode},
};

/// One link as it is crossed, whichever way round its record is stored.
struct Crossing {
  const ObjID& nearInterface;
  const ObjID& nearNode;
  const ObjID& farInterface;
  const ObjID& farNode;
  const Problems& problems;
};

Crossing crossingFrom(const ZNNode& from, const ZNConnData& link) {
  if (link.getSrcNodeObjID() == from.getObjID()) {
    return {link.getSrcInterfaceObjID(), link.getSrcNodeObjID(), link.getDestInterfaceObjID(),
            link.getDestNodeObjID(), kForwards};
  }
  return {link.getDestInterfaceObjID(), link.getDestNodeObjID(), link.getSrcInterfaceObjID(),
          link.getSrcNodeObjID(), kBackwards};
}

/// Turns the links of a path into the interfaces that a frame crosses.
class PathWriter {
 public:
  PathWriter(ZNTopoAPI_Impl& api, const ZNRefPtr<ZNNode>& start,
             const ZNRefPtr<ZNInterface>& startInterface, ZNTopoAPIStatus& status)
      : api_(api), theStat_(status), theOldSrcNode_(start), theOldInterface_(startInterface) {
    path_.push_back(startInterface);
  }

  /// False if an element of the link is not to be had; the status then tells of it.
  bool cross(const ZNConnData& link) {
    const Crossing crossing = crossingFrom(*theOldSrcNode_, link);
    return leave(crossing) && enter(crossing);
  }

  void finish(const ZNRefPtr<ZNInterface>& destInterface) {
    if (theOldInterface_->getObjID() != destInterface->getObjID()) path_.push_back(destInterface);
  }

  InterfaceList& path() { return path_; }

 private:
  /// The near end: an interface of its own if the node was entered by another.
  bool leave(const Crossing& crossing) {
    if (theOldInterface_->getObjID() != crossing.nearInterface) {
      const auto out = api_.getInterfaceByObjID(crossing.nearInterface, theStat_);
      if (out.isNull()) return fail(crossing.problems.nearInterface, crossing.nearInterface);
      path_.push_back(out);
    }
    return !crossing.nearNode.isNull() || fail(crossing.problems.nearNodeID, crossing.nearNode);
  }

  bool enter(const Crossing& crossing) {
    theOldSrcNode_ = api_.getNodeByObjID(crossing.farNode, theStat_);
    theOldInterface_ = api_.getInterfaceByObjID(crossing.farInterface, theStat_);
    if (theOldInterface_.isNull()) {
      return fail(crossing.problems.farInterface, crossing.farInterface);
    }
    path_.push_back(theOldInterface_);
    return !theOldSrcNode_.isNull() || fail(crossing.problems.farNode, crossing.farNode);
  }

  bool fail(const Problem& problem, const ObjID& id) {
    detail::logLine(MC_MAJOR, problem.log, id.getStrValue());
    theStat_.reset();
    if (problem.auxMsg) theStat_.addAuxMsg(problem.auxMsg);
    theStat_.setStatus(ZN_API_PATH_PROCESSING_ERROR);
    return false;
  }

  ZNTopoAPI_Impl& api_;
  ZNTopoAPIStatus& theStat_;
  ZNRefPtr<ZNNode> theOldSrcNode_;
  ZNRefPtr<ZNInterface> theOldInterface_;
  InterfaceList path_;
};

/// What getL2Path() says of an address that no node has.
struct AddressTexts {
  const char* log;
  const char* auxMsg;
};

constexpr AddressTexts kSourceAddress = {
    "Fail to find srcNode %s",
    "Failed to retrieve source node for specified source IP  address in getL2Path() "};
constexpr AddressTexts kDestinationAddress = {
    "Fail to find destNode %s",
    "Failed to retrieve destination node for specified destination IP address in getL2Path() "};

ZNRefPtr<ZNNode> findOwner(ZNTopoAPI_Impl& api, const std::string& ip, const AddressTexts& texts,
                           ZNTopoAPIStatus& theStat) {
  ZNRefPtr<ZNNode> owner = api.getNodeByName(ip, theStat, -1);
  if (theStat.isOK() && !owner.isNull()) return owner;
  replaceStatus(theStat, ZN_API_UNKNOWN_IP, texts.auxMsg);
  detail::logLine(MC_CRITICAL, texts.log, ip);
  return {};
}

/// One end of a path as getL2PathBetweenNodes() finds it, and what it says if it does not.
struct EndTexts {
  const char* notFoundLog;
  const char* notFound;
  const char* noInterfacesLog;
  const char* noInterfaces;
};

constexpr EndTexts kSource = {
    "Failed to find srcNode %s\n",
    "Failed to find source node for specified hostname or management IP address in "
    "getL2PathBetweenNodes() ",
    "No L2 connected interfaces exist for srcNode %s\n",
    "No L2 connected interfaces exist for source node in getL2PathBetweenNodes() ",
};
// The two blanks and the name of the other function are part of the text.
constexpr EndTexts kDestination = {
    "Failed to find destNode %s\n",
    "Failed to find destination node for specified hostname or management IP address  in "
    "getL2Path() ",
    "No L2 connected interfaces exist for destNode %s\n",
    "No L2 connected interfaces exist for destination node in getL2PathBetweenNodes() ",
};

struct PathEnd {
  ZNRefPtr<ZNNode> node;
  InterfaceList interfaces;
};

bool findEnd(ZNTopoAPI_Impl& api, const std::string& name, const EndTexts& texts,
             ZNTopoAPIStatus& theStat, PathEnd& end) {
  end.node = api.getNodeByName(name, theStat, -1);
  if (!theStat.isOK() || end.node.isNull()) {
    replaceStatus(theStat, ZN_API_OBJ_NOT_EXIST, texts.notFound);
    detail::logLine(MC_INFO, texts.notFoundLog, name);
    return false;
  }
  const auto interfaces = end.node->getL2LinkConnectedInterfacesList();
  if (!interfaces || interfaces->empty()) {
    replaceStatus(theStat, ZN_API_NO_PATH, texts.noInterfaces);
    detail::logLine(MC_INFO, texts.noInterfacesLog, name);
    return false;
  }
  end.interfaces = *interfaces;
  return true;
}

}  // namespace

ZNTopoAPI_Impl::OwnedInterfaceList ZNTopoAPI_Impl::getL2Path(
    const std::string& srcIP, const std::string& destIP, int theMaxDepth, ZNTopoAPIStatus& theStat,
    ZNAddress::AddressType addrType, bool toCrossRouter) {
  const detail::OperationScope scope("getL2Path");
  auto thePath = std::make_unique<InterfaceList>();
  theStat.reset();
  if (!validate(theStat)) return thePath;

  const ZNRefPtr<ZNNode> SrcNode = findOwner(*this, srcIP, kSourceAddress, theStat);
  if (SrcNode.isNull()) return thePath;
  const ZNRefPtr<ZNNode> DestNode = findOwner(*this, destIP, kDestinationAddress, theStat);
  if (DestNode.isNull()) return thePath;
  MCLog::log(MC_INFO, "Getting L2 Path for %s:%s - %s:%s \n", srcIP.c_str(),
             SrcNode->getName().c_str(), destIP.c_str(), DestNode->getName().c_str());

  const auto theSrcInterface = SrcNode->getInterfaceByAddressValue(srcIP, addrType);
  const auto theDestInterface = DestNode->getInterfaceByAddressValue(destIP, addrType);
  if (theSrcInterface.isNull() || theDestInterface.isNull()) {
    replaceStatus(theStat, ZN_API_UNKNOWN_IP,
                  "Failed to retrieve interface for a specified IP address in getL2Path() ");
    return thePath;
  }
  thePath = getL2PathBetweenInterfaces(SrcNode, theSrcInterface, DestNode, theDestInterface,
                                       theMaxDepth, theStat, addrType, toCrossRouter);
  if (theStat.getStatus() == ZN_API_NO_PATH) {
    theStat.addAuxMsg("Unable to find path from " + srcIP + " to " + destIP);
  }
  return thePath;
}

ZNTopoAPI_Impl::OwnedInterfaceList ZNTopoAPI_Impl::getL2PathBetweenNodes(
    const std::string& srcNodeName, const std::string& destNodeName, int theMaxDepth,
    ZNTopoAPIStatus& theStat, ZNAddress::AddressType addrType, bool toCrossRouter) {
  const detail::OperationScope scope("getL2PathBetweenNodes");
  PathEnd src;
  PathEnd dest;
  if (!findEnd(*this, srcNodeName, kSource, theStat, src) ||
      !findEnd(*this, destNodeName, kDestination, theStat, dest)) {
    return std::make_unique<InterfaceList>();
  }
  // The first pair that works wins: lengths are not compared.
  for (const ZNRefPtr<ZNInterface>& srcInterface : src.interfaces) {
    for (const ZNRefPtr<ZNInterface>& destInterface : dest.interfaces) {
      auto thePath = getL2PathBetweenInterfaces(src.node, srcInterface, dest.node, destInterface,
                                                theMaxDepth, theStat, addrType, toCrossRouter);
      if (theStat.isOK() && !thePath->empty()) return thePath;
      if (theStat.getStatus() != ZN_API_NO_PATH) {
        theStat.addAuxMsg("Error in determining path in getL2PathBetweenNodes()");
        return thePath;
      }
      theStat.reset();
    }
  }
  replaceStatus(theStat, ZN_API_NO_PATH, "No path found between nodes in getL2PathBetweenNodes() ");
  MCLog::log(MC_INFO, "No path found from src node %s dest node %s\n", srcNodeName.c_str(),
             destNodeName.c_str());
  return std::make_unique<InterfaceList>();
}

ZNTopoAPI_Impl::OwnedInterfaceList ZNTopoAPI_Impl::getL2PathBetweenInterfaces(
    ZNRefPtr<ZNNode> SrcNode, ZNRefPtr<ZNInterface> theSrcInterface, ZNRefPtr<ZNNode> DestNode,
    ZNRefPtr<ZNInterface> theDestInterface, int theMaxDepth, ZNTopoAPIStatus& theStat,
    ZNAddress::AddressType /*addrType*/, bool toCrossRouter) {
  const detail::OperationScope scope("getL2PathBetweenInterfaces");
  auto thePath = std::make_unique<InterfaceList>();
  // Without an end there is nothing to go through.
  if (SrcNode.isNull() || theSrcInterface.isNull() || DestNode.isNull() ||
      theDestInterface.isNull()) {
    replaceStatus(theStat, ZN_API_NO_PATH);
    return thePath;
  }
  if (SrcNode->getObjID() == DestNode->getObjID()) {
    *thePath = {theSrcInterface, theDestInterface};
    return thePath;
  }
  DataPath theDataPath;
  std::set<ObjID> theVisitedNodes;
  const std::list<ZNRefPtr<ZNNode>> theFindNodeList{SrcNode};
  const ZNRefPtr<ZNNode> theKeyNode =
      findPath(theFindNodeList, DestNode, 1, theMaxDepth, theDataPath, theVisitedNodes, theStat,
               toCrossRouter);
  if (theKeyNode.isNull()) {
    replaceStatus(theStat, ZN_API_NO_PATH);
    return thePath;
  }
  PathWriter writer(*this, SrcNode, theSrcInterface, theStat);
  for (const ZNRefPtr<ZNConnData>& link : theDataPath) {
    if (!writer.cross(*link)) return thePath;  // no partial path
  }
  writer.finish(theDestInterface);
  thePath->swap(writer.path());
  return thePath;
}

ZNTopoAPI_Impl::OwnedConnDataVector ZNTopoAPI_Impl::convertPathInterfaceListToConnDataList(
    const InterfaceList& ifList, ZNTopoAPIStatus& theStat) {
  const detail::OperationScope scope("convertPathInterfaceListToConnDataList");
  theStat.reset();
  auto links = std::make_unique<std::vector<ZNRefPtr<ZNConnData>>>();
  const bool hasNull = std::any_of(ifList.begin(), ifList.end(),
                                   [](const auto& interface) { return interface.isNull(); });
  // A null handle has no node to be on.
  if (ifList.empty() || hasNull) {
    theStat.setStatus(ZN_API_PATH_PROCESSING_ERROR);
    return links;
  }
  const ZNInterface& first = *ifList.front();
  const ObjID firstParent = first.getParentObjID();
  if (firstParent == ifList.back()->getParentObjID()) {
    links->push_back(
        new ZNConnData(first.getObjID(), first.getObjID(), firstParent, firstParent, true));
    return links;
  }
  for (auto src = ifList.begin(), dest = std::next(src); dest != ifList.end(); src = dest++) {
    const ObjID srcParent = (*src)->getParentObjID();
    const ObjID destParent = (*dest)->getParentObjID();
    if (srcParent == destParent) continue;
    links->push_back(
        new ZNConnData((*src)->getObjID(), (*dest)->getObjID(), srcParent, destParent, true));
  }
  return links;
}

}  // namespace zntopo
