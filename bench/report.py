#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Turns the benchmark's JSON and the memory measurements into the Markdown
table of the README's "Performance" section (printed on standard output).

usage: report.py RESULTS.json MEMORY.txt

MEMORY.txt holds key: value lines (written by bench/run): items, file_bytes,
idle_rss_kb, loadxml_rss_kb, loadtext_rss_kb, tree_bytes, machine, cores,
compiler, qt, repetitions, smoke.
"""
import json
import sys
from collections import defaultdict

ROWS = [
    ("load-string", "Load `SetXmlString`"),
    ("load-file", "Load `LoadXml`"),
    ("save-string", "Save `GetXmlString`"),
    ("save-file", "Save `SaveXml`"),
    ("copy", "Copy (lists shared)"),
    ("copy-detached", "Copy, lists then detached"),
    ("check", "`Check()`"),
    ("lint-file", "Lint `LintXmlFile`"),
    ("lint-reindented", "Lint, tab-indented copy"),
]
TIMED_AGAINST_FLOOR = ("load-string", "load-file", "save-string", "save-file")
UNIT_TO_MS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}


def load_times(path):
    """Best wall-clock time in ms of each benchmark over its repetitions,
    and the document size of each item count."""
    with open(path) as f:
        data = json.load(f)
    best = {}
    sizes = {}
    for run in data["benchmarks"]:
        if run.get("run_type") != "iteration" or run.get("error_occurred"):
            continue
        operation, contender, items = run["run_name"].split("/")
        items = int(items)
        ms = run["real_time"] * UNIT_TO_MS[run["time_unit"]]
        key = (operation, contender, items)
        best[key] = min(ms, best.get(key, ms))
        sizes[items] = int(run["document_bytes"])
    return best, sizes


def load_memory(path):
    values = {}
    with open(path) as f:
        for line in f:
            if ":" in line:
                key, value = line.split(":", 1)
                values[key.strip()] = value.strip()
    return values


def duration(ms):
    if ms >= 100:
        return f"{ms:,.0f} ms"
    if ms >= 1:
        return f"{ms:.2f} ms"
    if ms >= 0.001:
        return f"{ms * 1000:.2f} µs"
    return f"{ms * 1e6:.0f} ns"


def ratio(a, b):
    return f"{a / b:.2f}" if a and b else "–"


def main():
    best, sizes = load_times(sys.argv[1])
    memory = load_memory(sys.argv[2])
    counts = sorted(sizes)
    out = []
    out.append("| Items (document) | Operation | Library | MB/s | Floor | Library/floor "
               "| QDom | Library/QDom |")
    out.append("|---:|:---|---:|---:|---:|---:|---:|---:|")
    worst = defaultdict(float)  # the target figures: highest ratio seen
    for items in counts:
        megabytes = sizes[items] / 1e6
        first = True
        for operation, label in ROWS:
            library = best.get((operation, "library", items))
            if library is None:
                continue
            cells = [f"{items:,} ({megabytes:.1f} MB)" if first else "", label, duration(library)]
            first = False
            if operation in TIMED_AGAINST_FLOOR:
                floor = best.get((operation, "floor", items))
                dom = best.get((operation, "qdom", items))
                kind = operation.split("-")[0]
                worst[kind + "/floor"] = max(worst[kind + "/floor"], library / floor)
                worst[kind + "/qdom"] = max(worst[kind + "/qdom"], library / dom)
                cells += [f"{megabytes / (library / 1000):.0f}", duration(floor),
                          ratio(library, floor), duration(dom), ratio(library, dom)]
            else:
                cells += ["", "", "", "", ""]
            out.append("| " + " | ".join(cells) + " |")
    out.append("")

    scaling = []
    if 10000 in counts and 100000 in counts:
        for operation, label in ROWS[:4]:
            small = best.get((operation, "library", 10000))
            large = best.get((operation, "library", 100000))
            factor = large / small
            worst["scaling"] = max(worst["scaling"], factor)
            scaling.append(f"{label} {factor:.1f}x")
        out.append("From 10,000 to 100,000 items (10x the items): " + ", ".join(scaling) + ".")
        out.append("")

    # The lint against the load of the same file, at the largest size.
    largest = counts[-1]
    load = best.get(("load-file", "library", largest))
    lint_ratios = {operation: best[(operation, "library", largest)] / load
                   for operation in ("lint-file", "lint-reindented")
                   if (operation, "library", largest) in best and load}
    if lint_ratios:
        worst["lint"] = lint_ratios.get("lint-file", 0)
        out.append(f"Lint against `LoadXml` of the same file at {largest:,} items: "
                   f"{lint_ratios.get('lint-file', 0):.2f}x for the document as the library "
                   f"wrote it, {lint_ratios.get('lint-reindented', 0):.2f}x for the tab-indented "
                   "copy, which is compared setting by setting.")
        out.append("")

    idle = int(memory["idle_rss_kb"]) * 1024
    peak = int(memory["loadxml_rss_kb"]) * 1024 - idle
    whole = int(memory["loadtext_rss_kb"]) * 1024 - idle
    tree = int(memory["tree_bytes"])
    memory_ratio = peak / tree
    out.append(
        f"Peak memory, `LoadXml` of the {int(memory['items']):,}-item file "
        f"({int(memory['file_bytes']) / 1e6:.1f} MB): {peak / 1e6:.1f} MB above the idle "
        f"process (maximum resident set size, `/usr/bin/time -v`), against "
        f"{tree / 1e6:.1f} MB that the loaded tree keeps on the heap (`mallinfo2` "
        f"before and after): {memory_ratio:.2f}x the tree. Reading the whole text "
        f"first and passing it to `SetXmlString` peaks at {whole / 1e6:.1f} MB.")
    out.append("")

    if memory.get("smoke") == "true":
        out.append("Smoke run: every benchmark ran once at 1,000 items; these times are "
                   "not measurements and no target is judged.")
        print("\n".join(out))
        return

    def verdict(value, limit):
        return "met" if value <= limit else "**not met**"

    out.append("Targets: "
               f"load within 1.5x of the floor ({worst['load/floor']:.2f}x, "
               f"{verdict(worst['load/floor'], 1.5)}); "
               f"save within 1.5x ({worst['save/floor']:.2f}x, "
               f"{verdict(worst['save/floor'], 1.5)}); "
               f"at least 2x faster than QDom (library/QDom at most "
               f"{max(worst['load/qdom'], worst['save/qdom']):.2f}, "
               f"{verdict(max(worst['load/qdom'], worst['save/qdom']), 0.5)}); "
               + (f"10k to 100k at most 11x ({worst['scaling']:.1f}x, "
                  f"{verdict(worst['scaling'], 11)}); " if scaling else "")
               + (f"lint within 4x of `LoadXml` ({worst['lint']:.2f}x, "
                  f"{verdict(worst['lint'], 4)}); " if "lint" in worst else "")
               + f"peak memory under 2x the tree ({memory_ratio:.2f}x, "
               f"{verdict(memory_ratio, 2 - 1e-9)}).")
    out.append("")
    out.append(f"Machine: {memory['machine']}, {memory['cores']} cores; {memory['compiler']}, "
               f"Qt {memory['qt']}, Release build. Times are wall-clock, the best of "
               f"{memory.get('repetitions', '3')} repetitions; the floor is a bare "
               "`QXmlStreamReader` walk or `QXmlStreamWriter` run over the same text, "
               "QDom is `setContent` plus a walk over every element, or building the "
               "document and `toString`/`save`.")
    print("\n".join(out))


if __name__ == "__main__":
    main()
