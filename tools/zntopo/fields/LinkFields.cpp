#include "tools/zntopo/fields/LinkFields.h"

namespace zntopo::tools {

namespace {

constexpr Field<LinkEnd> kEndFields[] = {
    {.key = "node", .value = member<&LinkEnd::node>},
    {.key = "node_id", .value = member<&LinkEnd::nodeId>},
    {.key = "interface", .value = member<&LinkEnd::interface>},
    {.key = "interface_id", .value = member<&LinkEnd::interfaceId>},
};

template <auto end, auto pointer>
Json of(const NamedLink& link) {
  return member<pointer>(link.*end);
}

constexpr auto kSource = &NamedLink::source;
constexpr auto kDest = &NamedLink::dest;

constexpr Field<NamedLink> kLinkFields[] = {
    {.key = "source_node", .head = "NODE", .value = of<kSource, &LinkEnd::node>},
    {.key = "source_node_id", .value = of<kSource, &LinkEnd::nodeId>},
    {.key = "source_interface", .head = "INTERFACE", .value = of<kSource, &LinkEnd::interface>},
    {.key = "source_interface_id", .value = of<kSource, &LinkEnd::interfaceId>},
    {.key = "dest_node", .head = "NODE", .value = of<kDest, &LinkEnd::node>},
    {.key = "dest_node_id", .value = of<kDest, &LinkEnd::nodeId>},
    {.key = "dest_interface", .head = "INTERFACE", .value = of<kDest, &LinkEnd::interface>},
    {.key = "dest_interface_id", .value = of<kDest, &LinkEnd::interfaceId>},
};

}  // namespace

std::span<const Field<LinkEnd>> linkEndFields() { return kEndFields; }

std::span<const Field<NamedLink>> linkFields() { return kLinkFields; }

}  // namespace zntopo::tools
