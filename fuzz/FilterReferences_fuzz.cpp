// Outside bytes as conditions that refer to one another, one a line: the first is the filter "a",
// the next "b", and so on. They come out as the plain reading of the rule has them.
#include "fuzz/Fuzz.h"
#include "fuzz/PlainExpansion.h"
#include "tests/support/TopoFiltHandlerPeer.h"

namespace {

using namespace zntopo;

class OpenHandler : public TopoFiltHandler {
 public:
  using TopoFiltHandler::m_FiltMap;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  OpenHandler handler;
  std::map<std::string, std::string> texts;
  char name = 'a';
  for (const std::string& text : fuzz::split(fuzz::textOf(data, size), '\n')) {
    if (name > 'j') break;
    const std::string key(1, name++);
    texts[key] = text;
    (handler.m_FiltMap[key] = TopoFilt(key, "Node", text)).setFinalWhereClause(text);
  }
  TvXplMsg::MessageList_t list;
  const int status = TopoFiltHandlerPeer::expand(handler, list);
  ZNTOPO_REQUIRE(status == fuzz::expandPlainly(texts));
  ZNTOPO_REQUIRE(list.GetMessageCount() == (status == ZN_API_SUCCESS ? 0 : 1));
  for (const auto& [key, text] : texts) {
    ZNTOPO_REQUIRE(handler.m_FiltMap.at(key).getFinalWhereClause() == text);
  }
  return 0;
}
