#include "zntopo/api/detail/CommandTrail.h"

#include "zntopo/core/MCLog.h"

namespace zntopo::detail {

namespace {

bool isTrailHeard() { return MCLog::debugLevel() < MC_MAJOR; }

template <typename Identifiers>
void logIdentifiers(const std::string& name, const Identifiers& identifiers) {
  if (!isTrailHeard()) return;
  std::string text;
  for (const ObjID& id : identifiers) text += id.getStrValue() + " ";
  commandLog(name, text);
}

}  // namespace

void commandLog(const std::string& name) {
  if (isTrailHeard()) MCLog::log(MC_MINOR, "#TPC#%s\n", name.c_str());
}

void commandLog(const std::string& name, const std::string& arguments) {
  if (isTrailHeard()) MCLog::log(MC_MINOR, "#TPC#%s %s\n", name.c_str(), arguments.c_str());
}

void commandLog(const std::string& name, const std::set<ObjID>& identifiers) {
  logIdentifiers(name, identifiers);
}

void commandLog(const std::string& name, const std::list<ObjID>& identifiers) {
  logIdentifiers(name, identifiers);
}

}  // namespace zntopo::detail
