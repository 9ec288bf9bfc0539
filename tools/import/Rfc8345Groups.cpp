#include <algorithm>
#include <map>
#include <set>

#include "tools/import/FieldReader.h"
#include "tools/import/Rfc8345Extension.h"
#include "tools/import/Rfc8345Keys.h"
#include "tools/network/StoreRows.h"

namespace zntopo::tools::rfc8345 {

namespace {

class Groups {
 public:
  Groups(const Network& network, const Layers& layers, const SubnetIds& subnets,
         NetworkModel& model, NetworkReport& report)
      : network_(network), layers_(layers), subnets_(subnets), model_(model), report_(report) {}

  void add(JsonObject& attributes) {
    addEach(attributes, "hsrp-group", "group-id", kNameWidth, model_.hsrpGroups,
            [&](JsonObject& object, HsrpGroupModel& group) { readHsrpGroup(object, group); });
    const Index before = model_.containers.size();
    addEach(attributes, "interface-container", "container-id", fields::kContainerNameWidth,
            model_.containers,
            [&](JsonObject& object, ContainerModel& one) { readContainer(object, one); });
    for (Index i = before; i < model_.containers.size(); ++i) {
      containers_.emplace(model_.containers[i].key, i);
    }
    addEach(attributes, "mesh", "mesh-id", kNameWidth, model_.meshes,
            [&](JsonObject& object, MeshModel& mesh) { readMesh(object, mesh); });
    for (const JsonPlace& place : attributes.list("container-association")) addAssociation(place);
    for (const JsonPlace& place : attributes.list("audit")) addAudit(place);
  }

 private:
  using Reference = std::optional<EndPoint>;

  /// Reads a list of groups of one kind; a group without a name is called by its identifier.
  template <typename Model, typename Reader>
  void addEach(JsonObject& attributes, const std::string& kind, const std::string& idName,
               std::size_t nameWidth, std::vector<Model>& groups, const Reader& reader) {
    ListKeys ids;
    for (const JsonPlace& place : attributes.list(kind)) {
      JsonObject object(place);
      Model group;
      const std::string id = ids.read(object, idName, nameWidth);
      group.key = groupKey(kind, network_.id, id);
      const auto name = object.find("name");
      group.name = name ? name->name(nameWidth) : id;
      readEntity(object, group, report_);
      reader(object, group);
      object.countUnread(report_);
      groups.push_back(std::move(group));
    }
  }

  /// The interface of "node-ref" and "tp-ref", in this network unless "network-ref" tells another.
  Reference readReference(JsonObject& object, const std::string& what) {
    const std::string network = object.text("network-ref");
    const TpRef reference{{network.empty() ? network_.id : network, object.get("node-ref").text()},
                          object.get("tp-ref").text()};
    const auto end = layers_.interface(reference);
    if (!end) report_.add(what + " that does not exist", object.where());
    return end;
  }

  /// Calls a reader for each member whose interface exists, once an interface.
  template <typename Reader>
  void readMembers(JsonObject& group, const std::string& list, const std::string& what,
                   const Reader& reader) {
    std::set<EndPoint> known;
    for (const JsonPlace& place : group.list(list)) {
      JsonObject object(place);
      const Reference end = readReference(object, what);
      if (!end) continue;
      if (!known.insert(*end).second) {
        report_.add(what + " that stands twice in its group", place.where());
        continue;
      }
      reader(object, *end);
      object.countUnread(report_);
    }
  }

  void readHsrpGroup(JsonObject& object, HsrpGroupModel& group) {
    readFields(object, group, fields::kHsrpGroup, report_);
    readMembers(object, "member", "HSRP member", [&](JsonObject& from, const EndPoint& end) {
      HsrpMemberModel member;
      member.interface = end;
      readFields(from, member, fields::kHsrpMember, report_);
      readTracks(from, member);
      const JsonPlace place = from.get("address");
      const auto address = IpAddress::parse(place.text());
      if (!address || !hasAddress(end, *address)) {
        report_.add("HSRP member with an address that its interface does not have", place.where());
        return;
      }
      member.address = *address;
      group.members.push_back(std::move(member));
    });
  }

  bool hasAddress(const EndPoint& end, const IpAddress& ip) const {
    const auto& addresses = model_.at(end).addresses;
    return std::any_of(addresses.begin(), addresses.end(),
                       [&](const AddressModel& one) { return one.address == ip; });
  }

