#!/usr/bin/env python3
"""Imports RFC 8345 files and holds zntopo's answers against a plain walk over the file.

    walk_over_file.py ZNTOPO FILE_OR_FOLDER...

For every pair of nodes, with and without crossing routers: the number of hops of `path` is that
of a breadth-first walk, and the path itself follows links of the file. For every node and 1 to 3
hops: `neighbors` lists the links that the walk finds. The walk shares no code with the importer;
both follow docs/import-rfc8345.md. Exit status 77: there is no file to read.
"""
import collections
import concurrent.futures
import ipaddress
import json
import os
import pathlib
import subprocess
import sys
import tempfile


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


class File:
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

    def distances(self, start, cross_routers=True):
        """How many links away each device is; a router is gone through only if that is allowed."""
        far = collections.defaultdict(set)
        for link in self.links:
            (left, _), (right, _) = link
            far[left].add(right)
            far[right].add(left)
        distance = {start: 0}
        queue = collections.deque([start])
        while queue:
            here = queue.popleft()
            if here != start and here in self.routers and not cross_routers:
                continue
            for there in far[here] - distance.keys():
                distance[there] = distance[here] + 1
                queue.append(there)
        return distance


class Checker:
    def __init__(self, zntopo, path, folder):
        self.zntopo = zntopo
        self.file = File(path)
        self.environment = dict(os.environ, TV_TOPO_STORE=str(folder / "walk.db"))
        self.names = {self.file.name(device): device for device in self.file.devices}
        if len(self.names) != len(self.file.devices):
            raise SystemExit(f"{path}: names are not unique, this walk can't tell nodes apart")
        self.links = {frozenset((self.file.name(device), port) for device, port in link)
                      for link in self.file.links}
        self.problems = []
        self.count = 0
        for arguments in (["init"], ["import", str(path)]):
            status, answer, errors = self.run(arguments)
            if status:
                raise SystemExit(f"{path}: {arguments[0]} failed: {errors}")

    def run(self, arguments):
        done = subprocess.run([self.zntopo, *arguments, "--json"], env=self.environment,
                              capture_output=True, text=True, check=False)
        return done.returncode, json.loads(done.stdout) if done.stdout else None, done.stderr

    def expect(self, is_so, what):
        self.count += 1
        if not is_so:
            self.problems.append(what)

    def check_all(self):
        _, answer, _ = self.run(["nodes"])
        listed = {node["name"]: node for node in answer["nodes"]}
        self.expect(listed.keys() == self.names.keys(),
                    f"nodes: {sorted(listed)} instead of {sorted(self.names)}")
        for name, device in self.names.items():
            self.expect(listed.get(name, {}).get("router") == (device in self.file.routers),
                        f"node {name}: whether it is a router")
        tasks = []
        for start in self.names:
            for crossing in (True, False):
                distance = self.file.distances(self.names[start], crossing)
                tasks += [(self.check_path, start, end, crossing, distance)
                          for end in self.names if end != start]
            tasks += [(self.check_neighbors, start, hops) for hops in (1, 2, 3)]
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            for future in [pool.submit(*task) for task in tasks]:
                future.result()

    def check_path(self, start, end, crossing, distance):
        what = f"path {start} {end}{' --cross-routers' if crossing else ''}"
        status, answer, _ = self.run(["path", start, end] + ["--cross-routers"] * crossing)
        hops = distance.get(self.names[end])
        if hops is None:
            self.expect(status == 1 and answer["status"]["name"] == "ZN_API_NO_PATH", what)
            return
        self.expect(status == 0 and answer["hops"] == hops,
                    f"{what}: {answer['hops']} hops instead of {hops}, {answer['status']}")
        steps = [(step["node"], step["interface"]) for step in answer["interfaces"]]
        if status == 0:
            self.expect(steps[0][0] == start and steps[-1][0] == end, f"{what}: wrong ends")
        for one, other in zip(steps, steps[1:]):
            if one[0] != other[0]:
                self.expect(frozenset((one, other)) in self.links, f"{what}: no link {one} {other}")

    def check_neighbors(self, start, hops):
        distance = self.file.distances(self.names[start])
        near = {self.file.name(device) for device, far in distance.items() if far <= hops}
        wanted = {link for link in self.links if all(name in near for name, _ in link)}
        status, answer, _ = self.run(
            ["neighbors", start, "--hops", str(hops), "--max-nodes", "10000"])
        got = [frozenset(((c["source_node"], c["source_interface"]),
                          (c["dest_node"], c["dest_interface"]))) for c in answer["connections"]]
        self.expect(status == 0 and len(got) == len(set(got)) and set(got) == wanted,
                    f"neighbors {start} --hops {hops}: {len(got)} links instead of {len(wanted)}")


def main():
    zntopo = sys.argv[1]
    files = []
    for argument in map(pathlib.Path, sys.argv[2:]):
        if argument.is_dir():
            files += sorted(argument.glob("ietf-netoviz/*.json"))
            files += sorted(argument.glob("derived/*.rfc8345.json"))
        elif argument.exists():
            files.append(argument)
    if not files:
        print("There is no file to read.")
        sys.exit(77)
    is_good = True
    for path in files:
        with tempfile.TemporaryDirectory() as folder:
            checker = Checker(zntopo, path, pathlib.Path(folder))
            checker.check_all()
        print(f"{path.name}: {len(checker.names)} nodes, {len(checker.links)} links, "
              f"{checker.count} checks, {len(checker.problems)} problems")
        for problem in checker.problems[:20]:
            print("  " + problem)
        is_good = is_good and not checker.problems
    sys.exit(0 if is_good else 1)


if __name__ == "__main__":
    main()
