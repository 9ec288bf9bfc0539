#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/Scratch.h"
#include "tests/support/TestEngine.h"

/// @file
/// Runs the command zntopo, and the dump tool, as a user does.

namespace zntopo::test {

/// What a call of the command left.
struct CliResult {
  int status = -1;
  std::string out;
  std::string err;

  nlohmann::json json() const { return nlohmann::json::parse(out); }
};

/// Runs zntopo in the environment of this process, with more variables ("NAME=value").
CliResult zntopoRun(const std::vector<std::string>& arguments,
                    const std::vector<std::string>& environment = {});

/// The same for the dump tool, tvrz_topodump.tvpl.
CliResult topodumpRun(const std::vector<std::string>& arguments,
                      const std::vector<std::string>& environment = {});

/// Runs zntopo with a terminal as its standard error, which has carriage returns before line ends.
CliResult zntopoRunOnTerminal(const std::vector<std::string>& arguments);
/// The same as a user who may do nothing that is not allowed to all, if this process may do all.
CliResult zntopoRunAsNobody(const std::vector<std::string>& arguments);

/// zntopo at work: a call that goes on until it is told to stop. At the end it is gone.
class RunningCli {
 public:
  explicit RunningCli(const std::vector<std::string>& arguments,
                      const std::vector<std::string>& environment = {});
  /// The same with a file, or a pipe with a name, as its standard output.
  RunningCli(const std::vector<std::string>& arguments, const std::string& output);
  ~RunningCli();
  RunningCli(const RunningCli&) = delete;
  RunningCli& operator=(const RunningCli&) = delete;

  std::string out() const { return folder_.read("out"); }
  std::string err() const { return folder_.read("err"); }
  /// Waits until a text has been written; false if that does not come about within a minute.
  bool awaitOut(const std::string& text) const;
  bool awaitErr(const std::string& text) const;
  void signal(int number) const;
  /// What it has left; waits for its end, a minute at most.
  CliResult finish();

 private:
  Scratch folder_;
  pid_t pid_ = -1;
};

/// What a call answers in JSON; it must succeed.
nlohmann::json answerOf(std::vector<std::string> call);
/// The name of the status that a call tells in JSON; it must fail.
std::string failureOf(std::vector<std::string> call);

/// A text of each object of a list in JSON.
std::vector<std::string> each(const nlohmann::json& list, const std::string& name);

/// The names of the subcommands, as the help lists them, those of a group with its name: "filter
/// list".
std::vector<std::string> subcommands();
/// The call of a subcommand, with what is to follow its name.
std::vector<std::string> callOf(const std::string& subcommand,
                                const std::vector<std::string>& more = {});

/// A sample network of this project.
std::string samplePath(const std::string& name = "harbor-campus.rfc8345.json");

/// An empty place for a store of an engine, which TV_TOPO_STORE names.
class CliTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override;
  void TearDown() override;

  const std::string& store() const { return store_; }
  /// A file in the temporary folder of the test.
  std::string write(const std::string& name, const std::string& content) const;
  /// The rows of the store as text.
  std::string dump() const;
  /// The rows of a statement on the store, with texts as its parameters.
  std::vector<std::vector<std::string>> select(
      const std::string& sql, std::size_t columns,
      const std::vector<std::string>& parameters = {}) const;
  /// The first column of a statement, which has to give something.
  std::vector<std::string> stored(const std::string& sql) const;

 private:
  std::optional<TestEngine> engine_;
  std::string store_;
};

/// The same, with the sample network in the store.
class CliSampleTest : public CliTest {
 protected:
  void SetUp() override;
};

}  // namespace zntopo::test
