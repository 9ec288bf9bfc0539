#include <algorithm>

#include "tools/zntopo/HsrpGroups.h"

namespace zntopo::tools {

namespace {

void addOptions(CLI::App& command, GroupOptions& options) {
  addNameArgument(command, "ID", options.text, kHsrpGroups.name.word, kHsrpGroups.argument);
}

std::string faultyText(const std::vector<HsrpDetails>& groups) {
  const auto faulty = std::count_if(groups.begin(), groups.end(),
                                    [](const HsrpDetails& one) { return isFaulty(*one.object); });
  if (faulty == 0) return "";
  return ", " + std::to_string(faulty) + " without exactly one active member";
}

void hsrp(const Context& context, const GroupOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  const bool isOne = !options.text.empty();
  const auto groups = isOne ? std::vector{findGroup(session, kHsrpGroups, options.text)}
                            : readHsrpGroups(session, {});
  for (const HsrpDetails& group : groups) {
    answer.json["groups"].push_back(viewOf(kHsrpGroups, group).json());
  }
  answer.text = isOne
                    ? viewOf(kHsrpGroups, groups.front()).text()
                    : listingOf(kHsrpGroups, groups).text() +
                          counted(groups.size(), kHsrpGroups.name.word) + faultyText(groups) + "\n";
}

}  // namespace

constinit const Command kHsrpCommand = {
    .name = "hsrp",
    .about =
        "List all HSRP groups, or show one with its members and what they track.\n"
        "A group with no active member, or with several, is pointed out.",
    .examples =
        "  zntopo hsrp\n"
        "  zntopo hsrp quay-gateway\n"
        "  zntopo hsrp 10 --json",
    .empty = R"({"groups": []})",
    .prepare = prepare<addOptions, hsrp>,
};

}  // namespace zntopo::tools
