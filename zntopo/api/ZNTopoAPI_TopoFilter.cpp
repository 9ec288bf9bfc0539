// The definitions of XML filters: their loading, and their names.

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/core/detail/OperationScope.h"

namespace zntopo {

int ZNTopoAPI_Impl::ParseDefaultFile(ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("ParseDefaultFile");
  return loadFilters(theStatus, [this](TvXplMsg::MessageList_t& list) {
    return m_FiltHandler.ParseDefaultFile(list);
  });
}

int ZNTopoAPI_Impl::ParseXmlFile(const std::string& aFileName, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("ParseXmlFile");
  return loadFilters(theStatus, [&](TvXplMsg::MessageList_t& list) {
    return m_FiltHandler.ParseXmlFile(list, aFileName);
  });
}

int ZNTopoAPI_Impl::ParseXmlString(const std::string& aXmlString, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("ParseXmlString");
  return loadFilters(theStatus, [&](TvXplMsg::MessageList_t& list) {
    return m_FiltHandler.ParseXmlString(list, aXmlString);
  });
}

template <typename Load>
int ZNTopoAPI_Impl::loadFilters(ZNTopoAPIStatus& theStatus, const Load& load) {
  TvXplMsg::MessageList_t list;
  const int number = load(list);
  if (number != ZN_API_SUCCESS) {
    theStatus.setStatus(static_cast<ZNTopoStatus>(number));
    addErrorListMessage(list, theStatus);
  }
  return number;
}

std::map<std::string, std::pair<EntityType, std::string>> ZNTopoAPI_Impl::getDefaultFileFilterName(
    ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getDefaultFileFilterName");
  theStatus.reset();
  return m_FiltHandler.getFilterNameDesc();
}

}  // namespace zntopo
