"""The table of `make bench`: rows, kept ratios, and what became worse."""
import os
import re
import statistics

from scene import BENCH

BASELINE = os.path.join(BENCH, "BASELINE.md")
WORSE = 1.2


class Rows:
    """Each row has the CPU seconds of ours and of its peer or floor, and the ratio of these."""

    def __init__(self, pairs):
        self.pairs = pairs
        self.rows = []

    def add(self, name, goal, peer_name, ours, peer, ratio=None):
        """`ours` and `peer` are as from Scene.run."""
        self.rows.append({"name": name, "goal": goal, "peer": peer_name, "ours": ours,
                          "floor": peer, "ratio": ratio or ours["cpu"] / max(peer["cpu"], 1e-9),
                          "ratio of seconds": ours["seconds"] / max(peer["seconds"], 1e-9)})

    def measure(self, name, goal, peer_name, ours, peer, pairs=None):
        """Calls `ours` and `peer` in turn."""
        runs = [(ours(), peer()) for _ in range(pairs or self.pairs)]
        middle = [{what: statistics.median(run[position][what] for run in runs)
                   for what in ("seconds", "cpu", "MB")} for position in (0, 1)]
        ratio = statistics.median(mine["cpu"] / max(other["cpu"], 1e-3) for mine, other in runs)
        self.add(name, goal, peer_name, *middle, ratio)


def read_baseline(path=BASELINE):
    ratios = {}
    if os.path.exists(path):
        with open(path, encoding="utf-8") as file:
            for line in file:
                match = re.match(r"\| ([^|]+?) \| ([0-9.]+) \|$", line)
                if match:
                    ratios[match[1]] = float(match[2])
    return ratios


def write_baseline(rows, path=BASELINE, target="bench", script="measure"):
    with open(path, "w", encoding="utf-8") as file:
        file.write("# Kept ratios\n\nOurs divided by its peer or floor, in CPU time: what `make %s`"
                   " compares with. Written by\n`bench/%s --accept`; "
                   "[docs/PERFORMANCE.md](../docs/PERFORMANCE.md) explains the rows.\n\n"
                   "| row | ratio |\n|---|---|\n" % (target, script))
        for row in rows:
            file.write("| %s | %.2f |\n" % (row["name"], row["ratio"]))


def format_time(seconds):
    if seconds >= 1:
        return "%.2f s" % seconds
    return "%.3g ms" % (seconds * 1e3) if seconds >= 1e-3 else "%.3g µs" % (seconds * 1e6)


def print_rows(rows, path=BASELINE):
    baseline = read_baseline(path)
    print("| row | ours | CPU | peer or floor | its time | CPU | ratio | goal | kept |")
    print("|---|---|---|---|---|---|---|---|---|")
    for row in rows:
        kept = baseline.get(row["name"])
        mark = "" if kept is None else "%.2f" % kept
        if kept is not None and row["ratio"] > kept * WORSE:
            mark += " **worse**"
        times = [format_time(row[who][what]) for who in ("ours", "floor")
                 for what in ("seconds", "cpu")]
        print("| %s | %s | %s | %s | %s | %s | %.2f | %s | %s |" % (
            row["name"], *times[:2], row["peer"], *times[2:], row["ratio"], row["goal"], mark))


def print_split(parts):
    print("\n| activate 20 fonts until fc-list has them | time |\n|---|---|")
    for name, seconds in parts:
        print("| %s | %s |" % (name, format_time(max(seconds, 0))))


def print_memory(rows):
    print("\n| memory | most MB | goal |\n|---|---|---|")
    for name, goal, run in rows:
        print("| %s | %.0f | %s |" % (name, run["MB"], goal))
