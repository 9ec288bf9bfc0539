#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::tools {

/// A statement on the store. Each operation throws StoreError with the complaint of the statement
/// and what the driver says.
class StoreStatement {
 public:
  StoreStatement(TvDbil::DbConnection_t& connection, const std::string& sql,
                 std::string complaint = "the store can't be read or written");

  /// The next parameter, from the first one on after an execution; nullptr for NULL. The value must
  /// stay where it is until then.
  void add(const int* value);
  void add(const char* text);

  /// The next column: where its values go, and where the driver tells their lengths (0 and less
  /// for NULL). Both must stay where they are.
  void bind(int* value, int* indicator);
  void bind(float* value, int* indicator);
  void bind(char* text, std::size_t size, int* indicator);

  void execute();
  /// The next row; false if there is none.
  bool fetch();
  /// True if a text of the row was longer than its place.
  bool isCut() const { return isCut_; }

 private:
  void require(TvDbil::DbilReturnCode_t code) const;

  std::string complaint_;
  TvXplMsg::MessageList_t messages_;
  TvDbil::DbStatement_t statement_;
  int parameters_ = 0;
  int columns_ = 0;
  bool isCut_ = false;
};

/// The columns of a row as texts; an empty text for NULL.
using TextRow = std::vector<std::string>;

/// The rows of a statement with texts as its parameters. Texts are cut to 255 bytes.
std::vector<TextRow> selectTexts(TvDbil::DbConnection_t& connection, const std::string& sql,
                                 std::size_t columns, const std::vector<std::string>& parameters);

/// Runs a statement without parameters.
void executeText(TvDbil::DbConnection_t& connection, const std::string& sql,
                 const std::string& complaint);

/// "?, ?, ?" for a number of parameters.
std::string parameterMarks(std::size_t number);

}  // namespace zntopo::tools
