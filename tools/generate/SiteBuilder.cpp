#include "tools/generate/SiteBuilder.h"

#include "tools/generate/CampusNames.h"
#include "tools/generate/SiteFabric.h"

namespace zntopo::tools {

namespace {

/// The subnets of the wires to the backbone are the backbone's.
void leaveWires(const CampusLayout& layout, int site, NetworkModel& model) {
  for (SubnetModel& subnet : model.subnets) {
    for (int edge = 0; edge < SiteLayout::kEdges; ++edge) {
      const int wire = wanWire(layout, site, edge);
      if (subnet.prefix == wirePrefixV4(wire) || subnet.prefix == wirePrefixV6(wire)) {
        subnet.isElsewhere = true;
      }
    }
  }
}

}  // namespace

NetworkModel buildSite(const CampusPlan& plan, const CampusLayout& layout, int site) {
  SiteFabric fabric(plan, layout, site);
  addFabricNodes(fabric);
  wireFabric(fabric);
  plugHosts(fabric);
  addGateways(fabric);
  addContainers(fabric);
  addMesh(fabric);
  addSiteAudit(fabric);
  NetworkModel model = fabric.part.take();
  if (layout.backbones() > 0) leaveWires(layout, site, model);
  return model;
}

NetworkModel buildBackbone(const CampusPlan& plan, const CampusLayout& layout) {
  PartBuilder part(plan, layout.siteCount(), 0, 0);
  std::vector<Index> routers;
  std::vector<int> portsOf(static_cast<std::size_t>(layout.backbones()));
  for (int i = 0; i < layout.backbones(); ++i) {
    routers.push_back(part.addNode(NodeRole::Backbone, backboneName(layout, i), -1));
    const EndPoint end = part.addPort(routers.back(), PortRole::Loopback, "Lo0");
    part.addAddress(end, loopback(layout, -1, i), 32);
    part.setManagement(end);
  }
  int wire = 0;
  for (const auto& [left, right] : layout.backboneLinks()) {
    const auto port = [&](int router, int side) {
      const EndPoint end = part.addPort(routers[router], PortRole::Uplink,
                                        "Hu0/0/" + std::to_string(portsOf[router]++));
      part.addWireAddresses(end, wire, side);
      return end;
    };
    const EndPoint from = port(left, 0);
    part.link(from, port(right, 1));
    ++wire;
  }
  for (int site = 0; site < layout.siteCount(); ++site) {
    for (int edge = 0; edge < SiteLayout::kEdges; ++edge) {
      const EndPoint end = part.addPort(routers[layout.backboneOf(site, edge)], PortRole::Uplink,
                                        wanPortOfBackbone(site, edge));
      part.addWireAddresses(end, wanWire(layout, site, edge), 0);
      part.at(end).isLinkedElsewhere = true;
      part.at(end).description = "to " + edgeName(layout, site, edge) + " " + wanPortOfEdge();
    }
  }
  return part.take();
}

}  // namespace zntopo::tools
