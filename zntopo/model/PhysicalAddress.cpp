#include "zntopo/model/PhysicalAddress.h"

namespace zntopo {

PhysicalAddress::PhysicalAddress() : ZNAddress(Physical, ActiveDB) {}

PhysicalAddress::PhysicalAddress(const std::string& addrVal)
    : ZNAddress(Physical, ActiveDB), _addrVal(addrVal) {}

PhysicalAddress::PhysicalAddress(const std::string& addrVal, const ObjID& addrID,
                                 const ObjID& entID)
    : ZNAddress(Physical, addrID, entID, ActiveDB), _addrVal(addrVal) {}

PhysicalAddress::~PhysicalAddress() = default;

const std::string& PhysicalAddress::getAddressAsString() const { return _addrVal; }
std::string PhysicalAddress::toString() const { return ""; }

}  // namespace zntopo
