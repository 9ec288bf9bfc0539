#include "zntopo/filter/TopoFiltHandler.h"

#include "zntopo/core/Trace.h"
#include "zntopo/filter/detail/FilterTrace.h"

namespace zntopo {

// Not cleanup() of a derived class: what this one holds goes with it.
TopoFiltHandler::~TopoFiltHandler() { cleanup(); }

void TopoFiltHandler::cleanup() {
  const TvXplTrc::BlockTrace_t trace(topoSvcProcObj, "TopoFiltHandler::cleanup",
                                     detail::kTraceStep, __FILE__, __LINE__);
}

std::map<std::string, std::pair<EntityType, std::string>> TopoFiltHandler::getFilterNameDesc()
    const {
  // Every name has the same value; who needs the type asks getFilterObjType().
  std::map<std::string, std::pair<EntityType, std::string>> result;
  for (const auto& [name, filter] : m_FiltMap) result.emplace(name, std::pair(E_Node, ""));
  return result;
}

int TopoFiltHandler::getFilterObjType(const std::string& name, EntityType& type) const {
  const auto found = m_FiltMap.find(name);
  if (found == m_FiltMap.end()) return 1;
  type = found->second.getObjType();
  return 0;
}

}  // namespace zntopo
