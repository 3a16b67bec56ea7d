#!/usr/bin/env python3
"""usage: bench/report.py DIRECTORY TARGET

Makes the tables and plots of DIRECTORY out of what was measured there: TARGET.csv, and as far as they exist
TARGET_libm_without_fma.csv, TARGET_bounds.csv and TARGET_machine.txt (lines of `key: value`, `clock` in GHz).
Writes TARGET.md and TARGET_*.svg. Times in the CSV files are nanoseconds; everything here is in cycles.
"""
import csv
import os
import subprocess
import sys

OWN = ("dispatcher", "tier A", "tier J", "tier L", "tier N", "alias", "masked")
LIBM = "libm"
WITHOUT_FMA = "libm without FMA"
PEER_ERROR = 4.0  # ulp; peers beyond are no yardstick
INPUTS = ("ordinary", "wide", "large", "one_special", "all_special", "memory")


class Results:
    def __init__(self, directory, target):
        self.directory, self.target = directory, target
        self.machine = self.read_machine()
        self.clock = float(self.machine["clock"].split()[0])
        self.rows = {}
        for name in ("", "_libm_without_fma"):
            for row in self.read(f"{name}.csv"):
                self.rows.setdefault(row["entry"], {})[row["called"]] = row
        self.bounds = {row["kernel"]: row for row in self.read("_bounds.csv")}

    def path(self, suffix):
        return os.path.join(self.directory, self.target + suffix)

    def read(self, suffix):
        if not os.path.exists(self.path(suffix)):
            return []
        with open(self.path(suffix), newline="") as file:
            return list(csv.DictReader(file))

    def read_machine(self):
        with open(self.path("_machine.txt")) as file:
            return dict(line.rstrip("\n").split(": ", 1) for line in file)

    def cycles(self, entry, called, measure="ordinary", column="min"):
        text = self.rows[entry].get(called, {}).get(f"{measure}_{column}")
        return float(text) * self.clock if text else None

    def error(self, entry, called):
        text = self.rows[entry].get(called, {}).get("error_ulp")
        return float(text) if text else None

    def peers(self, entry):
        return [called for called in self.rows[entry] if called not in OWN + (LIBM, WITHOUT_FMA)]

    def fastest_peer(self, entry):
        accurate = [called for called in self.peers(entry)
                    if self.error(entry, called) is not None and self.error(entry, called) <= PEER_ERROR]
        return min(accurate, key=lambda called: self.cycles(entry, called), default=None)

    def vector_entries(self):
        return [entry for entry in self.rows if not entry.endswith("_scalar")]

    def scalar_routines(self):
        return [entry for entry in self.rows if entry.endswith("_scalar")]


def lanes_of(entry):
    if entry.endswith("4"):
        return "float4" if entry.endswith("f4") or entry == "ropsSinCos4" else "int4"
    return "complex" if entry.endswith("f2") and entry != "erf2" else "double2"


def elements(entry):
    return 4 if entry.endswith("4") else 2


def number(value, digits=2):
    return "–" if value is None else f"{value:.{digits}f}"


def ratio(other, own):
    return number(None if other is None or own is None else other / own)


def table(headings, rows):
    yield "| " + " | ".join(headings) + " |"
    yield "|---|" + "---:|" * (len(headings) - 1)
    for row in rows:
        yield "| " + " | ".join(row) + " |"
    yield ""


def headline(results):
    for entry in results.vector_entries():
        own = results.cycles(entry, "dispatcher")
        libm = results.cycles(entry, LIBM)
        peer = results.fastest_peer(entry)
        peer_cycles = results.cycles(entry, peer) if peer else None
        yield (f"`{entry}`", number(results.error(entry, "dispatcher")), number(own),
               number(results.cycles(entry, "dispatcher", column="median")),
               number(results.cycles(entry, "dispatcher", "memory")),
               number(results.cycles(entry, "dispatcher", "latency"), 1), number(libm),
               number(results.cycles(entry, WITHOUT_FMA)), ratio(libm, own), peer or "–",
               number(results.error(entry, peer) if peer else None), number(peer_cycles), ratio(peer_cycles, own))


