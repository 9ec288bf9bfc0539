#pragma once

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "tests/support/ConnectedStore.h"
#include "tests/support/Places.h"
#include "tests/support/StoreDump.h"
#include "tools/export/StoreReader.h"
#include "tools/import/NetworkFormat.h"
#include "tools/network/StoreWriter.h"
#include "zntopo/api/ZNTopoAPIDefaultFactory.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"

namespace zntopo::test {

/// Stores that networks are written into and read from.
class StoredNetworkTest : public ConnectedStoreTest {
 protected:
  void write(const tools::NetworkModel& model, const std::string& zone = "") {
    tools::NetworkReport report;
    tools::writeNetworks(*connection_, {model}, zone, report);
  }

  /// What is read with a cache that knows nothing yet.
  tools::StoredNetwork read(const tools::StoreScope& scope = {}) {
    ZNTopoConfig config;
    config.setNodeCacheSize(0);
    config.setLoadNodeIfcInfo(false);
    ZNTopoAPIDefaultFactory factory;
    factory.initZNTopoAPI(config);
    ZNTopoAPI_Impl::cache()->clear(true);
    ZNTopoAPIStatus status;
    const ZNRefPtr<ZNTopoAPI> api = factory.getRDInstance(status, ActiveDB);
    EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
    return tools::readStore(*api, *connection_, scope);
  }

  std::string dump() { return dumpStore(*connection_, false); }

  /// An empty store in the place of the one that was there.
  void startAnew() {
    connection_.reset();
    store_.reset();
    ConnectedStoreTest::SetUp();
  }
};

/// The network of a file.
inline tools::NetworkModel networkOf(const std::string& path) {
  tools::NetworkReport report;
  const tools::InputFile file = tools::loadInputFile(path);
  return tools::networkFormat("", file).read(file, report, {});
}

inline std::string samplePath(const std::string& name = "harbor-campus.rfc8345.json") {
  return inSourceTree("data/networks/" + name);
}

/// Names that break what does not escape them.
inline const std::vector<std::string>& hostileNames() {
  static const std::vector<std::string> names = {
      R"(quote " quote)",       R"(back\slash\N\G\l)", "<b>bold</b>",      "&amp; &lt; &",
      "new\nline\r\n",          "it's; drop table x",  "]]> <!-- -->",     "<<table><tr>",
      "bell\x07 escape\x1b[2J", "\xff\xfe not utf-8",  "\xe2\x80\xae rtl", "\xef\xbf\xbf none",
      "{\"json\": [1]}",        "label=\"x\"]; n9 [",  "//*#comment",      "-leading"};
  return names;
}

/// A network of nodes with hostile names, each linked with the next one.
inline tools::StoredNetwork hostileNetwork() {
  tools::StoredNetwork network;
  for (const std::string& name : hostileNames()) {
    tools::NodeModel node;
    node.id = node.key = "node-" + std::to_string(network.model.nodes.size());
    node.name = node.description = name;
    for (const char* end : {"left", "right"}) {
      tools::InterfaceModel interface;
      interface.id = interface.key = node.id + "-" + end;
      interface.name = interface.description = name + end;
      node.interfaces.push_back(interface);
    }
    node.variables.push_back({name, name});
    network.model.nodes.push_back(node);
    network.traits.emplace_back();
  }
  for (tools::Index i = 0; i + 1 < network.model.nodes.size(); ++i) {
    network.model.addLink({i, 1}, {i + 1, 0});
  }
  return network;
}

}  // namespace zntopo::test
