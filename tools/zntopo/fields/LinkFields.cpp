#include "tools/zntopo/fields/LinkFields.h"

namespace zntopo::tools {

namespace {

constexpr Field<LinkEnd> kLinkEndFields[] = {
    {.key = "node", .value = member<&LinkEnd::node>},
    {.key = "node_id", .value = member<&LinkEnd::nodeId>},
    {.key = "interface", .value = member<&LinkEnd::interface>},
    {.key = "interface_id", .value = member<&LinkEnd::interfaceId>},
};

constexpr auto kSource = &NamedLink::source;
constexpr auto kDest = &NamedLink::dest;

constexpr Field<NamedLink> kLinkFields[] = {
    {.key = "source_node", .head = "NODE", .value = ofEnd<kSource, &LinkEnd::node>},
    {.key = "source_node_id", .value = ofEnd<kSource, &LinkEnd::nodeId>},
    {.key = "source_interface", .head = "INTERFACE", .value = ofEnd<kSource, &LinkEnd::interface>},
    {.key = "source_interface_id", .value = ofEnd<kSource, &LinkEnd::interfaceId>},
    {.key = "dest_node", .head = "NODE", .value = ofEnd<kDest, &LinkEnd::node>},
    {.key = "dest_node_id", .value = ofEnd<kDest, &LinkEnd::nodeId>},
    {.key = "dest_interface", .head = "INTERFACE", .value = ofEnd<kDest, &LinkEnd::interface>},
    {.key = "dest_interface_id", .value = ofEnd<kDest, &LinkEnd::interfaceId>},
};

}  // namespace

std::span<const Field<LinkEnd>> linkEndFields() { return kLinkEndFields; }

std::span<const Field<NamedLink>> linkFields() { return kLinkFields; }

}  // namespace zntopo::tools
