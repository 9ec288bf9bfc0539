#include "zntopo/model/UserDefVar.h"

namespace zntopo {

std::string UserDefVar::toString() const { return "\nVarName:" + _name + "\n" + _val.toString(); }

}  // namespace zntopo
