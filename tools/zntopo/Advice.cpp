#include "tools/zntopo/Advice.h"

namespace zntopo::tools {

namespace {

constexpr const char* kFull = "The disk of the store is full: make room there, and try again.";
constexpr const char* kLocked = "Somebody else has locked the store: try again when they are done.";
constexpr const char* kNoServer =
    "The server of the store can't be reached: see whether it runs and takes connections, and try "
    "again.";
constexpr const char* kBadFile =
    "The file of the store can't be read: see to its disk, or put a copy in its place.";
constexpr const char* kNotAllowed =
    "The store can't be written by this user: see who may write its file and folder.";
constexpr const char* kNoRole =
    "The store does not let this user do that. On PostgreSQL members of the role zntopo_reader may "
    "ask, members of zntopo_state_writer may change states too (\"zntopo set\"), and the owner of "
    "the tables may do all (docs/stores.md).";
constexpr const char* kOtherTables =
    "The tables of the store are not those that this version reads (docs/schema.md): it takes a "
    "new "
    "store, which \"zntopo init\" makes.";
constexpr const char* kNotReady =
    "Nothing is answered until a network is in the store (\"zntopo import\") or the discovery that "
    "fills it is done; \"zntopo state\" shows how far it is.";

struct Sign {
  const char* text;
  const char* advice;
};

// What engines and drivers say: SQLSTATE numbers of servers, and texts of SQLite, which it says in
// one language only. The first that is found counts.
constexpr Sign kSigns[] = {
    {"disk is full", kFull},
    {"SQLSTATE 53100", kFull},
    {"No space left on device", kFull},
    {"File too large", kFull},
    {"database is locked", kLocked},
    {"database table is locked", kLocked},
    {"SQLSTATE 55P03", kLocked},
    {"SQLSTATE 57P0", kNoServer},
    {"SQLSTATE 08", kNoServer},
    {"disk I/O error", kBadFile},
    {"database disk image is malformed", kBadFile},
    {"readonly database", kNotAllowed},
    {"SQLSTATE 42501", kNoRole},
    {"no such column", kOtherTables},
    {"no such table", kOtherTables},
    {"SQLSTATE 42703", kOtherTables},
    {"SQLSTATE 42P01", kOtherTables},
};

}  // namespace

std::string adviceOn(const ZNTopoAPIStatus& status) {
  if (status.isOK()) return "";
  const std::string text = status.getAuxMsg();
  for (const Sign& sign : kSigns) {
    if (text.find(sign.text) != std::string::npos) return sign.advice;
  }
  return status.getStatus() == ZN_API_DB_NOT_READY ? kNotReady : "";
}

}  // namespace zntopo::tools
