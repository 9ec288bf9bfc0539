#include "tools/zntopo/Answer.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <iostream>

#include "tools/network/PlainText.h"
#include "tools/zntopo/Advice.h"

namespace zntopo::tools {

namespace {

std::string withoutLineEnd(std::string text) {
  while (!text.empty() && text.back() == '\n') text.pop_back();
  return text;
}

/// On standard error, as lines that are fit for a terminal.
void print(const std::string& text) {
  if (!text.empty()) std::cerr << printableLines(text) << "\n";
}

void printError(const ZNTopoAPIStatus& status) {
  print("zntopo: " + std::to_string(status.getStatus()) + " " + statusName(status.getStatus()) +
        ": " + withoutLineEnd(status.getStatusMsg()));
  print(withoutLineEnd(status.getAuxMsg()));
  print(adviceOn(status));
}

/// @param indent the blanks of a level; none for one line.
std::string dump(const Json& json, int indent) {
  // The store may hold bytes that are no UTF-8.
  return json.dump(indent, ' ', false, Json::error_handler_t::replace) + "\n";
}

/// What goes to standard output.
std::string output(const Context& context, const Answer& answer) {
  Json json = Json::object({{"status", statusJson(answer.status)}});
  if (answer.isStream) {
    return context.isJson && !answer.status.isOK() ? jsonLine(json) : "";
  }
  json.update(answer.json);
  return context.isJson ? dump(json, 2) : printableLines(answer.text);
}

}  // namespace

void check(const ZNTopoAPIStatus& status) {
  if (!status.isOK()) throw Failure(status);
}

ZNTopoAPIStatus statusOf(const std::exception& error) {
  const auto* const known = dynamic_cast<const ToolError*>(&error);
  return known ? known->status() : Failure(ZN_API_INTERNAL_ERROR, error.what()).status();
}

AnswerStream::AnswerStream() : descriptor_(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3)) {
  dup2(STDERR_FILENO, STDOUT_FILENO);
}

AnswerStream::~AnswerStream() {
  if (descriptor_ >= 0) close(descriptor_);
}

bool AnswerStream::write(const std::string& text) {
  std::size_t done = 0;
  while (done < text.size()) {
    const ssize_t count = ::write(descriptor_, text.data() + done, text.size() - done);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    done += static_cast<std::size_t>(count);
  }
  return true;
}

CLI::Validator isNotEmpty(const std::string& what) {
  return {
      [what](const std::string& text) { return text.empty() ? "the " + what + " is empty" : ""; },
      ""};
}

void addStoreOption(CLI::App& command, Context& context) {
  command
      .add_option("--store", context.store,
                  "The store: a SQLite file or an ODBC connection string "
                  "(otherwise TV_TOPO_STORE names it)")
      ->type_name("STORE")
      ->check(isNotEmpty("name of the store"));
}

void addJsonOption(CLI::App& command, Context& context) {
  command.add_flag("--json", context.isJson, "Answer in JSON");
}

std::string jsonLine(const Json& json) { return dump(json, -1); }

Json statusJson(const ZNTopoAPIStatus& status) {
  Json json;
  json["code"] = static_cast<int>(status.getStatus());
  json["name"] = statusName(status.getStatus());
  json["message"] = withoutLineEnd(status.getStatusMsg());
  json["aux"] = withoutLineEnd(status.getAuxMsg());
  return json;
}

Json rowsJson(const WriteCounts& counts) {
  return {{"added", counts.added}, {"changed", counts.changed}, {"unchanged", counts.unchanged}};
}

std::string rowsText(const WriteCounts& counts) {
  return "Rows: " + std::to_string(counts.added) + " added, " + std::to_string(counts.changed) +
         " changed, " + std::to_string(counts.unchanged) + " unchanged\n";
}

void answer(Context& context, Answer answer, const std::function<void(Answer&)>& work) {
  try {
    work(answer);
  } catch (const std::exception& error) {
    answer.status = statusOf(error);
  }
  if (!answer.status.isOK()) {
    context.exitStatus = answer.exitOnFailure;
    printError(answer.status);
  }
  print(answer.note);
  if (!context.answers.write(output(context, answer))) {
    std::cerr << "zntopo: the answer could not be written\n";
    // A failure that is told already says more.
    if (context.exitStatus == ExitAnswer) context.exitStatus = ExitFailure;
  }
}

}  // namespace zntopo::tools
