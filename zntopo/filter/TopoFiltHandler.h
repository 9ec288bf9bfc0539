#pragma once

#include <list>
#include <map>
#include <memory>
#include <stack>
#include <string>
#include <utility>

#include "zntopo/core/ObjID.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/filter/TopoFilt.h"
#include "zntopo/platform/tvxpl/TvXplMsg.h"
#include "zntopo/platform/tvxpl/TvXplXml.h"

namespace zntopo {

/// The filters that an instance of the API knows: loads their definitions and runs them.
///
/// The set only grows: nothing removes a filter, and a later one of the same name replaces an
/// earlier one. It has no lock: parsing is for one thread at a time, and no query may run on a
/// handler that is parsing. Handlers of their own may parse at the same time.
class TopoFiltHandler : public TvXplXml::SAX::DefaultHandler_t {
 public:
  /// Bytes of a condition that has references, with these expanded.
  static constexpr std::size_t kLargestCondition = 1'000'000;
  /// Bytes that expanding may put into all conditions together in one parse.
  static constexpr std::size_t kLargestExpansion = 100'000'000;

  /// Where the walk over the intermediate form stands.
  enum Context : int {
    Unset = 0,
    Document = 1,
    Filters = 2,
    Filter = 3,
    Assertion = 4,
    WhereQueryString = 5
  };

  TopoFiltHandler() = default;
  ~TopoFiltHandler() override;
  TopoFiltHandler(const TopoFiltHandler&) = delete;
  TopoFiltHandler& operator=(const TopoFiltHandler&) = delete;

  /// Load the definitions of a document: validate it against TopoFilter.xsd, turn it with
  /// Filter2IFilter.xsl into the intermediate form, read that, and expand references. The files are
  /// those of the filter configuration directory, and the default file is its TopoFilters.xml.
  /// @param list gathers what went wrong
  /// @return a number of ZNTopoStatus, 0 for success. After a failure of the last two steps the
  /// filters that were read stay.
  int ParseDefaultFile(TvXplMsg::MessageList_t& list);
  int ParseXmlFile(TvXplMsg::MessageList_t& list, const std::string& fileName);
  int ParseXmlString(TvXplMsg::MessageList_t& list, const std::string& xml);

  /// The names of all filters. Each comes with (E_Node, ""), whatever the filter selects.
  std::map<std::string, std::pair<EntityType, std::string>> getFilterNameDesc() const;
  /// 0, with the filter's type, if there is such a filter, else 1.
  int getFilterObjType(const std::string& name, EntityType& type) const;

  /// Runs a filter on the store, on the active tables: gives the identifiers of nodes and
  /// interfaces, and for a filter of addresses those of the addresses' owners (address.ObjId).
  ///
  /// A name that is not known joins the map as an empty filter, so threads may share a handler that
  /// nobody parses with as long as they ask for filters that are there.
  /// Errors: ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR, ZN_API_INTERNAL_ERROR without a connection,
  /// ZN_API_SQL_BIND_STATEMENT_ERROR, ZN_API_SQL_BIND_COLUMN_ERROR, ZN_API_SQL_EXEC_ERROR.
  /// @param list gathers what went wrong
  /// @return the identifiers found, as often as the statement gives them; never null
  std::unique_ptr<std::list<ObjID>> ExecFilter(TvXplMsg::MessageList_t& list,
                                               const std::string& filterName,
                                               ZNTopoAPIStatus& status);
  /// The same for a filter of addresses, with the identifiers of the addresses (address.AddressId).
  /// A filter of another kind ends in a failed statement.
  std::unique_ptr<std::list<ObjID>> ExecAddressFilter(TvXplMsg::MessageList_t& list,
                                                      const std::string& filterName,
                                                      ZNTopoAPIStatus& status);

  void StartElement(const char16_t* uri, const char16_t* localName, const char16_t* qName,
                    const TvXplXml::SAX::Attributes_i& attributes) override;
  void EndElement(const char16_t* uri, const char16_t* localName, const char16_t* qName) override;
  void Characters(const char16_t* chars, int start, int length) override;

 protected:
  Context m_Context = Unset;
  std::string m_objType;
  std::string m_objName;
  std::string m_WhereClause;
  /// One entry an open element, and one a parse.
  std::stack<Context> m_StateStack;
  std::map<std::string, TopoFilt> m_FiltMap;

 private:
  /// For tests of the expansion alone.
  friend struct TopoFiltHandlerPeer;
  struct Input;

  int parse(TvXplMsg::MessageList_t& list, Input&& input);
  int read(TvXplMsg::MessageList_t& list, const std::string& intermediate);
  std::unique_ptr<std::list<ObjID>> run(std::string (*sqlOf)(const TopoFilt&),
                                        TvXplMsg::MessageList_t& list,
                                        const std::string& filterName, ZNTopoAPIStatus& status);
  int SubstituteStringFiltMap(TvXplMsg::MessageList_t& list, const std::string& delimiter);
  void cleanup();
};

}  // namespace zntopo
