#!/usr/bin/env python3
"""Sets the library's times beside those of its floors, from the results of zntopo_bench.

    bench/report.py RESULT.json...                      prints the tables
    bench/report.py --into FILE RESULT.json...          puts them between the marks of a page too

A benchmark is named "Question/who". Each result file is one run of the program on one store.
Times are medians of processor time; on a server the time that passes, since most of it is spent
in another process. Fails if a benchmark reported an error or has nothing to stand beside.
"""

import argparse
import collections
import json
import os
import statistics
import sys

MAIN_SIZE = 10000
BEGIN, END = "<!-- tables: begin -->", "<!-- tables: end -->"

# How far from its floor the library may be; what is not named here has no aim.
AIMS = {
    "ReadNodes": 2.5,
    "ReadNodesAndTheirLists": 2.5,
    "ReadInterfaces": 2.5,
    "GetNodeByObjID": 4,
    "GetInterfaceByObjID": 4,
    "GetL2Path": 10,
    "L2PathBetweenInterfaces": 10,
    "GetNodeNeighbors": 10,
}

Place = collections.namedtuple("Place", "engine shape variables nodes")
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


class Results:
    """Medians by place, question and answerer, in the order in which they were registered."""

    def __init__(self, paths):
        self.values = {}
        self.units = {}
        self.context = {}
        for path in paths:
            self._read(path)

    def _read(self, path):
        with open(path, encoding="utf-8") as file:
            result = json.load(file)
        context = result["context"]
        self.context = context
        place = Place(context["engine"], context["shape"], context["user_variables"] == "yes",
                      int(context["nodes"]))
        runs = collections.OrderedDict()
        for entry in result["benchmarks"]:
            if entry.get("error_occurred"):
                sys.exit(f"report: {entry['name']} on {place}: {entry['error_message']}")
            if entry["run_type"] == "iteration":
                runs.setdefault(entry["run_name"], []).append(entry)
        # The runs are shuffled; a family's number tells when it was registered.
        for name, entries in sorted(runs.items(), key=lambda run: run[1][0]["family_index"]):
            question, who = name.split("/")[:2]
            is_bytes = "bytes" in entries[0]
            # What waits for other threads measures its own time.
            takes_real = place.engine != "SQLite" or name.endswith("/manual_time")
            clock = "real_time" if takes_real else "cpu_time"
            values = [entry["bytes"] if is_bytes else
                      entry[clock] * NANOSECONDS[entry["time_unit"]] for entry in entries]
            self.values.setdefault(place, {}).setdefault(question, {})[who] = \
                statistics.median(values)
            self.units[question] = "bytes" if is_bytes else "time"

    def places(self, **wanted):
        return sorted(place for place in self.values
                      if all(getattr(place, key) == value for key, value in wanted.items()))

    def answers(self, place):
        """(question, library's value, {who: value of the others})"""
        for question, by_who in self.values[place].items():
            others = dict(by_who)
            if "library" not in others or len(others) < 2:
                sys.exit(f"report: {question} on {place} has nothing to stand beside")
            yield question, others.pop("library"), others

    def show(self, question, value):
        if self.units[question] == "bytes":
            return f"{value:,.0f} B"
        for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
            if value >= size:
                return f"{value / size:.3g} {unit}"
        return f"{value:.3g} ns"


def table(heads, rows):
    lines = [heads, ["---"] * len(heads)] + [[str(cell) for cell in row] for row in rows]
    widths = [max(len(line[i]) for line in lines) for i in range(len(heads))]
    lines[1] = ["-" * width for width in widths]
    return "\n".join("| " + " | ".join(cell.ljust(width) for cell, width in zip(line, widths)) +
                     " |" for line in lines) + "\n"


def times(value):
    return f"{value:.2g}" if value < 10 else f"{value:,.0f}"


def against_floors(results, places):
    rows = []
    for place in places:
        for question, library, others in results.answers(place):
            if "floor" not in others:
                continue
            ratio = library / others["floor"]
            rows.append([question, place.shape, place.engine, results.show(question, library),
                         results.show(question, others["floor"]), times(ratio),
                         AIMS.get(question, "")])
    return table(["operation", "network", "engine", "library", "floor", "ratio", "aim"], rows)


def growth(results, places):
    """The ratios at each size, of what was measured at more than one."""
    sizes = sorted({place.nodes for place in places})
    ratios = collections.OrderedDict()
    for place in places:
        for question, library, others in results.answers(place):
            for who, value in others.items():
                key = (question, who, place.shape, place.engine)
                ratios.setdefault(key, {})[place.nodes] = times(library / value)
    rows = [[*key, *(by_size.get(size, "") for size in sizes)]
            for key, by_size in ratios.items() if len(by_size) > 1]
    return table(["operation", "beside it", "network", "engine"] +
                 [f"{size:,} nodes" for size in sizes], rows)


def against_others(results, places):
    rows = []
    for place in places:
        for question, library, others in results.answers(place):
            for who, value in others.items():
                if who != "floor":
                    rows.append([question, place.shape, place.engine,
                                 results.show(question, library), who,
                                 results.show(question, value), times(library / value)])
    return table(["operation", "network", "engine", "library", "beside it", "its value", "ratio"],
                 rows)


def with_variables(results, places):
    rows = []
    for place in places:
        for question, library, others in results.answers(place):
            rows.append([question, f"{place.nodes:,}", results.show(question, library),
                         results.show(question, others["floor"]),
                         times(library / others["floor"])])
    return table(["operation", "nodes", "library", "floor", "ratio"], rows)


def report(results):
    plain = results.places(variables=False)
    variables = results.places(variables=True)
    sizes = sorted({place.nodes for place in plain})
    parts = []
    if plain:
        size = MAIN_SIZE if MAIN_SIZE in sizes else sizes[0]
        main = [place for place in plain if place.nodes == size]
        parts.append(f"### The library and its floors, {size:,} nodes\n\n" +
                     against_floors(results, main))
        others = against_others(results, main)
        if others.count("\n") > 2:
            parts.append(f"### Beside other ways to ask, {size:,} nodes\n\n" + others)
        if len(sizes) > 1:
            parts.append("### How the ratios grow\n\n" + growth(results, plain))
    if variables:
        parts.append("### Nodes with user variables\n\n" + with_variables(results, variables))
    context = results.context
    parts.append(f"Measured on {context['num_cpus']} cores at {context['mhz_per_cpu']} MHz, built "
                 f"with {context['compiler']}.\n")
    return "\n".join(parts)


def put_into(path, text):
    with open(path, encoding="utf-8") as file:
        page = file.read()
    before, mark, rest = page.partition(BEGIN)
    _, end_mark, after = rest.partition(END)
    if not mark or not end_mark:
        sys.exit(f"report: {path} has no place for the tables ({BEGIN} ... {END})")
    with open(path, "w", encoding="utf-8") as file:
        file.write(f"{before}{BEGIN}\n\n{text}\n{END}{after}")


def main():
    parser = argparse.ArgumentParser(description="Tables of the benchmarks' results.")
    parser.add_argument("--into", metavar="FILE", help="a page with marks for the tables")
    parser.add_argument("results", nargs="+")
    arguments = parser.parse_args()
    results = Results([path for path in arguments.results if os.path.getsize(path) > 0])
    if not results.values:
        sys.exit("report: no benchmark ran")
    text = report(results)
    print(text, end="")
    if arguments.into:
        put_into(arguments.into, text)


if __name__ == "__main__":
    main()
