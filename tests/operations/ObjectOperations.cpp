// What objects ask of the store when they are asked themselves.

#include "tests/operations/Costs.h"
#include "zntopo/model/SubnetEndPoint.h"

namespace zntopo::test {
namespace {

const ZNTopoAPIStatus kOK;
constexpr Cost kInterfaces = kStatement + kAddresses;

constexpr Operation kOperations[] = {
    {"ZNNode::getInterfacesList",
     [](const Desk& desk) { return many(kOK, *hubOf(desk)->getInterfacesList()); },
     [](const Size& size) { return size.leaves + 1; }, Growth::None,
     [](const Size&) { return kState + kNodes + kInterfaces; }, kNothing,
     [](const Size&) { return kNodes + kInterfaces; }},
    {"ZNNode::getInterfaceIDList",
     [](const Desk& desk) {
       const auto ids = hubOf(desk)->getInterfaceIDList();
       return sorted(kOK, {ids.begin(), ids.end()});
     },
     [](const Size& size) { return size.leaves + 1; }, Growth::None,
     [](const Size&) { return kState + kNodes + kInterfaces; }, kNothing,
     [](const Size&) { return kNodes + kInterfaces; }},
    {"ZNNode::getL2LinkConnectedInterfacesList",
     [](const Desk& desk) { return many(kOK, *hubOf(desk)->getL2LinkConnectedInterfacesList()); },
     [](const Size& size) { return size.ring(); }, Growth::Batches,
     [](const Size& size) { return kState + kNodes + kInterfaces * batches(size.ring()); },
     kNothing, [](const Size& size) { return kNodes + kInterfaces * batches(size.ring()); },
     Whole::Part},
    {"ZNNode::getInterfaceByAddressValue",
     [](const Desk& desk) {
       return one(kOK, leafOf(desk)->getInterfaceByAddressValue(leafAddress(1), ZNAddress::IPv4));
     },
     kOne, Growth::None,
     [](const Size& size) { return kState + leafNodes(size) + kInterfaces + variables(size); },
     kNothing,
     [](const Size& size) { return leafNodes(size) + kInterfaces + variables(size) + kAddresses; }},
    {"ZNNode::getInterfaceByAddressValue of an address of another node",
     [](const Desk& desk) {
       return one(kOK, hubOf(desk)->getInterfaceByAddressValue(leafAddress(1), ZNAddress::IPv4));
     },
     kNone, Growth::Exceptional, [](const Size&) { return kState + kNodes + kInterfaces; },
     kNothing, [](const Size& size) { return kNodes + kInterfaces + kAddresses * size.leaves; }},
    {"ZNNode::getAllIfcInfo",
     [](const Desk& desk) {
       return Answer{ZN_API_SUCCESS,
                     std::vector<std::string>(leafOf(desk)->getAllIfcInfo().size(), "ifc")};
     },
     kOne, Growth::None, [](const Size& size) { return kState + leafNodes(size) + kStatement; },
     kOneStatement, [](const Size& size) { return leafNodes(size) + kStatement; }},
    {"ZNInterface::getConnData",
     [](const Desk& desk) {
       return Answer{ZN_API_SUCCESS,
                     std::vector<std::string>(interfaceOf(desk)->getConnData().size(), "link")};
     },
     kOne, Growth::None, [](const Size&) { return kState + kInterfaces + kNodes; }, kNothing,
     [](const Size&) { return kInterfaces + kNodes; }, Whole::Part},
    {"ZNInterface::getConnectedL2Interfaces",
     [](const Desk& desk) { return many(kOK, *interfaceOf(desk)->getConnectedL2Interfaces()); },
     kOne, Growth::None,
     [](const Size& size) { return kState + kInterfaces + kNodes + kStatement + variables(size); },
     kNothing, [](const Size& size) { return kInterfaces + kNodes + kStatement + variables(size); },
     Whole::Part},
    {"ZNEntity::getAddresses",
     [](const Desk& desk) { return manyAddresses(kOK, interfaceOf(desk)->getAddresses()); }, kOne,
     Growth::None, [](const Size&) { return kState + kInterfaces; }, kNothing,
     [](const Size&) { return kInterfaces + kAddresses; }},
    {"InetAddress::isInHSRP",
     [](const Desk& desk) {
       const auto address = addressOf(desk);
       const auto* const inet = dynamic_cast<const InetAddress*>(&*address);
       return Answer{ZN_API_SUCCESS, {inet != nullptr && !inet->isInHSRP() ? "no" : "yes"}};
     },
     kOne, Growth::None, [](const Size&) { return kState + kAddresses + kInterfaces; }, kNothing,
     [](const Size&) { return kAddresses + kInterfaces; }},
    {"SubnetEndPoint::toString",
     [](const Desk&) {
       const SubnetEndPoint point(ObjID(nodeID(Part::Hub)), ObjID(downID(Part::Leaf, 1)),
                                  ObjID(hubAddressID(1)));
       return Answer{ZN_API_SUCCESS, {point.toString(ActiveDB)}};
     },
     kOne, Growth::None, [](const Size&) { return kState + kNodes + kInterfaces; }, kNothing,
     [](const Size&) { return kNodes + kInterfaces + kAddresses; }},
};

}  // namespace

std::span<const Operation> objectOperations() { return kOperations; }

}  // namespace zntopo::test
