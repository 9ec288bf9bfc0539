#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "tools/network/NetworkModel.h"
#include "tools/network/NetworkReport.h"
#include "tools/network/StoreTable.h"

namespace zntopo::tools {

/// Where rows go.
class RowSink {
 public:
  virtual ~RowSink() = default;
  virtual void put(Row row) = 0;
};

/// Rows of all tables, each key once: a row that comes again replaces the one before, but for
/// the sticky flags and for what is told only once.
class RowSet : public RowSink {
 public:
  void put(Row row) override;
  /// In the order of first occurrence.
  const std::vector<Row>& rows() const { return rows_; }
  /// Gives the rows away.
  std::vector<Row> take() { return std::move(rows_); }

 private:
  std::vector<Row> rows_;
  std::array<std::unordered_map<std::string, std::size_t>, TableCount> index_;
};

/// Makes the rows of a network. A zone keeps networks apart that use the same keys, and stands
/// in the column ZoneNumber. Descriptions that are too long are cut and counted.
void addRows(const NetworkModel& model, const std::string& zone, RowSink& rows,
             NetworkReport& report);

/// The key of an interface's address: what the identifier of its row is made of.
std::string addressKey(const std::string& interfaceKey, const IpAddress& address);

/// Where an interface sits, as its name tells it: "Gi1/0/23" is port 23 of card 1/0. "-" for
/// what is not known or does not fit.
struct PortPlace {
  std::string card = "-";
  std::string port = "-";
};
PortPlace portPlace(const std::string& interfaceName);

/// At most so many bytes of a UTF-8 text, cut between two characters.
std::string cutText(const std::string& text, std::size_t width);

}  // namespace zntopo::tools
