"""Reads an RFC 8345 file for walk_over_file.py, by the rules of docs/import-rfc8345.md."""
import ipaddress
import json

from walk_network import Network


def member(obj, name, default=None):
    """A member with or without its module's name."""
    for key, value in obj.items():
        if key == name or key.split(":", 1)[-1] == name:
            return value
    return default


def is_address(text):
    try:
        ipaddress.ip_address(text)
        return True
    except ValueError:
        return False


class Rfc8345File(Network):
    """The devices of a file, their interfaces and the links between them."""

    def __init__(self, path):
        document = json.loads(path.read_text())
        self.networks = {}
        self.nodes = {}
        self.tps = {}
        for network in member(member(document, "networks"), "network"):
            net = network["network-id"]
            self.networks[net] = network
            for node in member(network, "node", []):
                self.nodes[net, node["node-id"]] = node
                for tp in member(node, "termination-point", []):
                    self.tps[net, node["node-id"], tp["tp-id"]] = tp
        self.device_cache = {}
        self.devices = {self.device(key) for key in self.nodes} - {None}
        self.routers = {self.device(key) for key in self.nodes
                        if self.kind(key[0]) == "l3" and self.has_router_id(key)} - {None}
        self.links = self.find_links()

    def kind(self, net):
        types = [name.split(":", 1)[-1] for name in member(self.networks[net], "network-types", {})]
        if not types:
            return "untyped"
        if "l2-topology" in types or "l2-network" in types:
            return "l2"
        if "l3-unicast-topology" in types or "l3-topology" in types:
            return "l3"
        return "other"

    def below(self, key):
        refs = [(r["network-ref"], r["node-ref"])
                for r in member(self.nodes[key], "supporting-node", [])]
        return [ref for ref in refs if ref in self.nodes]

    def is_physical(self, net):
        if self.kind(net) != "untyped":
            return False
        return all(low[0] == net or self.is_physical(low[0])
                   for key in self.nodes if key[0] == net for low in self.below(key))

    def layer3(self, key):
        return member(self.nodes[key], "l3-node-attributes", {})

    def has_router_id(self, key):
        return any(is_address(r) for r in member(self.layer3(key), "router-id", []))

    def has_addresses(self, key):
        for tp in member(self.nodes[key], "termination-point", []):
            attributes = member(tp, "l3-termination-point-attributes", {})
            for address in member(attributes, "ip-address", []):
                if is_address(address.split("/")[0]):
                    return True
        return False

    def tp_refs(self, tp):
        return [(r["network-ref"], r["node-ref"], r["tp-ref"])
                for r in member(tp, "supporting-termination-point", [])]

    def device(self, key):
        """The lowest node of the device that a node is a part of; None for what is no device."""
        if key not in self.device_cache:
            self.device_cache[key] = self.find_device(key)
        return self.device_cache[key]

    def find_device(self, key):
        devices = {self.device(low) for low in self.below(key)} - {None}
        if self.is_physical(key[0]):
            shared = {self.device(ref[:2])
                      for tp in member(self.nodes[key], "termination-point", [])
                      for ref in self.tp_refs(tp) if ref[:2] != key and ref[:2] in self.below(key)}
            return shared.pop() if len(shared) == 1 else key
        if self.kind(key[0]) == "l3" and self.is_segment(key, devices):
            return None
        if len(devices) == 1:
            return devices.pop()
        if self.kind(key[0]) == "l2" or (self.kind(key[0]) == "l3" and not devices):
            return key
        return None

    def is_segment(self, key, devices):
        if self.has_addresses(key):
            return False
        flags = member(self.layer3(key), "flag", [])
        if "pseudo-node" in flags or "l3-segment" in flags or key[1].startswith("Seg."):
            return True
        if len(devices) > 1:
            return True
        return (not devices and bool(member(self.layer3(key), "prefix", []))
                and not self.has_router_id(key) and not member(self.layer3(key), "name"))

    def interface(self, key):
        """The lowest termination point of the interface that a termination point is."""
        node, refs = key[:2], self.tp_refs(self.tps[key])
        device = self.device(node)
        found = {self.interface(ref) for ref in refs
                 if ref in self.tps and ref[:2] != node and self.device(ref[:2]) == device}
        others = [ref for ref in refs if ref in self.tps
                  and (ref[:2] == node or self.device(ref[:2]) != device)]
        if len(found) == 1 and not others:
            return found.pop()
        silent = not any(self.tp_refs(tp)
                         for tp in member(self.nodes[node], "termination-point", []))
        if silent:
            for low in self.below(node):
                if low + (key[2],) in self.tps and self.device(low) == device:
                    return self.interface(low + (key[2],))
        return key

    def find_links(self):
        links = set()
        for net, network in self.networks.items():
            if not self.is_physical(net) and self.kind(net) != "l2":
                continue
            for link in member(network, "link", []):
                ends = []
                source, dest = link["source"], link["destination"]
                for node, tp in ((source["source-node"], source["source-tp"]),
                                 (dest["dest-node"], dest["dest-tp"])):
                    key = (net, node, tp)
                    if key in self.tps and self.device(key[:2]):
                        ends.append((self.device(key[:2]), self.label(self.interface(key))))
                if len(ends) == 2 and ends[0][0] != ends[1][0]:
                    links.add(frozenset(ends))
        return links

    def label(self, key):
        """The name of the interface whose lowest termination point this is."""
        attributes = member(self.tps[key], "l2-termination-point-attributes", {})
        name = member(attributes, "interface-name") or key[2]
        if self.device(key[:2])[1] != key[1]:
            name = key[1] + "/" + name
        return name[:33]

    def name(self, device):
        node = self.nodes[device]
        return (member(member(node, "l2-node-attributes", {}), "name")
                or member(self.layer3(device), "name") or device[1])