def inputs(results):
    for entry in results.vector_entries():
        cells = [f"`{entry}`"]
        for measure in INPUTS[:-1]:
            own, libm = (results.cycles(entry, called, measure) for called in ("dispatcher", LIBM))
            cells.append("–" if own is None else f"{own * elements(entry):.0f}" +
                         ("" if libm is None else f" / {libm * elements(entry):.0f}"))
        yield cells


def all_peers(results):
    for entry in results.vector_entries():
        peers = sorted(results.peers(entry), key=lambda called: results.cycles(entry, called))
        if peers:
            yield (f"`{entry}`", number(results.cycles(entry, "dispatcher")),
                   "; ".join(f"{peer} {number(results.cycles(entry, peer))} ({number(results.error(entry, peer))}), "
                             f"latency {number(results.cycles(entry, peer, 'latency'), 0)}" for peer in peers))


def kernels(results):
    for entry in results.vector_entries():
        for called in results.rows[entry]:
            if not called.startswith("tier "):
                continue
            name = entry if entry.startswith("rop") else "__zelk_" + entry
            bound = results.bounds.get(f"{name}.{called[-1]}")
            measured = results.cycles(entry, called) * elements(entry)
            latency = results.cycles(entry, called, "latency")
            limit = bound and float(bound["bound"])
            simulated = bound and float(bound["simulated"])
            yield (f"`{entry}.{called[-1]}`", bound["instructions"] if bound else "–", number(limit, 1),
                   number(simulated, 1), number(measured, 1), ratio(measured, limit), ratio(measured, simulated),
                   number(latency, 1))


def overheads(results):
    for entry in results.vector_entries():
        called = results.rows[entry]
        own = results.cycles(entry, "dispatcher")
        kernel = min(results.cycles(entry, name) for name in called if name.startswith("tier "))
        extra = [own - kernel] + [results.cycles(entry, name) - own if name in called else None
                                  for name in ("alias", "masked")]
        yield [f"`{entry}`"] + [number(None if value is None else value * elements(entry), 1) for value in extra]


def scalars(results):
    for entry in results.scalar_routines():
        own, libm = (results.cycles(entry, called) for called in ("dispatcher", LIBM))
        yield f"`{entry}`", number(own, 1), number(libm, 1), ratio(libm, own)


def document(results):
    yield f"# Measurements: {results.target}"
    yield ""
    yield "Made by `bench/report.py`; what the columns mean stands in [performance.md](../performance.md)."
    yield ""
    for key, value in results.machine.items():
        yield f"- {key}: {value}"
    yield ""
    yield "## Throughput and latency, ordinary arguments"
    yield ""
    yield from table(("entry", "error, ulp", "cycles/element", "median", "from memory", "latency", "libm",
                      "libm without FMA", "libm/ours", f"fastest peer within {PEER_ERROR:.0f} ulp", "its error",
                      "its cycles", "peer/ours"), headline(results))
    yield "## Other inputs: cycles per vector, ours / libm"
    yield ""
    yield from table(("entry", "ordinary", "wide range", "large arguments", "one special lane", "all lanes special"),
                     inputs(results))
    if results.bounds:
        yield "## Kernels beside their limits: cycles per call"
        yield ""
        yield from table(("kernel", "instructions", "units' bound", "simulated", "measured", "measured/bound",
                          "measured/simulated", "latency"), kernels(results))
    yield "## What the entries add: cycles per call"
    yield ""
    yield from table(("entry", "dispatcher over fastest kernel", "alias over dispatcher", "masked over dispatcher"),
                     overheads(results))
    yield "## Scalar routines: cycles per call"
    yield ""
    yield from table(("routine", "ours", "libm", "libm/ours"), scalars(results))
    if any(results.peers(entry) for entry in results.vector_entries()):
        yield "## All peers: cycles per element (error in ulp), fastest first"
        yield ""
        yield from table(("entry", "ours", "peers"), all_peers(results))


