#include "zntopo/model/ZNConnection.h"

namespace zntopo {

std::string ZNConnection::toString() const {
  const std::string source =
      getSrcNodeObjID().getStrValue() + " ," + getSrcInterfaceObjID().getStrValue();
  const std::string dest =
      getDestNodeObjID().getStrValue() + " ," + getDestInterfaceObjID().getStrValue();
  const bool sourceFirst = myData.isNodeSide();
  return "\n ([ " + (sourceFirst ? source : dest) + "], [" + (sourceFirst ? dest : source) + "] )";
}

}  // namespace zntopo
