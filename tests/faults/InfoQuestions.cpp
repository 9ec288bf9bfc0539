// The statistics of the store, and what discovery did to its objects.

#include "tests/faults/QuestionRows.h"
#include "zntopo/api/detail/StatisticSql.h"

namespace zntopo::test {
namespace {

std::size_t trailsOf(OpenImpl& impl, Status& status, long start, long end, ZNAuditAction::Type type,
                     ZNAuditTrail::ObjectType object) {
  std::size_t actions = 0;
  const auto trails = impl.getAuditTrail(start, end, type, object, status);
  for (const auto& trail : *trails) {
    actions += trail->getActionList()->size();
  }
  return actions;
}

/// One question for each counter; what is counted may be nothing.
std::vector<Question> counters() {
  std::vector<Question> all;
  for (const std::string& sql : detail::statisticSelects(TableSet())) {
    all.push_back({"getStatistic", [sql](OpenImpl& impl, Status& status) {
                     const int value = impl.getStatistic(sql, status);
                     return static_cast<std::size_t>(status.isOK() ? 1 + value : 0);
                   }});
  }
  return all;
}

}  // namespace

std::vector<Question> infoQuestions() {
  std::vector<Question> all = counters();
  const std::vector<Question> others = {
      {"getTopologyInfo",
       [](OpenImpl& impl, Status& status) {
         return static_cast<std::size_t>(impl.getTopologyInfo(status).getNumberOfNode());
       }},
      {"get_String_Int_Map",
       [](OpenImpl& impl, Status& status) {
         std::map<std::string, int> map;
         impl.get_String_Int_Map(detail::nodesByRDSelect(TableSet()), map, status);
         std::size_t nodes = 0;
         for (const auto& [key, count] : map) nodes += static_cast<std::size_t>(count);
         return nodes;
       }},
      {"getAuditTrail",
       [](OpenImpl& impl, Status& status) {
         return trailsOf(impl, status, 0, 0, ZNAuditAction::TypeDontCare,
                         ZNAuditTrail::ObjectTypeDontCare);
       }},
      {"getAuditTrail of one kind in a window",
       [](OpenImpl& impl, Status& status) {
         return trailsOf(impl, status, 1, 9, ZNAuditAction::ObjectCreation, ZNAuditTrail::Node);
       }},
  };
  all.insert(all.end(), others.begin(), others.end());
  return all;
}

}  // namespace zntopo::test
