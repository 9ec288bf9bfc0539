#include "tools/zntopo/ContainerGroups.h"
#include "tools/zntopo/StateChange.h"

namespace zntopo::tools {

namespace {

struct SetAssociationOptions {
  std::string left;
  std::string right;
  std::optional<int> relation;
  std::optional<int> state;
};

void addOptions(CLI::App& command, SetAssociationOptions& options) {
  addNameArgument(command, "LEFT", options.left, kContainers.name.word,
                  "The first container: a name, an identifier or the beginning of a name")
      ->required();
  addNameArgument(command, "RIGHT", options.right, kContainers.name.word, "The second container")
      ->required();
  command
      .add_option("--relation", options.relation, "The relation, where the containers have several")
      ->type_name("NUMBER");
  command
      .add_option("--state", options.state,
                  "The state; what its number means is the application's matter")
      ->type_name("NUMBER")
      ->required();
}

using Association = ZNRefPtr<ZNIfcAssocInfo>;

/// The associations that the options may mean, from one container to another.
std::vector<Association> candidates(const ContainerDetails& left, const ObjID& from,
                                    const ObjID& to, std::optional<int> relation) {
  std::vector<Association> found;
  for (const Association& one : left.object->getAllIfcAssocInfos()) {
    if (one->getLeftIfcId() != from || one->getRightIfcId() != to) continue;
    if (!relation || *relation == one->getIfcRelationType()) found.push_back(one);
  }
  return found;
}

Association findAssociation(Session& session, const SetAssociationOptions& options) {
  const ContainerDetails left = findGroup(session, kContainers, options.left);
  const ObjID from = left.object->getObjID();
  const ObjID to = findObject(session, kContainers.name, options.right);
  const auto found = candidates(left, from, to, options.relation);
  if (found.size() == 1) return found.front();
  const std::string pair = "[" + options.left + "] to [" + options.right + "]";
  if (found.size() > 1) {
    std::vector<std::string> meanings;
    meanings.reserve(found.size());
    for (const Association& one : found) {
      meanings.push_back("--relation " + std::to_string(one->getIfcRelationType()));
    }
    throw Failure(ZN_API_NONUNIQUE_NAME,
                  "The association from " + pair + " is not unique." + mayBeOneOf(meanings));
  }
  const bool isReverse = !candidates(left, to, from, options.relation).empty();
  throw Failure(ZN_API_OBJ_NOT_EXIST,
                "There is no association from " + pair +
                    (isReverse ? ", but one the other way: name the containers in its order."
                               : ": \"zntopo container\" lists those of a container."));
}

void setAssociation(const Context& context, const SetAssociationOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  requireReady(session);
  const Association association = findAssociation(session, options);
  const ObjID& left = association->getLeftIfcId();
  const ObjID& right = association->getRightIfcId();
  const int relation = association->getIfcRelationType();
  const int state = options.state.value_or(0);
  change(session,
         {{.object = namedAssociation(session, left, right, relation),
           .states = {{kAssociationState, association->getAssocState(), state}},
           .rows = {"LEFTIFCONTAINEROBJID = ? and RIGHTIFCONTAINEROBJID = ? and RELTYPE = " +
                        std::to_string(relation),
                    {left.toString(), right.toString()}},
           .set = [association, state] { return association->updateState(state, true); }}},
         answer);
}

}  // namespace

constinit const Command kSetAssociationCommand = {
    .name = "set association",
    .about = "Change the state of an association of two interface containers.",
    .examples =
        "  zntopo set association wan-b wan-a --state 2\n"
        "  zntopo set association wan-a core-trunk --relation 2 --state 1 --json",
    .empty = kNoChanges,
    .prepare = prepare<addOptions, setAssociation>,
};

}  // namespace zntopo::tools
