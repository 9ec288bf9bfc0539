#pragma once

#include <span>
#include <string>

#include "tests/support/TestStore.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"

/// @file
/// Every update of the store as data: how to run it, and which column it then has written.

namespace zntopo::test {

struct StoreUpdate {
  const char* member;
  /// Without the ending of its set.
  const char* table;
  /// The column that holds the identifier.
  const char* key;
  const char* column;
  int value;
  ZNTopoAPIStatus (*run)(ZNTopoAPI_Impl& impl, const ObjID& id);

  /// Asks for readiness, has its values in its text, and writes the tables of its set.
  bool isCommon() const { return std::string(member) != "setNWIfcAssocInfoState"; }
  /// A name for messages of tests.
  std::string name() const;
  /// What the column of an object holds in a set; "NULL" for nothing.
  std::string written(TestStore& store, const std::string& id, TopoDBType set) const;
};

/// All of them, each kind of state that a member knows included.
std::span<const StoreUpdate> storeUpdates();

/// Adds an object with this identifier to every table that updates write; without any state.
void addUpdated(TestStore& store, const std::string& id, TopoDBType set = ActiveDB);

}  // namespace zntopo::test
