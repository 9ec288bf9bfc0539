#include "zntopo/core/ZNTopoAPIStatus.h"

#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/MessageTexts.h"

namespace zntopo {

void ZNTopoAPIStatus::reset() {
  myStatus = ZN_API_SUCCESS;
  myAuxStatusMsg.clear();
}

void ZNTopoAPIStatus::setStatus(ZNTopoStatus status) {
  myStatus = status;
  MCLog::log(MC_CRITICAL, "TopoAPI Error Code : %d\n", static_cast<int>(status));
}

void ZNTopoAPIStatus::addAuxMsg(const std::string& text) {
  myAuxStatusMsg += text;
  myAuxStatusMsg += '\n';
  MCLog::log(MC_CRITICAL, "%s\n", myAuxStatusMsg.c_str());
}

std::string ZNTopoAPIStatus::getStatusMsg() const { return detail::statusMessage(myStatus).get(); }

}  // namespace zntopo
