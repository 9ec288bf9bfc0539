#pragma once

#include <CLI/CLI.hpp>
#include <exception>
#include <functional>
#include <iosfwd>
#include <nlohmann/json.hpp>
#include <string>

#include "tools/network/ToolError.h"
#include "tools/network/WriteCounts.h"
#include "zntopo/core/ZNTopoAPIStatus.h"

/// @file
/// How the subcommands answer: text or JSON on standard output, errors on standard error.

namespace zntopo::tools {

using Json = nlohmann::ordered_json;

/// Exit statuses of the command.
enum ExitStatus : int {
  ExitAnswer = 0,
  ExitFailure = 1,
  ExitWrongCall = 2,
  /// The work was done, and what failed is the channel of events.
  ExitNoEvents = 3
};

/// Ends a subcommand with a status of the library or in its manner.
class Failure : public ToolError {
 public:
  using ToolError::ToolError;
};

/// Throws a Failure unless the status is OK.
void check(const ZNTopoAPIStatus& status);

/// What an exception is to the user.
ZNTopoAPIStatus statusOf(const std::exception& error);

/// Keeps standard output for answers: whatever the library, or what it stands on, writes there
/// goes to standard error instead. One for the process.
class AnswerStream {
 public:
  AnswerStream();
  ~AnswerStream();
  AnswerStream(const AnswerStream&) = delete;
  AnswerStream& operator=(const AnswerStream&) = delete;

  /// False if not all of it could be written.
  bool write(const std::string& text);
  int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

/// What all subcommands share: their options, and what becomes of the process.
struct Context {
  AnswerStream& answers;
  std::string store;
  bool isJson = false;
  int exitStatus = ExitAnswer;
};

/// What one subcommand answers. It fills both forms; one of them is printed.
struct Answer {
  /// The members beside "status". What stands here before the work is what a failure shows.
  Json json = Json::object();
  /// For people: lines.
  std::string text;
  /// For people, on standard error.
  std::string note;
  /// A failure that leaves a partial answer.
  ZNTopoAPIStatus status;
  /// What a failure is to the caller.
  ExitStatus exitOnFailure = ExitFailure;
  /// The work writes lines by itself. What is left to print is a failure, as one more line.
  bool isStream = false;
};

/// Refuses an empty text: "the name of the file is empty" for "name of the file".
CLI::Validator isNotEmpty(const std::string& what);
/// Add the options --store and --json.
void addStoreOption(CLI::App& command, Context& context);
void addJsonOption(CLI::App& command, Context& context);

/// Runs a subcommand's work, prints its answer or its failure, and sets the exit status.
void answer(Context& context, Answer answer, const std::function<void(Answer&)>& work);

/// One object of JSON in one line.
std::string jsonLine(const Json& json);

/// "code", "name", "message" and "aux" of a status.
Json statusJson(const ZNTopoAPIStatus& status);

/// What became of the rows of a write, in both forms.
Json rowsJson(const WriteCounts& counts);
std::string rowsText(const WriteCounts& counts);

}  // namespace zntopo::tools