def plot(results, name, title, label, headings, rows, logarithmic=True):
    """Bars side by side for each row: a name and a value for each heading (None: no bar)."""
    lines = ["name\t" + "\t".join(headings)]
    lines += ["\t".join([row[0]] + ["?" if value is None else f"{value:.3f}" for value in row[1:]]) for row in rows]
    data = results.path(f"_{name}.dat")
    with open(data, "w") as file:
        file.write("\n".join(lines) + "\n")
    colours = ("#1b6ca8", "#e08e0b", "#9a9a9a", "#b5423c")
    bars = ", ".join(f"'{data}' using {i + 2}{':xtic(1)' if i == 0 else ''} title columnheader({i + 2}) "
                     f"linecolor rgb '{colours[i]}'" for i in range(len(headings)))
    script = f"""
        set terminal svg size {max(700, 130 + 34 * len(rows))},460 font 'sans,13' background 'white'
        set output '{results.path(f"_{name}.svg")}'
        set datafile separator '\\t'
        set datafile missing '?'
        set title '{title}'
        set ylabel '{label}'
        set style data histogram
        set style histogram clustered gap 1
        set style fill solid 0.9 noborder
        set boxwidth 0.95
        set xtics rotate by 45 right nomirror scale 0 noenhanced
        set ytics nomirror
        set grid ytics linecolor rgb '#dddddd'
        set border 3
        set key top left horizontal reverse Left samplen 1.5
        set yrange [{1 if logarithmic else 0}:*]
        {'set logscale y 2; set offsets 0, 0, graph 0.12, 0' if logarithmic else 'set offsets 0, 0, graph 0.12, 0'}
        plot {bars}
    """
    subprocess.run(["gnuplot"], input=script, text=True, check=True)
    os.remove(data)


def plots(results):
    for lanes in ("float4", "double2"):
        names = [entry for entry in results.vector_entries()
                 if lanes_of(entry) == lanes and not entry.startswith("rop") and results.cycles(entry, LIBM)]
        bars = ["libzelk", "libm, once per lane"]
        rows = [[entry, results.cycles(entry, "dispatcher"), results.cycles(entry, LIBM)] for entry in names]
        if any(results.peers(entry) for entry in names):
            bars.insert(1, f"fastest peer within {PEER_ERROR:.0f} ulp")
            for row in rows:
                peer = results.fastest_peer(row[0])
                row.insert(2, results.cycles(row[0], peer) if peer else None)
        plot(results, lanes, f"{lanes}: cycles per element, ordinary arguments (less is better)", "cycles per element",
             bars, rows)
        if results.bounds:
            rows = []
            for entry in names:
                kernel = min((called for called in results.rows[entry] if called.startswith("tier ")),
                             key=lambda called: results.cycles(entry, called))
                bound = results.bounds.get(f"__zelk_{entry}.{kernel[-1]}")
                if bound:
                    rows.append((entry, results.cycles(entry, kernel) * elements(entry), float(bound["simulated"]),
                                 float(bound["bound"])))
            plot(results, f"{lanes}_limits", f"{lanes} kernels: cycles per call, and what llvm-mca allows", "cycles",
                 ("measured", "simulated", "bound by units and width"), rows)
        plot(results, f"{lanes}_special", f"{lanes}: special lanes, time over that of libm for the same vectors",
             "ours / libm", ("one special lane", "all lanes special"),
             [(entry,) + tuple(results.cycles(entry, "dispatcher", measure) / results.cycles(entry, LIBM, measure)
                               for measure in ("one_special", "all_special")) for entry in names], logarithmic=False)


def main():
    results = Results(*sys.argv[1:3])
    with open(results.path(".md"), "w") as file:
        file.write("\n".join(document(results)))
    plots(results)


main()
