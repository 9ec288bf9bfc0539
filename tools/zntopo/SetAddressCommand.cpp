#include "tools/network/StoreStatement.h"
#include "tools/zntopo/Commands.h"
#include "tools/zntopo/StateChange.h"

namespace zntopo::tools {

namespace {

struct SetAddressOptions {
  std::string address;
  std::string node;
  std::optional<int> ping;
};

void addOptions(CLI::App& command, SetAddressOptions& options) {
  addNameArgument(command, "ADDRESS", options.address, "address",
                  "An IPv4 or IPv6 address in any form, or an identifier")
      ->required();
  addNameArgument(command, "--node", options.node, "node", "The node that has the address")
      ->type_name("NODE");
  addNamedOption(command, "--ping", options.ping, kAnswerNames, "STATE",
                 "How the address answers pings")
      ->required();
}

Condition rowsOf(const std::string& text) {
  const auto address = IpAddress::parse(text);
  if (!address) return {"AddressId = ?", {text}};
  return address->isV6() ? Condition{"V6AddressBS = ?", {address->bitText()}}
                         : Condition{"V4Address = ?", {address->text()}};
}

/// The addresses on interfaces that a text may mean.
std::vector<NamedObject> candidates(Session& session, const SetAddressOptions& options) {
  const Condition rows = rowsOf(options.address);
  const std::string node = options.node.empty() ? "" : findNodeId(session, options.node).toString();
  std::vector<NamedObject> found;
  for (const TextRow& row : selectTexts(
           session.connection(), "select AddressId from address where isSubnet = 0 and " + rows.sql,
           1, rows.parameters)) {
    NamedObject one = namedAddress(session, row.front());
    if (node.empty() || one.end.nodeId == node) found.push_back(std::move(one));
  }
  return found;
}

NamedObject findAddress(Session& session, const SetAddressOptions& options) {
  const std::vector<NamedObject> found = candidates(session, options);
  if (found.size() == 1) return found.front();
  if (found.empty()) {
    throw Failure(ZN_API_OBJ_NOT_EXIST,
                  "There is no address [" + options.address + "]" +
                      (options.node.empty() ? "" : " on the node [" + options.node + "]") + ".");
  }
  std::vector<std::string> meanings;
  meanings.reserve(found.size());
  for (const NamedObject& one : found) meanings.push_back(one.id + "  " + one.text());
  throw Failure(ZN_API_NONUNIQUE_NAME,
                "Address [" + options.address +
                    "] is not unique: name its node with --node, or take an identifier." +
                    mayBeOneOf(meanings));
}

void setAddress(const Context& context, const SetAddressOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  requireReady(session);
  const NamedObject object = findAddress(session, options);
  const auto read = addressesById(session, Identifiers(std::vector{ObjID(object.id)}));
  if (read.empty()) throw Failure(ZN_API_OBJ_NOT_EXIST, "The address is gone from the store.");
  const ZNRefPtr<ZNAddress> address = read.begin()->second;
  const auto state = static_cast<PingState>(options.ping.value_or(0));
  // The library reads it of IPv4 addresses alone.
  const bool isRead = address->getAddressType() == ZNAddress::IPv4;
  change(session,
         {{.object = object,
           .states = {{kPingState,
                       isRead ? std::optional<int>(address->getPingState()) : std::nullopt, state}},
           .rows = {"AddressId = ?", {object.id}},
           .set = [address, state] { return address->setPingState(state, true); }}},
         answer);
}

}  // namespace

constinit const Command kSetAddressCommand = {
    .name = "set address",
    .about = "Change how an address answers pings.",
    .examples =
        "  zntopo set address 10.20.8.17 --ping not_responding\n"
        "  zntopo set address 10.20.8.1 --node core-1 --ping responding --json",
    .empty = kNoChanges,
    .prepare = prepare<addOptions, setAddress>,
};

}  // namespace zntopo::tools
