#!/usr/bin/env python3
"""Imports network files and holds zntopo's answers against a plain walk over each.

    walk_over_file.py ZNTOPO FILE_OR_PATTERN...

For every pair of nodes, with and without crossing routers: the number of hops of `path` is that
of a breadth-first walk, and the path itself follows links of the file. For every node and several
numbers of hops: `neighbors` lists the links that the walk finds, each parallel one of them. The
walk shares no code with the importer; both follow docs/import-*.md. Exit status 77: the folders
of the files are missing.
"""
import concurrent.futures
import glob
import json
import os
import pathlib
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True  # the folder of the sources stays as it is

from walk_graphml import GraphmlFile  # noqa: E402
from walk_rfc8345 import Rfc8345File  # noqa: E402

HOPS = (1, 2, 3, 5)


class Checker:
    def __init__(self, zntopo, path, folder):
        self.zntopo = zntopo
        self.file = GraphmlFile(path) if path.suffix == ".graphml" else Rfc8345File(path)
        self.environment = dict(os.environ, TV_TOPO_STORE=str(folder / "walk.db"))
        self.names = {self.file.name(device): device for device in self.file.devices}
        if len(self.names) != len(self.file.devices):
            raise SystemExit(f"{path}: names are not unique, this walk can't tell nodes apart")
        self.links = {frozenset((self.file.name(device), port) for device, port in link)
                      for link in self.file.links}
        self.problems = []
        self.count = 0
        self.pairs = 0
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
        self.pairs = len(tasks)
        tasks += [(self.check_neighbors, start, hops) for start in self.names for hops in HOPS]
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


def files_of(patterns):
    """The files of all patterns. A folder may be missing; one that is there must have files."""
    files = []
    for pattern in patterns:
        found = sorted(glob.glob(pattern))
        if not found and os.path.isdir(os.path.dirname(pattern)):
            raise SystemExit(f"There is no {pattern}")
        files += map(pathlib.Path, found)
    return files


def main():
    zntopo = sys.argv[1]
    files = files_of(sys.argv[2:])
    if not files:
        print("There is no folder to read from.")
        sys.exit(77)
    is_good = True
    for path in files:
        with tempfile.TemporaryDirectory() as folder:
            checker = Checker(zntopo, path, pathlib.Path(folder))
            checker.check_all()
        print(f"{path.name}: {len(checker.names)} nodes, {len(checker.links)} links, "
              f"{checker.pairs} paths, {checker.count} checks, {len(checker.problems)} problems")
        for problem in checker.problems[:20]:
            print("  " + problem)
        is_good = is_good and not checker.problems
    sys.exit(0 if is_good else 1)


if __name__ == "__main__":
    main()
