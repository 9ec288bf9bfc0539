#include "tools/zntopo/Lookup.h"

#include <vector>

#include "tools/network/PlainText.h"
#include "zntopo/store/GoodCode.h"

namespace zntopo::tools {

namespace {

using TvXplMsg::MessageList_t;

void require(bool isOk, const MessageList_t& messages) {
  if (!isOk) throw Failure(ZN_API_SQL_EXEC_ERROR, messages.Format(TvXplMsg::fRecurse_k));
}

/// The pattern of "like" for texts that begin with a text; "!" escapes its wildcards.
std::string beginningPattern(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '!' || c == '%' || c == '_') result += '!';
    result += c;
  }
  return result + "%";
}

ZNRefPtr<ZNNode> nodeOfId(Session& session, const ObjID& id) {
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto nodes = session.api().getNodesByObjIDList({id}, notFound, status, false, false, false,
                                                       ZNEntity::AllProtocol, -1);
  check(status);
  if (nodes->empty()) {
    throw Failure(ZN_API_OBJ_NOT_EXIST, "There is no node with the identifier " + id.toString());
  }
  return nodes->front();
}

/// The one node of a list of identifiers; nothing for an empty list.
std::optional<NamedNode> oneOf(Session& session, const std::vector<std::string>& ids,
                               const std::string& text) {
  if (ids.empty()) return std::nullopt;
  if (ids.size() > 1) {
    std::string list;
    for (std::size_t i = 0; i < ids.size() && i < 10; ++i) {
      list += "\n  " + ids[i] + "  " + printable(nodeOfId(session, ObjID(ids[i]))->getName());
    }
    throw Failure(ZN_API_NONUNIQUE_NAME, "Node [" + text + "] is not unique. It may be one of" +
                                             list + (ids.size() > 10 ? "\n  ..." : ""));
  }
  return NamedNode{nodeOfId(session, ObjID(ids.front())), std::nullopt};
}

}  // namespace

std::vector<std::string> selectTexts(TvDbil::DbConnection_t& connection, const std::string& sql,
                                     const std::string& parameter) {
  MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection);
  require(isGood(statement.BindSql(messages, sql.c_str())), messages);
  std::vector<char> value(parameter.begin(), parameter.end());
  value.push_back('\0');
  char column[256] = "";
  int indicator = 0;
  require(isGood(statement.BindParm(messages, 1, value.data(), false)) &&
              isGood(statement.BindColumn(messages, 1, column, &indicator, sizeof column)) &&
              isGood(statement.Exec(messages)),
          messages);
  std::vector<std::string> result;
  for (;;) {
    const TvDbil::DbilReturnCode_t code = statement.Fetch(messages);
    if (code == TvDbil::DBIL_NO_DATA) return result;
    require(isGood(code), messages);
    if (indicator > 0) result.emplace_back(column);
  }
}

NamedNode findNode(Session& session, const std::string& text) {
  if (text.empty()) throw Failure(ZN_API_ILLEGAL_INPUT, "The name of a node is empty");
  const auto exact =
      selectTexts(session.connection(), "select ObjId from nwnode where EntityName = ?", text);
  if (const auto found = oneOf(session, exact, text)) return *found;

  const ObjID id(text);
  if (id.getIDType() == ObjID::E_MsUuid) return {nodeOfId(session, id), std::nullopt};

  if (const auto address = IpAddress::parse(text)) {
    ZNTopoAPIStatus status;
    const auto node = session.api().getNodeByName(address->text(), status, -1);
    check(status);
    return {node, address};
  }

  const auto beginning = selectTexts(session.connection(),
                                     "select ObjId from nwnode where EntityName like ? escape '!'",
                                     beginningPattern(text));
  if (const auto found = oneOf(session, beginning, text)) return *found;
  throw Failure(ZN_API_OBJ_NOT_EXIST, "ObjID for node [" + text + "] not found.");
}

std::map<std::string, ZNRefPtr<ZNNode>> nodesById(Session& session, const std::set<ObjID>& ids) {
  std::map<std::string, ZNRefPtr<ZNNode>> result;
  if (ids.empty()) return result;
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto nodes = session.api().getNodesByObjIDList(ids, notFound, status, false, false, false,
                                                       ZNEntity::AllProtocol, -1);
  check(status);
  for (const auto& node : *nodes) result.emplace(node->getObjID().toString(), node);
  return result;
}

std::map<std::string, ZNRefPtr<ZNInterface>> interfacesById(Session& session,
                                                            const std::set<ObjID>& ids) {
  std::map<std::string, ZNRefPtr<ZNInterface>> result;
  if (ids.empty()) return result;
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto interfaces =
      session.api().getInterfacesByObjIDList(ids, notFound, status, false, false);
  check(status);
  for (const auto& one : *interfaces) result.emplace(one->getObjID().toString(), one);
  return result;
}

}  // namespace zntopo::tools
