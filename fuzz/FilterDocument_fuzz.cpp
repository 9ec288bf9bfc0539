// Outside bytes as a filter document, from validation to expansion, with the little language of the
// tests: its element "raw" hands a text on as the intermediate form.
#include <set>

#include "fuzz/FilterFolder.h"
#include "zntopo/core/ZNTopoStatus.h"
#include "zntopo/filter/FilterNamespace.h"
#include "zntopo/filter/TopoFiltHandler.h"
#include "zntopo/filter/XMLUtil.h"

namespace {

using namespace zntopo;

const std::set<int> kStatuses = {ZN_API_SUCCESS,
                                 ZN_API_XML_FILTER_VALIDATION_ERROR,
                                 ZN_API_XML_FILTER_TRANSFORMATION_ERROR,
                                 ZN_API_XML_PARSE_ERROR,
                                 ZN_API_XML_FILTER_FILE_UNBALANCED_DELIMITERS,
                                 ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR,
                                 ZN_API_XML_FILTER_KEY_NOT_FOUND_ERROR,
                                 ZN_API_XML_FILTER_SUBSTITUTION_ERROR};

class OpenHandler : public TopoFiltHandler {
 public:
  void check(int status) const {
    ZNTOPO_REQUIRE(kStatuses.count(status) == 1);
    const bool isRefused = status == ZN_API_XML_FILTER_VALIDATION_ERROR ||
                           status == ZN_API_XML_FILTER_TRANSFORMATION_ERROR;
    ZNTOPO_REQUIRE(!isRefused || (m_FiltMap.empty() && m_StateStack.empty()));
    if (status != ZN_API_SUCCESS) return;
    ZNTOPO_REQUIRE(m_StateStack.size() == 1 && m_Context == Unset);
    for (const auto& [name, filter] : m_FiltMap) {
      ZNTOPO_REQUIRE(filter.getName() == name);
      ZNTOPO_REQUIRE(filter.getFinalWhereClause().find('#') == std::string::npos);
    }
  }
};

/// The files of the tests, and one that "HostIDFile" elements may name.
struct Configuration : fuzz::FilterFolder {
  Configuration() : FilterFolder(ZNTOPO_SOURCE_DIR "/tests/filter/config") {
    write("hosts.xml", std::string("<hosts xmlns='") + kTopologyFilterNamespace +
                           "'><host>core-1</host><host>core-2</host></hosts>");
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Configuration configuration;
  // Keeps the libraries started.
  static bool isStarted = false;
  static std::string error;
  static const XMLUtil keeper(isStarted, error);
  ZNTOPO_REQUIRE(isStarted);
  OpenHandler handler;
  TvXplMsg::MessageList_t list;
  const int status = handler.ParseXmlString(list, fuzz::textOf(data, size));
  ZNTOPO_REQUIRE((status == ZN_API_SUCCESS) == (list.GetMessageCount() == 0));
  handler.check(status);
  return 0;
}
