#include "zntopo/model/ZNUtilMesg.h"

#include <iostream>
#include <string>
#include <vector>

#include "zntopo/core/detail/MessageTexts.h"
#include "zntopo/model/detail/Rendering.h"
#include "zntopo/model/detail/TableRow.h"

namespace zntopo {

namespace {

namespace messages = detail::messages;

constexpr const detail::Message* kNodeColumns[] = {&messages::kName,     &messages::kStatus,
                                                   &messages::kCommAddr, &messages::kPrivateAddr,
                                                   &messages::kOADId,    &messages::kIPVer};

/// The usage, catalogue texts and plain ones in their order.
constexpr detail::Label kHelp[] = {
    messages::kUsage,
    "tvrz_topodump.tvpl [-node|-nodeif|-info|-lfilt]",
    messages::kNodeUsage,
    "\t-node\t[<OADId> | -filt ",
    messages::kFilterUsageInBrackets,
    "\t-nodeif\t[<OADId> | -filt ",
    messages::kFilterUsageInBrackets,
    "\t-node\t",
    messages::kAddressUsage,
    "\t-nodeif\t",
    messages::kAddressUsage,
    "\t-if\t-filt ",
    messages::kFilterUsage,
    "\t-info\n",
    "\t-lfilt\n",
};

}  // namespace

void ZNUtilMesg::printTopoQueryNodeDisplayHeader() {
  std::vector<std::string> cells;
  for (const detail::Message* const column : kNodeColumns) cells.emplace_back(column->get());
  std::cout << detail::kNodeHeader.row(cells) << std::flush;
}

void ZNUtilMesg::printTopoQueryNotFoundMessage() {
  std::cout << messages::kNoObjects.get() << std::flush;
}

void ZNUtilMesg::logTopoQueryErrorMessage(ZNTopoAPIStatus& theStatus) {
  std::cerr << messages::kRetrievalError.get() << std::endl;
  std::cerr << messages::kErrorMessage.get() << theStatus.getStatusMsg() << std::endl;
  std::cerr << messages::kAuxMessage.get() << theStatus.getAuxMsg() << std::endl;
}

void ZNUtilMesg::printTopoQueryHelp() {
  for (const detail::Label& text : kHelp) std::cout << text.get();
  std::cout << std::flush;
}

}  // namespace zntopo
