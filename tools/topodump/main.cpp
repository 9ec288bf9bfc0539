// tvrz_topodump.tvpl: prints objects of the store in the forms that programs know.

#include <algorithm>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "tools/topodump/Dump.h"
#include "zntopo/api/ZNTopoAPIDefaultFactory.h"
#include "zntopo/model/ZNUtilMesg.h"

namespace zntopo::tools {

namespace {

int run(const std::vector<std::string>& words) {
  const std::optional<DumpCall> call = dumpCallOf(words);
  if (!call) {
    ZNUtilMesg::printTopoQueryHelp();
    return words == std::vector<std::string>{"-help"} || words == std::vector<std::string>{"--help"}
               ? DumpPrinted
               : DumpWrongCall;
  }
  ZNTopoAPIDefaultFactory factory;
  ZNTopoAPIStatus status = factory.initZNTopoAPI(ZNTopoConfig());
  const ZNRefPtr<ZNTopoAPI> api =
      status.isOK() ? factory.getRDInstance(status, ActiveDB) : ZNRefPtr<ZNTopoAPI>();
  const DumpStatus result = status.isOK() ? dump(*api, *call) : tellNothing(status);
  std::cout << std::flush;
  if (std::cout.good()) return result;
  std::cerr << "tvrz_topodump.tvpl: the answer could not be written" << std::endl;
  return DumpFailed;
}

}  // namespace
}  // namespace zntopo::tools

int main(int argc, char** argv) {
  return zntopo::tools::run({argv + std::min(argc, 1), argv + argc});
}
