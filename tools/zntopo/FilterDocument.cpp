#include "tools/zntopo/FilterDocument.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <functional>
#include <iterator>
#include <sstream>
#include <string_view>

#include "tools/import/XmlDocument.h"
#include "tools/network/PlainText.h"
#include "tools/zntopo/NameLookup.h"
#include "tools/zntopo/Spelling.h"
#include "zntopo/filter/TopoFiltSql.h"
#include "zntopo/platform/tv/BuildPath.h"

namespace zntopo::tools {

namespace {

/// A file of the configuration.
std::string configured(const std::string& name) {
  return _TVBuildPath("%TV_ETC_PATH%\\conf", "qrmrz/topology/filter/" + name);
}

std::string defaultFile() { return configured("TopoFilters.xml"); }

/// A fault of the configuration, which is no fault of any document.
std::optional<FilterFault> missingFile(const std::string& document) {
  for (const char* const name : {"TopoFilters.xml", "TopoFilter.xsd", "Filter2IFilter.xsl"}) {
    const std::string file = configured(name);
    const bool isNeeded = document == defaultFile() || file != defaultFile();
    if (!isNeeded || std::filesystem::exists(file)) continue;
    return FilterFault{.file = file,
                       .message =
                           "The file is missing. TV_ETC_PATH names the folder in which it has to "
                           "be: docs/filter-configuration.md tells more."};
  }
  return std::nullopt;
}

/// Takes a number and the text before it from the end of a line: ", line 12".
FilePosition takeNumber(std::string_view& line, std::string_view word) {
  const std::size_t at = line.rfind(word);
  if (at == std::string_view::npos) return std::nullopt;
  const std::string_view digits = line.substr(at + word.size());
  unsigned long number = 0;
  const auto [end, fault] = std::from_chars(digits.begin(), digits.end(), number);
  if (fault != std::errc() || end != digits.end()) return std::nullopt;
  line = line.substr(0, at);
  return number;
}

/// The place that a line of a validation's diagnostics tells: "Error at file F, line 1, char 2".
std::optional<FilterFault> placeOf(std::string_view line) {
  constexpr std::string_view kHeadings[] = {"Error at file ", "Fatal Error at file ",
                                            "Warning at file "};
  const auto* const heading =
      std::find_if(std::begin(kHeadings), std::end(kHeadings),
                   [&](std::string_view one) { return line.starts_with(one); });
  if (heading == std::end(kHeadings)) return std::nullopt;
  line.remove_prefix(heading->size());
  const FilePosition column = takeNumber(line, ", char ");
  const FilePosition row = takeNumber(line, ", line ");
  if (!column || !row) return std::nullopt;
  // What has no place is at 0.
  const bool isPlaced = *row > 0;
  return FilterFault{std::string(line), isPlaced ? row : std::nullopt,
                     isPlaced ? column : std::nullopt, ""};
}

/// The diagnostics in a text: each a line with its place and a message below.
std::vector<FilterFault> diagnosticsOf(const std::string& text) {
  constexpr std::string_view label = "  Message: ";
  std::vector<FilterFault> faults;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (auto fault = placeOf(line)) {
      faults.push_back(std::move(*fault));
    } else if (!faults.empty() && !line.empty()) {
      std::string& message = faults.back().message;
      message +=
          message.empty() && line.starts_with(label) ? line.substr(label.size()) : " " + line;
    }
  }
  return faults;
}

/// A text behind the lines that name what was being done with which file.
std::string withoutHeading(const std::string& text) {
  for (const std::string_view end : {"validation Error.\n", "transformation error.\n"}) {
    const std::size_t at = text.find(end);
    if (at != std::string::npos) return text.substr(at + end.size());
  }
  return text;
}

/// What a stylesheet says as it refuses a document, without what its processor puts around it.
std::string withoutProcessor(std::string text) {
  constexpr std::string_view heading = "ElemMessageTerminateExpression: ";
  const std::size_t at = text.find(heading);
  if (at == std::string::npos) return text;
  text.erase(0, at + heading.size());
  return text.substr(0, text.rfind(" (Occurred in entity "));
}

std::filesystem::path plainPath(const std::string& file) {
  return std::filesystem::absolute(file).lexically_normal();
}

/// Hears what a document says of each filter: its elements below the root.
class DefinitionReader : public XmlHandler {
 public:
  using Hear = std::function<void(const XmlElement& element)>;
  explicit DefinitionReader(Hear hear) : hear_(std::move(hear)) {}

  void startElement(const XmlElement& element) override {
    if (++depth_ == 2) hear_(element);
  }
  void endElement() override { --depth_; }
  void text(std::string_view /*text*/) override {}

 private:
  Hear hear_;
  int depth_ = 0;
};

}  // namespace

