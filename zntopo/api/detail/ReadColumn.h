#pragma once

#include <list>
#include <memory>
#include <string>

#include "zntopo/core/MCLog.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo::detail {

/// What differs between the statements with one column of texts.
struct ColumnQuery {
  Column column;
  AccessTexts texts;
  /// Logged for each NULL, which is left out; without it that is silent.
  const char* nullLine = nullptr;
};

/// What a statement gives, as identifiers or as texts: after a failure, which the status tells, as
/// far as it came.
template <typename T>
std::unique_ptr<std::list<T>> readColumn(const std::string& sql, const ColumnQuery& query,
                                         ZNTopoAPIStatus& status) {
  auto values = std::make_unique<std::list<T>>();
  runQuery(sql, {&query.column, 1}, query.texts, status, [&](const Row& row) {
    if (row.isPresent(0)) {
      values->emplace_back(row.text(0));
    } else if (query.nullLine) {
      MCLog::log(MC_INFO, "%s", query.nullLine);
    }
    return true;
  });
  return values;
}

}  // namespace zntopo::detail
