#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "bench/support/BenchStore.h"
#include "zntopo/platform/tvdbil/TvDbil.h"
#include "zntopo/store/StoreAccess.h"

/// @file
/// The floor of all reading: what a program does that has the same driver and the same columns,
/// and wants nothing but the values.

namespace zntopo::bench {

template <std::size_t N>
constexpr std::size_t countOf(const Column (&columns)[N], ColumnKind kind) {
  return static_cast<std::size_t>(std::count_if(
      std::begin(columns), std::end(columns), [kind](const Column& c) { return c.kind == kind; }));
}

/// A row as a struct: its texts, its whole numbers and its reals, each in the columns' order.
template <const auto& kColumns>
struct PlainRow {
  std::array<std::string, countOf(kColumns, ColumnKind::Text)> texts;
  std::array<int, countOf(kColumns, ColumnKind::Int)> numbers;
  std::array<float, countOf(kColumns, ColumnKind::Float)> reals;
};

/// Reads all rows of a statement. Throws std::runtime_error.
template <const auto& kColumns>
std::vector<PlainRow<kColumns>> readPlain(TvDbil::DbConnection_t& connection,
                                          const std::string& sql) {
  TvXplMsg::MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection);
  check(statement.BindSql(messages, sql.c_str()), messages);

  PlainRow<kColumns> row;
  std::array<std::vector<char>, std::size(kColumns)> buffers;
  std::array<int, std::size(kColumns)> indicators{};
  std::size_t numbers = 0;
  std::size_t reals = 0;
  for (std::size_t i = 0; i < std::size(kColumns); ++i) {
    const int position = static_cast<int>(i) + 1;
    switch (kColumns[i].kind) {
      case ColumnKind::Text:
        buffers[i].resize(static_cast<std::size_t>(kColumns[i].size));
        check(statement.BindColumn(messages, position, buffers[i].data(), &indicators[i],
                                   kColumns[i].size),
              messages);
        break;
      case ColumnKind::Int:
        check(statement.BindColumn(messages, position, &row.numbers[numbers++], &indicators[i]),
              messages);
        break;
      case ColumnKind::Float:
        check(statement.BindColumn(messages, position, &row.reals[reals++], &indicators[i]),
              messages);
    }
  }
  check(statement.Exec(messages), messages);

  std::vector<PlainRow<kColumns>> rows;
  while (statement.Fetch(messages) <= TvDbil::DBIL_SUCCESS_WITH_INFO) {
    rows.push_back(row);
    std::size_t text = 0;
    for (const std::vector<char>& buffer : buffers) {
      if (!buffer.empty()) rows.back().texts[text++] = buffer.data();
    }
  }
  return rows;
}

}  // namespace zntopo::bench
