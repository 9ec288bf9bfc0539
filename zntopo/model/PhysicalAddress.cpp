#include "zntopo/model/PhysicalAddress.h"

#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Line = detail::Line<PhysicalAddress>;

constexpr Line kText[] = {
    {"\n++++++++++++++++PhysicalAddress++++++++++++", Line::baseText<ZNAddress>},
    {"\nPhysicalAddress:", Line::of<&PhysicalAddress::getAddressAsString>},
    {"\n---------------PhysicalAddress-------------"},
};

}  // namespace

PhysicalAddress::PhysicalAddress() : ZNAddress(Physical, ActiveDB) {}

PhysicalAddress::PhysicalAddress(const std::string& addrVal)
    : ZNAddress(Physical, ActiveDB), _addrVal(addrVal) {}

PhysicalAddress::PhysicalAddress(const std::string& addrVal, const ObjID& addrID,
                                 const ObjID& entID)
    : ZNAddress(Physical, addrID, entID, ActiveDB), _addrVal(addrVal) {}

PhysicalAddress::~PhysicalAddress() = default;

const std::string& PhysicalAddress::getAddressAsString() const { return _addrVal; }
std::string PhysicalAddress::toString() const { return detail::rendered(*this, kText); }

}  // namespace zntopo
