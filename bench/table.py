"""Makes the tables of README.md from the benchmark program's results: table.py RESULTS... README.

A benchmark is called GROUP/CASE/WAY. A group is a section, a case a row, a way a column. Each
figure is the median of the repetitions; behind it stands how many times the first column it is.
Ends with status 1 when a target is missed or something could not be measured.
"""
import json
import os
import statistics
import sys

START, END = "<!-- results -->", "<!-- end of results -->"
# What waits for the disk or for another process, or has several threads.
REAL_TIME = ("Arrays of speeds", "Update", "Save", "Process", "Desktop")

AT_LEAST = {  # way: how many times the first column's time it must take
    "copy and qsort": 10, "std::map": 1, "sorted vector": 1, "SQLite": 1,
}
AT_MOST_MS = {  # case of the desktop: milliseconds
    "main dialog opened": 150, "page switched": 16, "speed added": 16,
    "host with 200 specifications": 500,
}
NO_SLOWER_THAN = {  # group: way
    "QueryIntValBySpeed, each after the other": "branch-free search",
    "QueryDoubleValBySpeed, each after the other": "branch-free search",
    "Query by name": "std::unordered_map of folded names",
}
LOOP = "a loop of np.interp"
FASTEST_OF = ("QueryIntValBySpeed", "QueryDoubleValBySpeed")


def benchmarks(paths):
    """Every measurement of these files."""
    for path in paths:
        if os.path.getsize(path) == 0:
            continue  # a filter has left nothing of that program
        with open(path, encoding="utf-8") as file:
            # They ran in random turns; the family tells the order in which they are written down.
            yield from sorted(json.load(file)["benchmarks"], key=lambda one: one["family_index"])


def read(paths):
    """{group: {case: {way: median}}}, and what went wrong."""
    samples, broken = {}, []
    for one in benchmarks(paths):
        group, case, way = one["name"].split("/")[:3]
        if one.get("error_occurred"):
            broken.append(f"{group}, {way}: {one['error_message']}")
        elif one.get("run_type") == "iteration":
            samples.setdefault((group, case, way), []).append(figure(group, one))
    groups = {}
    for (group, case, way), figures in samples.items():
        groups.setdefault(group, {}).setdefault(case, {})[way] = statistics.median(figures)
    return groups, broken


def figure(group, one):
    """Bytes, or nanoseconds."""
    if group == "Memory":
        return one["bytes"]
    time = "real_time" if group in REAL_TIME or "manual_time" in one["name"] else "cpu_time"
    return one[time] * {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[one["time_unit"]]


def text(group, value):
    if group == "Memory":
        return f"{value / 1024:.1f} KiB"
    for unit, size in (("ms", 1e6), ("µs", 1e3)):
        if value >= size:
            return f"{value / size:.3g} {unit}"
    return f"{value:.3g} ns"


def table(group, cases):
    ways = list(dict.fromkeys(way for row in cases.values() for way in row))
    lines = [f"### {group}", "", "| | " + " | ".join(ways) + " |", "|---" * (len(ways) + 1) + "|"]
    for case, row in cases.items():
        cells = [text(group, row[way]) + ("" if way == "designspec" or "designspec" not in row
                 else f" ({row[way] / row['designspec']:.3g} ×)") if way in row else "–"
                 for way in ways]
        lines.append(f"| {case} | " + " | ".join(cells) + " |")
    return lines + [""]


def array_misses(cases):
    for case, row in cases.items():
        answers = 1e9 / row["designspec"]  # millions a second
        if answers < 1000:
            yield f"Arrays of speeds, {case}: {answers:.0f} million answers a second; target 1000"
        if "Python" not in row:
            continue
        times = row["Python"] / row["C interface"]
        if times > 1.3:
            yield f"Arrays of speeds, {case}: Python takes {times:.2f} times the C call; target 1.3"
        times = row.get(LOOP, float("inf")) / row["Python"]
        if times < 50:
            yield f"Arrays of speeds, {case}: {LOOP} takes {times:.0f} times as long; target 50"


def misses(groups):
    for group in FASTEST_OF:
        for case, row in groups.get(group, {}).items():
            for way, least in AT_LEAST.items():
                times = row[way] / row["designspec"]
                if times < least:
                    yield f"{group}, {case}: {way} takes {times:.2f} times as long; target {least}"
    for case, row in groups.get("Update", {}).items():
        times = row["designspec"] / row["pugixml"]
        most = 2 if "one core" in case else 1.2
        if times > most:
            yield f"Update, {case}: {times:.2f} times as long as pugixml alone; target {most}"
    yield from array_misses(groups.get("Arrays of speeds", {}))
    for group, way in NO_SLOWER_THAN.items():
        for case, row in groups.get(group, {}).items():
            times = row["designspec"] / row[way]
            if times > 1:
                yield f"{group}, {case}: {times:.2f} times as long as {way}; target 1"
    for row in groups.get("Memory", {}).values():
        if row["designspec"] > 16 * 1024:
            yield f"a specification takes {text('Memory', row['designspec'])}; target 16 KiB"
    for row in groups.get("Process", {}).values():
        if "designspec" in row and row["designspec"] > 10 * row["true"]:
            yield f"a query takes {row['designspec'] / row['true']:.1f} times true; target 10"
    for case, row in groups.get("Desktop", {}).items():
        if row.get("designspec", 0) > AT_MOST_MS[case] * 1e6:
            taken = text("Desktop", row["designspec"])
            yield f"{case}: takes {taken}; target at most {AT_MOST_MS[case]} ms"


def main():
    groups, broken = read(sys.argv[1:-1])
    missed = broken + list(misses(groups))
    lines = [line for group, cases in groups.items() for line in table(group, cases)]
    lines += ["Targets missed in this run: " + ("none." if not missed else ""), ""]
    lines += [f"- {miss}" for miss in missed] + ([""] if missed else [])
    with open(sys.argv[-1], encoding="utf-8") as file:
        readme = file.read()
    head, rest = readme.split(START)
    tail = rest.split(END)[1]
    with open(sys.argv[-1], "w", encoding="utf-8") as file:
        file.write(head + START + "\n\n" + "\n".join(lines) + END + tail)
    print("\n".join(lines))
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
