#include <gmock/gmock.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <optional>
#include <regex>
#include <set>
#include <sstream>
#include <utility>

#include "tests/support/CliSupport.h"
#include "tests/support/EventBroker.h"
#include "tests/support/Places.h"

/// @file
/// Holds docs/tools.md against the command: the subcommands, the examples, the members of JSON.

namespace zntopo::test {
namespace {

constexpr const char* kWatch = "watch";

/// A call in the documentation, and what it shows: standard output, then standard error; of watch,
/// which is there before it shows anything, the other way round.
struct Example {
  std::vector<std::string> words;
  std::vector<std::string> lines;
};

struct Section {
  std::string name;
  std::vector<Example> examples;
  /// The names in its paragraph "JSON:".
  std::set<std::string> members;
};

/// Without the blanks at their ends, which documentation does not keep.
std::vector<std::string> trimmedLinesOf(const std::string& text) {
  std::vector<std::string> lines = linesOf(text);
  for (std::string& line : lines) line.erase(line.find_last_not_of(' ') + 1);
  return lines;
}

std::vector<std::string> documentation() {
  return trimmedLinesOf(contentOf(inSourceTree("docs/tools.md")));
}

/// Words as a shell splits them, with double quotes.
std::vector<std::string> wordsOf(const std::string& line) {
  static const std::regex word(R"re("([^"]*)"|(\S+))re");
  std::vector<std::string> words;
  for (std::sregex_iterator at(line.begin(), line.end(), word), end; at != end; ++at) {
    words.push_back((*at)[1].matched ? (*at)[1] : (*at)[2]);
  }
  return words;
}

std::set<std::string> namesOf(const std::string& line) {
  static const std::regex name("`([a-z0-9_]+)`");
  std::set<std::string> names;
  for (std::sregex_iterator at(line.begin(), line.end(), name), end; at != end; ++at) {
    names.insert((*at)[1]);
  }
  return names;
}

const Section& sectionOf(const std::vector<Section>& all, const std::string& name) {
  for (const Section& section : all) {
    if (section.name == name) return section;
  }
  throw std::runtime_error("docs/tools.md has no section " + name);
}

/// The members that a line names: by themselves, or as those of a section before it.
std::set<std::string> membersOf(const std::string& line, const std::vector<Section>& before) {
  static const std::regex other(R"(as of \[([^\]]+)\])");
  std::set<std::string> members = namesOf(line);
  std::smatch found;
  if (std::regex_search(line, found, other))
    members.merge(std::set(sectionOf(before, found[1]).members));
  return members;
}

/// The sections; the first has no name and is what stands before them.
std::vector<Section> sections() {
  const std::string prompt = "    $ zntopo ";
  std::vector<Section> result(1);
  bool isExample = false;
  bool isJson = false;
  // An empty line belongs to an example if the example goes on behind it.
  std::size_t emptyLines = 0;
  for (const std::string& line : documentation()) {
    if (line.starts_with("## ")) result.push_back({line.substr(3), {}, {}});
    isExample = isExample && (line.empty() || line.starts_with("    "));
    emptyLines = line.empty() ? emptyLines + 1 : emptyLines;
    isJson = (isJson && !line.empty()) || line.starts_with("JSON:");
    if (isJson) result.back().members.merge(membersOf(line, result));
    if (line.starts_with(prompt)) {
      result.back().examples.push_back({wordsOf(line.substr(prompt.size())), {}});
      isExample = true;
    } else if (isExample && !line.empty()) {
      std::vector<std::string>& lines = result.back().examples.back().lines;
      lines.resize(lines.size() + emptyLines);
      lines.push_back(line.substr(4));
    }
    if (!line.empty()) emptyLines = 0;
  }
  return result;
}

/// A regular expression for a line in which "..." is anything and a time is any time.
std::regex patternOf(const std::string& line) {
  static const std::regex special(R"([.^$|()\[\]{}*+?\\])");
  static const std::regex time(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ)");
  static const std::regex dots(R"((\\\.){3})");
  const std::string escaped = std::regex_replace(line, special, R"(\$&)");
  return std::regex(
      std::regex_replace(std::regex_replace(escaped, dots, ".*"), time, "[0-9TZ:-]{20}"));
}

/// Whether lines fit the lines of an example.
bool fits(const std::vector<std::string>& lines, const std::vector<std::string>& expected) {
  // The lines that may have been passed when so many lines of the example are.
  std::vector<std::set<std::size_t>> reached(expected.size() + 1);
  reached[0] = {0};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const std::regex pattern = patternOf(expected[i]);
    for (const std::size_t at : reached[i]) {
      if (expected[i] == "...") {
        for (std::size_t next = at; next <= lines.size(); ++next) reached[i + 1].insert(next);
      } else if (at < lines.size() && std::regex_match(lines[at], pattern)) {
        reached[i + 1].insert(at + 1);
      }
    }
  }
  return reached.back().contains(lines.size());
}

/// The document that the documentation has in it.
std::string xmlOf(const std::vector<std::string>& lines) {
  std::string text;
  const auto begin = std::find(lines.begin(), lines.end(), "```xml");
  const auto end = std::find(begin, lines.end(), "```");
  for (auto line = begin; line != end && ++line != end;) text += *line + "\n";
  return text;
}

/// The first filter of a document, with a bad name and an unknown attribute.
std::string brokenFilters(std::string text) {
  text.erase(text.find("  <nodeFilter"), text.find("</filters>") - text.find("  <nodeFilter"));
  for (const auto& [from, to] :
       {std::pair<std::string, std::string>{"\"cores\" description=\"The two core switches\"",
                                            "\"the cores\""},
        {"<name>", "<nmae>"},
        {"</name>", "</nmae>"}}) {
    text.replace(text.find(from), from.size(), to);
  }
  return text;
}

/// A folder of its own as the current one, with the sample network where the examples have it.
class CliDocsTest : public testing::Test {
 protected:
  void SetUp() override {
    before_ = std::filesystem::current_path();
    std::filesystem::current_path(scratch_.folder());
    std::filesystem::create_directory_symlink(inSourceTree("data"), "data");
    std::ofstream("broken.json") << R"({"ietf-network:networks": {"network": [{"network-id": "n",
        "node": [{"node-id": "a"}, {"node-id": "b"}, {"node-id": "c"}, {"node-id": ""}]}]}})";
    const std::string filters = xmlOf(documentation());
    std::ofstream("site.xml") << filters;
    std::ofstream("broken.xml") << brokenFilters(filters);
    setenv("TV_TOPO_STORE", "campus.db", 1);
    ZNTOPO_NEED_BROKER();
    broker_.emplace();
    setEnv("TV_EVENT_BROKER", broker_->name());
  }
  void TearDown() override {
    unsetenv("TV_EVENT_BROKER");
    std::filesystem::current_path(before_);
  }

  /// The store in which the examples of a section were made.
  static void makeStoreFor(const std::string& section) {
    for (const char* end : {"", "-wal", "-shm"}) {
      std::filesystem::remove(std::string("campus.db") + end);
    }
    if (section == "init") return;
    ASSERT_EQ(zntopoRun({"init"}).status, 0);
    if (section == "import" || section == "generate") return;
    ASSERT_EQ(zntopoRun({"import", samplePath()}).status, 0);
  }

  /// What a call of watch leaves while the examples of changes are called.
  static CliResult watchChanges(const std::vector<std::string>& call,
                                const std::vector<Section>& all) {
    RunningCli watch(call);
    EXPECT_TRUE(watch.awaitErr("listening")) << watch.err();
    for (const Section& section : all) {
      if (!section.name.starts_with("set ")) continue;
      for (const Example& example : section.examples) zntopoRun(example.words);
    }
    EXPECT_TRUE(watch.awaitOut("association"));
    watch.signal(SIGINT);
    return watch.finish();
  }

 private:
  Scratch scratch_;
  std::filesystem::path before_;
  std::optional<EventBroker> broker_;
};

