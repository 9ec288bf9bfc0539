#include "bench/support/WarmCache.h"

#include <algorithm>
#include <random>
#include <stdexcept>

#include "bench/support/PlainRead.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"

namespace zntopo::bench {

namespace {

bool isWarm = false;

constexpr Column kIDColumns[] = {textColumn("ObjId", 37)};

std::vector<std::string> shuffledIDs(const std::string& table) {
  TvDbil::DbConnection_t connection = connect();
  std::vector<std::string> ids;
  for (auto& row : readPlain<kIDColumns>(connection, "select ObjId from " + table)) {
    ids.push_back(std::move(row.texts[0]));
  }
  std::sort(ids.begin(), ids.end());
  std::shuffle(ids.begin(), ids.end(), std::mt19937(1));
  return ids;
}

void checkStatus(ZNTopoAPIStatus& status, const char* what) {
  if (status.isOK()) return;
  throw std::runtime_error(std::string(what) + ": " + status.getStatusMsg() + "; " +
                           status.getAuxMsg());
}

}  // namespace

ZNTopoConfig roomyConfig(const Setting& setting, bool withLists) {
  constexpr int kObjectsPerNode = 100;
  ZNTopoConfig config;
  config.setNodeCacheSize(setting.nodes * 2);
  config.setInterfaceCacheSize(setting.nodes * kObjectsPerNode);
  config.setAddressCacheSize(setting.nodes * kObjectsPerNode);
  config.setVlanCacheSize(setting.nodes);
  config.setIfcCacheSize(setting.nodes);
  config.setHSRPCacheSize(setting.nodes);
  config.setLoadNodeL2ConnectionInfo(withLists);
  config.setLoadNodeIfcInfo(withLists);
  config.setLoadNodeVlanInfo(withLists);
  return config;
}

const std::vector<std::string>& shuffledNodeIDs() {
  static const auto ids = shuffledIDs("nwnode");
  return ids;
}

const std::vector<std::string>& shuffledInterfaceIDs() {
  static const auto ids = shuffledIDs("nwinterface");
  return ids;
}

void warmUp(const Setting& setting) {
  if (isWarm) return;
  ZNTopoAPI::setTopoConfiguration(roomyConfig(setting));
  ZNTopoAPI_Impl api;
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  api.getNodesByObjIDList({}, notFound, status, false, false, true, ZNEntity::AllProtocol, -1);
  checkStatus(status, "reading all nodes");
  const auto& ids = shuffledNodeIDs();
  api.getInterfacesByNodeObjIDList({ids.begin(), ids.end()}, status);
  checkStatus(status, "reading all interfaces");
  isWarm = true;
}

void coolDown() {
  ZNTopoAPI_Impl::cache()->clear(true);
  isWarm = false;
}

std::string differs(std::size_t library, std::size_t floor) {
  if (library == floor) return {};
  return "the library answers with " + std::to_string(library) + ", the floor with " +
         std::to_string(floor);
}

}  // namespace zntopo::bench
