"""Reads a GraphML file for walk_over_file.py, by the rules of docs/import-graphml.md.

Ports, groups, drawings and directed edges are left to other tests: a file with them is refused,
but for ports that a single edge names.
"""
import collections
import xml.etree.ElementTree

from walk_network import Network

SPACE = "{http://graphml.graphdrawing.org/xmlns}"


class GraphmlFile(Network):
    """The nodes of a file, their interfaces and the links between them."""

    def __init__(self, path):
        root = xml.etree.ElementTree.parse(path).getroot()
        graph = root.find(SPACE + "graph")
        if graph.get("edgedefault") == "directed" or graph.find(f".//{SPACE}graph") is not None:
            raise SystemExit(f"{path}: this walk reads flat, undirected graphs only")
        keys = [key.get("id") for key in root.iter(SPACE + "key")
                if key.get("attr.name") == "label" and key.get("for") == "node"]
        self.labels = {node.get("id"): self.label(node, keys) for node in graph.iter(SPACE + "node")}
        self.label_counts = collections.Counter(self.labels.values())
        self.devices = set(self.labels)
        self.links = self.find_links(graph)

    @staticmethod
    def label(node, keys):
        for data in node.findall(SPACE + "data"):
            if data.get("key") in keys:
                return (data.text or "").strip()
        return ""

    def name(self, device):
        label = self.labels[device]
        if not label:
            return device
        return label if self.label_counts[label] == 1 else f"{label}-{device}"

    def find_links(self, graph):
        links = []
        used = collections.Counter()
        for edge in graph.findall(SPACE + "edge"):
            source, target = edge.get("source"), edge.get("target")
            if source == target:
                continue
            ends = []
            for here, there, port in ((source, target, edge.get("sourceport")),
                                      (target, source, edge.get("targetport"))):
                name = port or "to " + self.name(there)
                used[here, name] += 1
                if used[here, name] > 1:
                    name += f" ({used[here, name]})"
                # The library shows this much of a name.
                ends.append((here, name[:33]))
            links.append(frozenset(ends))
        if len(set(links)) != len(links):
            raise SystemExit("names of interfaces are too long, this walk can't tell links apart")
        return set(links)
