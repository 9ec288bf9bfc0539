// Prints the layer-2 path between two nodes of the store that TV_TOPO_STORE names:
//   path_example FROM TO
#include <zntopo/ZNTopo.h>

#include <iostream>

using namespace zntopo;

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: path_example FROM TO\n";
    return 2;
  }

  // A walk that must not miss a node keeps no nodes between its steps: see docs/node-cache.md.
  ZNTopoConfig config;
  config.setNodeCacheSize(0);
  ZNTopoAPIDefaultFactory factory;
  factory.initZNTopoAPI(config);

  ZNTopoAPIStatus status;
  ZNRefPtr<ZNTopoAPI> api = factory.getRDInstance(status, ActiveDB);
  if (api.isNull()) {
    std::cerr << status.getStatusMsg() << '\n';
    return 1;
  }
  const int maxHops = 20;
  const bool crossRouters = true;
  auto path =
      api->getL2PathBetweenNodes(argv[1], argv[2], maxHops, status, ZNAddress::IPv4, crossRouters);
  if (!status.isOK()) {
    std::cerr << status.getStatusMsg() << '\n' << status.getAuxMsg();
    return 1;
  }
  for (const auto& interface : *path) {
    std::cout << interface->getContainmentParent().getName() << ' ' << interface->getIfName()
              << '\n';
  }
  return 0;
}