std::string onOneLine(std::string text) {
  text.erase(text.find_last_not_of(" \n") + 1);
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

std::string FilterFault::text() const {
  std::string place = file;
  for (const FilePosition& position : {line, column}) {
    if (position) place += ":" + std::to_string(*position);
  }
  return printable(place + ": " + message);
}

FilterDocument::FilterDocument(const std::string& file)
    : file_(file.empty() ? defaultFile() : file), status_(ZN_API_SUCCESS) {
  TvXplMsg::MessageList_t messages;
  status_ = static_cast<ZNTopoStatus>(handler_.ParseXmlFile(messages, file_));
  // What is not valid may be no XML at all.
  if (status_ != ZN_API_XML_FILTER_VALIDATION_ERROR) readDefinitions();
  if (status_ != ZN_API_SUCCESS) addFaults(messages);
}

void FilterDocument::readDefinitions() {
  DefinitionReader reader([this](const XmlElement& element) {
    const std::string* const name = element.find("name");
    if (!name) return;
    const std::string* const description = element.find("description");
    definitions_[*name] = {element.place.line, element.place.column,
                           description ? *description : ""};
  });
  readXml(loadInputFile(file_), reader);
}

void FilterDocument::addFaults(const TvXplMsg::MessageList_t& messages) {
  if (const auto missing = missingFile(file_)) {
    faults_ = {*missing};
    return;
  }
  // The first message tells what is wrong, and others quote the document.
  const std::string& text = messages.GetMessage(0).GetText();
  faults_ = diagnosticsOf(text);
  for (FilterFault& fault : faults_) {
    if (plainPath(fault.file) == plainPath(file_)) fault.file = file_;
  }
  if (!faults_.empty()) return;
  const auto culprit = std::find_if(definitions_.begin(), definitions_.end(),
                                    [&](const auto& one) { return isAbout(text, one.first); });
  FilterFault fault =
      culprit == definitions_.end() ? FilterFault{.file = file_} : faultOf(culprit->first);
  fault.message = withoutProcessor(onOneLine(withoutHeading(text)));
  faults_.push_back(std::move(fault));
}

bool FilterDocument::isAbout(const std::string& message, const std::string& name) const {
  for (const std::string& sign : {"[" + name + "]", "Filter " + name + ": "}) {
    if (message.find(sign) != std::string::npos) return true;
  }
  const auto found = filters().find(name);
  if (found == filters().end()) return false;
  const TopoFilt& filter = found->second;
  const auto refersTo = [](const std::string& condition, const std::string& other) {
    return condition.find("#" + other + "#") != std::string::npos;
  };
  const std::size_t open = message.find('[');
  if (open == std::string::npos) return refersTo(filter.getFinalWhereClause(), name);
  const std::string key = message.substr(open + 1, message.find(']', open) - open - 1);
  return refersTo(filter.getWhereQueryString(), key);
}

void FilterDocument::require() const {
  if (status_ == ZN_API_SUCCESS) return;
  constexpr std::size_t most = 10;
  std::string text;
  for (std::size_t i = 0; i < faults_.size() && i < most; ++i) {
    text += (i == 0 ? "" : "\n") + faults_[i].text();
  }
  if (faults_.size() > most) {
    text += "\nand " + std::to_string(faults_.size() - most) +
            " more, which \"zntopo filter check " + shellWord(file_) + "\" lists";
  }
  throw Failure(status_, text);
}

const TopoFilt& FilterDocument::find(const std::string& name) const {
  const auto found = filters().find(name);
  if (found != filters().end()) return found->second;
  std::vector<std::string> names;
  for (const auto& [one, filter] : filters()) names.push_back(one);
  const std::string near = nearest(name, names);
  const std::string option = file_ == defaultFile() ? "" : " --file " + shellWord(file_);
  throw Failure(
      ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR,
      "There is no filter \"" + printable(name) + "\" in " + printable(file_) + "." +
          (near.empty() ? " \"zntopo filter list" + option + "\" lists those that there are."
                        : " Did you mean \"" + near + "\"?"));
}

std::string FilterDocument::description(const std::string& name) const {
  const auto found = definitions_.find(name);
  return found == definitions_.end() ? "" : found->second.description;
}

FilterFault FilterDocument::faultOf(const std::string& name) const {
  const auto found = definitions_.find(name);
  if (found == definitions_.end()) return {.file = file_};
  return {.file = file_, .line = found->second.line, .column = found->second.column};
}

std::string statementOf(const TopoFilt& filter) {
  return filter.getObjType() == E_Address ? addressesOfTopoFiltSql(filter)
                                          : objectsOfTopoFiltSql(filter);
}

Identifiers FilterDocument::run(Session& session, const TopoFilt& filter) {
  requireReady(session);
  TvXplMsg::MessageList_t messages;
  ZNTopoAPIStatus status;
  const auto ids = filter.getObjType() == E_Address
                       ? handler_.ExecAddressFilter(messages, filter.getName(), status)
                       : handler_.ExecFilter(messages, filter.getName(), status);
  if (!status.isOK()) status.addAuxMsg(messages.Format(TvXplMsg::fRecurse_k));
  check(status);
  return Identifiers(*ids);
}

}  // namespace zntopo::tools