TEST_F(CliDocsTest, EachSubcommandHasItsLineAndItsSection) {
  std::vector<std::string> listed;
  for (const std::string& line : documentation()) {
    if (line.starts_with("| [`")) listed.push_back(line.substr(4, line.find('`', 4) - 4));
  }
  EXPECT_EQ(listed, subcommands());
  std::vector<std::string> described;
  for (const Section& section : sections()) {
    if (!section.name.empty()) described.push_back(section.name);
  }
  EXPECT_EQ(described, subcommands());
}

TEST_F(CliDocsTest, TheExamplesAreTrue) {
  const std::vector<Section> all = sections();
  for (const Section& section : all) {
    ASSERT_FALSE(section.examples.empty()) << section.name;
    makeStoreFor(section.name);
    for (const Example& example : section.examples) {
      const CliResult result =
          section.name == kWatch ? watchChanges(example.words, all) : zntopoRun(example.words);
      const std::string shown =
          section.name == kWatch ? result.err + result.out : result.out + result.err;
      EXPECT_TRUE(fits(trimmedLinesOf(shown), example.lines))
          << testing::PrintToString(example.words) << "\n"
          << shown;
    }
  }
}

/// The names of members of an answer: of itself, and of the objects in it. An object none of whose
/// names is documented is a list by name: its names are data.
void collect(const nlohmann::json& json, const std::set<std::string>& documented,
             std::set<std::string>& names) {
  for (const auto& [name, value] : json.items()) {
    if (json.is_object()) names.insert(name);
    std::set<std::string> inner;
    if (value.is_structured()) collect(value, documented, inner);
    const auto isDocumented = [&](const std::string& one) { return documented.contains(one); };
    if (std::any_of(inner.begin(), inner.end(), isDocumented)) names.merge(inner);
  }
}

