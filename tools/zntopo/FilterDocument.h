#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tools/zntopo/Lookup.h"
#include "zntopo/filter/TopoFiltHandler.h"
#include "zntopo/platform/tvxpl/TvXplMsg.h"

namespace zntopo::tools {

/// A number from 1 on in a file, or nothing where no place is known.
using FilePosition = std::optional<unsigned long>;

/// What is wrong with a document of filters, and where.
struct FilterFault {
  std::string file = {};
  FilePosition line = {};
  FilePosition column = {};
  std::string message = {};

  /// "site.xml:12:40: message", on one line.
  std::string text() const;
};

/// A text of several lines as one, without the blanks at its end.
std::string onOneLine(std::string text);

/// The statement that runs a filter.
std::string statementOf(const TopoFilt& filter);

/// A document of filters, as the library reads it: one document, whatever was read before.
class FilterDocument {
 public:
  /// Reads a file; the default file of the configuration for an empty name. What is wrong with the
  /// document is in status() and faults(). Throws an ImportError if the file of a document that the
  /// library has read can't be read again for the places of its filters.
  explicit FilterDocument(const std::string& file);

  /// As the user has it, or the path of the default file.
  const std::string& file() const { return file_; }
  /// ZN_API_SUCCESS, or why the document could not be read; faults() then tells what is wrong.
  ZNTopoStatus status() const { return status_; }
  const std::vector<FilterFault>& faults() const { return faults_; }
  /// Throws a Failure for a failed reading, with the first faults.
  void require() const;

  /// The filters by name, references expanded; nothing to rely on after a failed reading.
  const std::map<std::string, TopoFilt>& filters() const { return handler_.filters(); }
  /// The filter of a name. Throws a Failure ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR that tells a
  /// name like it if there is none.
  const TopoFilt& find(const std::string& name) const;
  /// What a filter is for, in the words of the document; empty if it has none.
  std::string description(const std::string& name) const;
  /// Where a filter is defined: a fault of it, as yet without a message.
  FilterFault faultOf(const std::string& name) const;

  /// Runs a filter on the store: gives the identifiers of the objects that it selects. Throws a
  /// Failure.
  Identifiers run(Session& session, const TopoFilt& filter);

 private:
  /// What the document says of a filter beside its condition.
  struct Definition {
    FilePosition line;
    FilePosition column;
    std::string description;
  };

  /// The library's filters, to look at each.
  class Handler : public TopoFiltHandler {
   public:
    const std::map<std::string, TopoFilt>& filters() const { return m_FiltMap; }
  };

  void readDefinitions();
  void addFaults(const TvXplMsg::MessageList_t& messages);
  /// Whether a message is about a filter: it names the filter, or something to which the filter
  /// refers, or the filter has come to refer to itself.
  bool isAbout(const std::string& message, const std::string& name) const;

  std::string file_;
  ZNTopoStatus status_;
  std::vector<FilterFault> faults_;
  Handler handler_;
  std::map<std::string, Definition> definitions_;
};

}  // namespace zntopo::tools