  void readTracks(JsonObject& from, HsrpMemberModel& member) {
    readMembers(from, "track", "tracked interface", [&](JsonObject& object, const EndPoint& end) {
      HsrpTrackModel track;
      track.interface = end;
      readFields(object, track, fields::kHsrpTrack, report_);
      if (member.tracks.size() < fields::kMaxTracks) {
        member.tracks.push_back(track);
      } else {
        report_.add("tracked interface beyond " + std::to_string(fields::kMaxTracks) + " a member",
                    object.where());
      }
    });
  }

  void readContainer(JsonObject& object, ContainerModel& container) {
    readFields(object, container, fields::kContainer, report_);
    readMembers(object, "member", "container member", [&](JsonObject& from, const EndPoint& end) {
      ContainerMemberModel member;
      member.interface = end;
      readFields(from, member, fields::kContainerMember, report_);
      container.members.push_back(member);
    });
  }

  void readMesh(JsonObject& object, MeshModel& mesh) {
    readMembers(object, "member", "mesh member",
                [&](JsonObject&, const EndPoint& end) { mesh.members.push_back(end); });
  }

  void addAssociation(const JsonPlace& place) {
    JsonObject object(place);
    const auto left = containers_.find(containerKey(object, "left-container"));
    const auto right = containers_.find(containerKey(object, "right-container"));
    if (left == containers_.end() || right == containers_.end()) {
      report_.add("association of a container that does not exist", place.where());
      return;
    }
    AssociationModel association;
    association.left = left->second;
    association.right = right->second;
    readFields(object, association, fields::kAssociation, report_);
    object.countUnread(report_);
    model_.associations.push_back(std::move(association));
  }

  std::string containerKey(JsonObject& object, const std::string& member) const {
    return groupKey("interface-container", network_.id, object.get(member).text());
  }

  void addAudit(const JsonPlace& place) {
    JsonObject object(place);
    AuditModel audit;
    audit.objectKey = readObjectKey(object);
    readFields(object, audit, fields::kAudit, report_);
    checkIdentifier(object, audit.objectId);
    object.countUnread(report_);
    model_.audit.push_back(std::move(audit));
  }

  /// The key of the object that a line of the trail tells of; what is gone has the key that it
  /// would have.
  std::string readObjectKey(JsonObject& object) const {
    if (object.find("node-ref")) return readPlaceKey(object);
    if (const auto number = object.find("vlan-ref")) {
      return vlanKey(network_.id, number->number().value_or(0));
    }
    if (const auto subnet = object.find("subnet-ref")) return subnetKey(subnet->text());
    for (const char* kind : {"hsrp-group", "interface-container", "mesh"}) {
      const auto id = object.find(kind + std::string("-ref"));
      if (id) return groupKey(kind, network_.id, id->text());
    }
    if (const auto id = object.find("object-identifier")) return "identifier\n" + id->text();
    throw ImportError(object.where(), "does not say which object it is about");
  }

  /// A node, one of its interfaces, or an address of that.
  std::string readPlaceKey(JsonObject& object) const {
    const std::string network = object.text("network-ref");
    const NodeRef node{network.empty() ? network_.id : network, object.text("node-ref")};
    const auto at = layers_.find(node);
    if (!object.find("tp-ref")) {
      const bool isDevice = at && layers_.role(*at) == Layers::Role::Device;
      return isDevice ? model_.nodes[layers_.device(*at)].key : nodeKey(node.network, node.node);
    }
    const std::string tp = object.text("tp-ref");
    const auto end = layers_.interface(TpRef{node, tp});
    std::string key = end ? model_.at(*end).key : interfaceKey(node.network, node.node, tp);
    const auto address = object.find("address");
    if (!address) return key;
    const auto ip = IpAddress::parse(address->text());
    if (!ip) throw ImportError(address->where(), "is no address");
    return addressKey(key, *ip);
  }

  std::string subnetKey(const std::string& id) const {
    const auto known = subnets_.find({network_.id, id});
    return known == subnets_.end() ? segmentKey(network_.id, id)
                                   : model_.subnets[known->second].key;
  }

  const Network& network_;
  const Layers& layers_;
  const SubnetIds& subnets_;
  NetworkModel& model_;
  NetworkReport& report_;
  /// By key.
  std::map<std::string, Index> containers_;
};

}  // namespace

void addGroups(JsonObject& attributes, const Network& network, const Layers& layers,
               const SubnetIds& subnets, NetworkModel& model, NetworkReport& report) {
  Groups(network, layers, subnets, model, report).add(attributes);
}

}  // namespace zntopo::tools::rfc8345