/// One object, or one a line.
std::vector<nlohmann::json> answersIn(const std::string& out) {
  std::vector<nlohmann::json> answers;
  std::istringstream stream(out);
  while (stream >> std::ws && !stream.eof()) stream >> answers.emplace_back();
  return answers;
}

TEST_F(CliDocsTest, TheMembersOfAnAnswerAreThoseThatAreDocumented) {
  const std::vector<Section> all = sections();
  for (const std::string& command : subcommands()) {
    const Section& section = sectionOf(all, command);
    makeStoreFor(command);
    std::set<std::string> names;
    for (const Example& example : section.examples) {
      std::vector<std::string> call = example.words;
      call.emplace_back("--json");
      const std::string out = command == kWatch ? watchChanges(call, all).out : zntopoRun(call).out;
      for (nlohmann::json json : answersIn(out)) {
        json.erase("status");
        collect(json, section.members, names);
      }
    }
    EXPECT_EQ(names, section.members) << command;
  }
}

TEST_F(CliDocsTest, AFailureHasTheSameMembersAsAnAnswer) {
  const std::vector<Section> all = sections();
  for (const std::string& command : subcommands()) {
    // Each line of this one is an answer.
    if (command == kWatch) continue;
    makeStoreFor(command);
    std::vector<std::string> call = sectionOf(all, command).examples.front().words;
    call.emplace_back("--json");
    const nlohmann::json good = zntopoRun(call).json();
    // This one asks no store.
    if (command == "filter list") call.insert(call.end(), {"--file", "/nonexistent/x.xml"});
    setenv("TV_TOPO_STORE", "/nonexistent/x.db", 1);
    const auto option = std::find(call.begin(), call.end(), "--store");
    if (option != call.end()) call.erase(option, option + 2);
    const CliResult failed = zntopoRun(call);
    setenv("TV_TOPO_STORE", "campus.db", 1);
    EXPECT_EQ(failed.status, 1) << command;
    const nlohmann::json bad = failed.json();
    EXPECT_NE(bad["status"]["code"], 0) << command;
    ASSERT_EQ(bad.size(), good.size()) << command << bad.dump();
    for (const auto& [name, value] : good.items()) {
      ASSERT_TRUE(bad.contains(name)) << command << " " << name;
      EXPECT_EQ(bad[name].is_array(), value.is_array()) << command << " " << name;
    }
  }
}

}  // namespace
}  // namespace zntopo::test
