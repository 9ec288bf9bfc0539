#pragma once

#include <set>
#include <string>
#include <vector>

#include "tools/zntopo/Commands.h"
#include "tools/zntopo/NameLookup.h"
#include "tools/zntopo/fields/Field.h"

/// @file
/// Kinds of groups (subnets, VLANs, containers, HSRP groups) as data: what their lists and the
/// views of one alone have in common stands here once.
///
/// Details is a record with the library's object as its member "object".

namespace zntopo::tools {

template <typename Details>
struct GroupKind {
  NamedKind name;
  /// What users may type, for the help.
  const char* argument;
  /// The members of JSON.
  const char* listKey;
  const char* viewKey;
  std::span<const Field<Details>> (*fields)();
  /// Reads groups by identifier, all of them if there is none, in the order of the list.
  std::vector<Details> (*read)(Session& session, const std::set<ObjID>& ids);
  /// Reads what the view of one alone shows below its fields.
  void (*complete)(Session& session, Details& details);
  /// Adds that to the view.
  void (*addLists)(const Details& details, View& view);
};

/// The answers of a request for a list of groups as records, each with its object.
template <typename Details, typename Groups>
std::vector<Details> detailsOf(const Groups& groups) {
  std::vector<Details> result;
  for (const auto& group : groups) result.push_back({.object = group});
  return result;
}

/// Reads VLANs, containers or HSRP groups by identifier; all of them if there is none.
template <auto request, typename Details>
std::vector<Details> readGroups(Session& session, const std::set<ObjID>& ids) {
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto groups = (session.api().*request)(ids, notFound, status, ids.empty(), -1);
  check(status);
  return detailsOf<Details>(*groups);
}

template <typename Details>
View viewOf(const GroupKind<Details>& kind, const Details& details) {
  View view;
  view.add(kind.fields(), details);
  kind.addLists(details, view);
  return view;
}

template <typename Details>
Listing<Details> listingOf(const GroupKind<Details>& kind, const std::vector<Details>& groups) {
  Listing<Details> listing(kind.fields());
  for (const Details& details : groups) listing.add(details);
  return listing;
}

/// The work of a subcommand that lists all groups of a kind.
template <const auto& kind>
void listGroups(const Context& context, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  listingOf(kind, kind.read(session, {})).fill(answer, kind.listKey, kind.name.word);
}

/// The group that a text names, with all that a view shows.
template <typename Details>
Details findGroup(Session& session, const GroupKind<Details>& kind, const std::string& text) {
  const ObjID id = findObject(session, kind.name, text);
  std::vector<Details> found = kind.read(session, {id});
  if (found.empty()) {
    throw Failure(ZN_API_OBJ_NOT_EXIST, std::string("There is no ") + kind.name.word +
                                            " with the identifier " + id.toString());
  }
  kind.complete(session, found.front());
  return found.front();
}

struct GroupOptions {
  std::string text;
};

/// The options and the work of a subcommand that shows one group.
template <const auto& kind>
void addGroupOptions(CLI::App& command, GroupOptions& options) {
  addNameArgument(command, "ID", options.text, kind.name.word, kind.argument)->required();
}

template <const auto& kind>
void showGroup(const Context& context, const GroupOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  const View view = viewOf(kind, findGroup(session, kind, options.text));
  answer.json[kind.viewKey] = view.json();
  answer.text = view.text();
}

}  // namespace zntopo::tools
