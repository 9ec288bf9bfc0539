#include "tools/generate/GenerateCampus.h"

#include <optional>

#include "tools/generate/CampusLayout.h"
#include "tools/generate/RingBuilder.h"
#include "tools/generate/SiteBuilder.h"
#include "tools/network/StoreWriter.h"

namespace zntopo::tools {

namespace {

/// What is counted of a part; another part's objects are not.
struct ObjectCounts {
  long long nodes = 0, interfaces = 0, addresses = 0, links = 0, subnets = 0, vlans = 0, meshes = 0,
            hsrpGroups = 0, containers = 0, associations = 0, audits = 0;

  void add(const NetworkModel& model) {
    for (const NodeModel& node : model.nodes) {
      if (node.isElsewhere) continue;
      ++nodes;
      interfaces += static_cast<long long>(node.interfaces.size());
      for (const InterfaceModel& one : node.interfaces) {
        addresses += static_cast<long long>(one.addresses.size());
      }
    }
    links += static_cast<long long>(model.links.size());
    for (const SubnetModel& subnet : model.subnets) subnets += subnet.isElsewhere ? 0 : 1;
    for (const VlanModel& vlan : model.vlans) vlans += vlan.isElsewhere ? 0 : 1;
    meshes += static_cast<long long>(model.meshes.size());
    hsrpGroups += static_cast<long long>(model.hsrpGroups.size());
    containers += static_cast<long long>(model.containers.size());
    associations += static_cast<long long>(model.associations.size());
    audits += static_cast<long long>(model.audit.size());
  }
};

void check(const CampusPlan& plan) {
  const auto isShare = [](double share) { return share >= 0 && share <= 1; };
  if (!isShare(plan.userVariableShare) || !isShare(plan.brokenGroupShare)) {
    throw PlanError("A share is a number from 0 to 1.");
  }
  if (plan.zone.size() > 64) throw PlanError("The zone is longer than 64 bytes.");
}

/// A plan as the parts of a network, counted as they go by.
class PlannedNetwork {
 public:
  explicit PlannedNetwork(const CampusPlan& plan) : plan_(plan) {
    check(plan);
    parts_.nodes = static_cast<std::size_t>(plan.nodes);
    if (plan.shape == NetworkShape::Campus) {
      layout_.emplace(plan);
      parts_.count = layout_->sites().size() + (layout_->backbones() > 0 ? 1 : 0);
    } else {
      parts_.count = static_cast<std::size_t>(ringParts(plan));
    }
    parts_.part = [this](std::size_t part) {
      NetworkModel model = build(static_cast<int>(part));
      counts_.add(model);
      return model;
    };
  }
  PlannedNetwork(const PlannedNetwork&) = delete;
  PlannedNetwork& operator=(const PlannedNetwork&) = delete;

  const NetworkParts& parts() const { return parts_; }

  CampusCounts counts(const WriteReport& report) const {
    CampusCounts result;
    result.objects = {{"nodes", counts_.nodes},
                      {"interfaces", counts_.interfaces},
                      {"addresses", counts_.addresses},
                      {"links", counts_.links},
                      {"subnets", counts_.subnets},
                      {"VLANs", counts_.vlans},
                      {"meshes", counts_.meshes},
                      {"HSRP groups", counts_.hsrpGroups},
                      {"containers", counts_.containers},
                      {"associations", counts_.associations},
                      {"user variables", report.tables[UserDefVar].all()},
                      {"audit entries", counts_.audits}};
    for (int table = 0; table < TableCount; ++table) {
      result.rows.emplace_back(kTables[table].name, report.tables[table].all());
    }
    result += report;
    return result;
  }

 private:
  NetworkModel build(int part) const {
    if (!layout_) return buildRingPart(plan_, part);
    if (part < layout_->siteCount()) return buildSite(plan_, *layout_, part);
    return buildBackbone(plan_, *layout_);
  }

  const CampusPlan& plan_;
  std::optional<CampusLayout> layout_;
  NetworkParts parts_;
  ObjectCounts counts_;
};

}  // namespace

CampusCounts generateCampus(TvDbil::DbConnection_t& connection, const CampusPlan& plan,
                            const std::function<void(double)>& progress, bool isMerging) {
  const PlannedNetwork network(plan);
  return network.counts(
      writeParts(connection, network.parts(), plan.zone, plan.time, isMerging, progress));
}

CampusCounts countCampus(const CampusPlan& plan, const std::function<void(double)>& progress) {
  const PlannedNetwork network(plan);
  return network.counts(countParts(network.parts(), plan.zone, progress));
}

}  // namespace zntopo::tools
