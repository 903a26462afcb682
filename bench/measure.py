"""Measures the program beside other tools; see bench/run, which builds what this needs.

Every figure and its yardstick run in turn, so that both meet the same machine. The ratio is the median of
the ratios of the single rounds, the growth the quotient of the median figures at --growth times and at 1 times the size.
"""

import argparse
import contextlib
import os
import re
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time
from dataclasses import dataclass, field

RARE, COMMON = "zanahoria", "viaje"
CROWDED_UNIT = "Archivo completo"  # a tenth of the rows are its folders
FULL_FOLDER = "Carpeta llena"  # 700 files in that unit
SMALL_UNIT = "Disco suelto"  # a thousand rows


@dataclass
class Run:
    seconds: float
    megabytes: float  # peak memory
    output: str = ""


@dataclass
class Series:
    """What one work took at one size, round by round."""

    figures: list = field(default_factory=list)
    yardsticks: list = field(default_factory=list)
    megabytes: float = 0
    also: dict = field(default_factory=dict)  # other figures of the same runs

    def add(self, figure, yardstick, megabytes, **also):
        self.figures.append(figure)
        self.yardsticks.append(yardstick)
        self.megabytes = max(self.megabytes, megabytes)
        for name, value in also.items():
            self.also.setdefault(name, []).append(value)

    def figure(self):
        return statistics.median(self.figures)

    def yardstick(self):
        return statistics.median(self.yardsticks)

    def ratio(self):
        return statistics.median(a / b for a, b in zip(self.figures, self.yardsticks))


def run(*command, keep_output=False, fine=(0,)):
    """Runs a program to its end, which has to be a fine one. Its output goes nowhere unless it is kept."""
    start = time.perf_counter()
    child = subprocess.Popen(command, stdout=subprocess.PIPE if keep_output else subprocess.DEVNULL)
    output = child.stdout.read().decode() if keep_output else ""
    _, status, usage = os.wait4(child.pid, 0)
    seconds = time.perf_counter() - start
    child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode not in fine:
        sys.exit(f"{' '.join(command)} ended with {child.returncode}")
    return Run(seconds, usage.ru_maxrss / 1024, output)


class Bench:
    def __init__(self, programs, data, runs, scale):
        self.programs, self.data, self.runs, self.scale = programs, data, runs, scale

    def program(self, name):
        return os.path.join(self.programs, name)

    def cli(self, *arguments):
        return run(self.program("zarquelin-cli"), *arguments, fine=(0, 1))  # 1: nothing was found

    def window(self, *arguments):
        """Runs the main window offscreen and gives its own figures by their names."""
        done = run(self.program("window_bench"), *arguments, keep_output=True)
        return {name: float(value) for name, value in (line.split() for line in done.output.splitlines())}, done

    def sqlite(self, catalogue, statements):
        return run("sqlite3", "-readonly", catalogue, statements)

    def path(self, name):
        return os.path.join(self.data, name)

    def tree(self, entries):
        tree = self.path(f"tree{entries}")
        if not os.path.exists(tree):
            run(self.program("make_tree"), tree + ".part", str(entries))
            os.rename(tree + ".part", tree)
        return tree

    def catalogue(self, rows):
        catalogue = self.path(f"catalogue{rows}.zrq")
        if not os.path.exists(catalogue):
            run(self.program("make_catalogue"), catalogue + ".part", str(rows))
            os.rename(catalogue + ".part", catalogue)
        return catalogue

    def names(self, rows):
        """The catalogue's paths as a database of plocate's, told that they need not be there to be shown."""
        names = self.path(f"paths{rows}.db")
        if not os.path.exists(names):
            listed = names + ".txt"
            with open(listed, "wb") as out:
                subprocess.run(
                    ["sqlite3", "-readonly", self.catalogue(rows),
                     "select replace(replace(ruta||coalesce('/'||archivo,''),'\\','/'),'E:','') from datos order by 1"],
                    stdout=out, check=True)
            run("plocate-build", "-p", "-l", "no", listed, names + ".part")
            os.remove(listed)
            os.rename(names + ".part", names)
        return names

    def rounds(self, measure):
        """One round to warm the cache, then those that count."""
        series = Series()
        measure(Series())
        for _ in range(self.runs):
            measure(series)
        return series


def fresh_catalogue(bench):
    catalogue = bench.path("fresh.zrq")
    with contextlib.suppress(FileNotFoundError):
        os.remove(catalogue)
    bench.cli("new", catalogue)
    return catalogue


def find(tree):
    return run("find", tree, "-printf", "%p\\t%s\\t%T@\\n").seconds


def scan_by_command(bench, entries):
    tree = bench.tree(entries)

    def measure(series):
        beside = find(tree)
        done = bench.cli("scan", fresh_catalogue(bench), "Bench", tree)
        series.add(done.seconds, beside, done.megabytes)

    return bench.rounds(measure)


@contextlib.contextmanager
def mounted(bench, catalogue, folder):
    """The catalogue as a folder. Gives a list that gets the peak memory at the end."""
    memory = []
    os.makedirs(folder, exist_ok=True)
    child = subprocess.Popen([bench.program("zarquelin-cli"), "mount", catalogue, folder, "-f"])
    try:
        while not os.path.ismount(folder):
            if child.poll() is not None:
                sys.exit("the catalogue cannot be mounted here")
            time.sleep(0.01)
        yield memory
    finally:
        if child.returncode is None:
            child.send_signal(signal.SIGINT)
            _, status, usage = os.wait4(child.pid, 0)
            child.returncode = os.waitstatus_to_exitcode(status)
            memory.append(usage.ru_maxrss / 1024)


def walk_mounted(bench, entries):
    """A walk through a catalogue that has just been mounted, so that nothing is known of it yet."""
    tree, catalogue = bench.tree(entries), fresh_catalogue(bench)
    bench.cli("scan", catalogue, "Bench", tree)

    def measure(series):
        beside = find(tree)
        with mounted(bench, catalogue, bench.path("mounted")) as memory:
            seconds = find(bench.path("mounted"))
        series.add(seconds, beside, *memory)

    return bench.rounds(measure)


def scan_by_window(bench, entries):
    tree = bench.tree(entries)

    def measure(series):
        beside = find(tree)
        figures, done = bench.window("scan", fresh_catalogue(bench), "Bench", tree)
        series.add(figures["scan"], beside, done.megabytes)

    return bench.rounds(measure)


def two_selects(word):
    return (
        f"select * from datos where carpeta like '%{word}%' and tipo <> 'Archivo' order by carpeta;"
        f"select * from datos where archivo like '%{word}%' and tipo = 'Archivo' order by archivo;"
    )


def search_by_command(word):
    def work(bench, rows):
        catalogue = bench.catalogue(rows)

        def measure(series):
            beside = bench.sqlite(catalogue, two_selects(word)).seconds
            done = bench.cli("search", catalogue, word)
            series.add(done.seconds, beside, done.megabytes)

        return bench.rounds(measure)

    return work


def search_by_window(word):
    def work(bench, rows):
        catalogue = bench.catalogue(rows)

        def measure(series):
            beside = bench.sqlite(catalogue, two_selects(word)).seconds
            figures, done = bench.window("search", catalogue, word)
            series.add(figures["search"], beside, done.megabytes)

        return bench.rounds(measure)

    return work


def search_again(bench, rows):
    """The later searches in an open window, beside a finder with an index of its own over the same names."""
    catalogue, names = bench.catalogue(rows), bench.names(rows)

    def measure(series):
        beside = run("plocate", "-d", names, "-b", "-i", RARE).seconds
        figures, done = bench.window("search", catalogue, RARE)
        series.add(min(figures["again"], figures["third"]), beside, done.megabytes)

    return bench.rounds(measure)


def copy_seconds(bench, catalogue):
    copy = bench.path("copy.zrq")
    with contextlib.suppress(FileNotFoundError):
        os.remove(copy)
    seconds = run("cp", catalogue, copy).seconds
    os.remove(copy)
    return seconds


def first_click(bench, rows):
    catalogue = bench.catalogue(rows)

    def measure(series):
        beside = copy_seconds(bench, catalogue)
        figures, done = bench.window("click", catalogue, CROWDED_UNIT)
        later = max(figures[name] for name in ("folder", "deeper", "again"))
        series.add(figures["first"], beside, done.megabytes, later=later)

    return bench.rounds(measure)


def first_click_on_a_small_unit(bench, rows):
    catalogue = bench.catalogue(rows)

    def measure(series):
        beside = copy_seconds(bench, catalogue)
        figures, done = bench.window("click", catalogue, SMALL_UNIT)
        series.add(figures["first"], beside, done.megabytes)

    return bench.rounds(measure)


def by_command(statements, *arguments):
    """A command of the command line beside the statements that the stock program runs for the same answer."""

    def work(bench, rows):
        catalogue = bench.catalogue(rows)

        def measure(series):
            beside = bench.sqlite(catalogue, statements).seconds
            done = bench.cli(arguments[0], catalogue, *arguments[1:])
            series.add(done.seconds, beside, done.megabytes)

        return bench.rounds(measure)

    return work


UNIT_SUMS = "select disco, tipo, count(*), sum(largo) from datos group by disco, tipo;"
FOLDER_SELECTS = "".join(
    f"select * from datos where disco = '{CROWDED_UNIT} :' and ruta like '%\\{FULL_FOLDER}%'"
    f" and nivel = '2' and tipo {kind} order by {name};"
    for kind, name in (("<> 'Archivo'", "carpeta"), ("= 'Archivo'", "archivo"))
)

TWINS = "select lower(archivo), largo, count(*) from datos where tipo = 'Archivo' group by 1, 2 having count(*) > 1;"

THREE_COUNTS = (
    "select count(*) from (select disco from datos group by disco);"
    "select count(*) from datos where tipo = 'Carpeta de archivos';"
    "select count(*) from datos where tipo = 'Archivo';"
)


def open_catalogue(bench, rows):
    catalogue = bench.catalogue(rows)

    def measure(series):
        beside = bench.sqlite(catalogue, THREE_COUNTS).seconds
        figures, done = bench.window("open", catalogue)
        series.add(figures["open"], beside, done.megabytes)

    return bench.rounds(measure)


def result_list(bench, _):
    """The list's own program measures both sizes in one run."""
    both = Series(), Series()
    for _ in range(bench.runs):
        done = run(bench.program("list_bench"), keep_output=True)
        found = re.findall(r"rows: .*all ([\d.]+) s; (\d+) bytes a row held", done.output)
        for series, (seconds, held) in zip(both, found, strict=True):
            series.add(float(seconds), 1.0, done.megabytes, bytes_a_row=float(held))
    return both


def sort_by_column(bench, rows):
    """The slowest column of the longest list, in seconds."""

    def measure(series):
        done = run(bench.program("list_bench"), str(rows), keep_output=True)
        took = {name: float(value) for name, value in (line.split() for line in done.output.splitlines())}
        of_rows = {"microseconds_to_fill_a_row": took.pop("fill"), "bytes_held_a_row": took.pop("held"),
                   "bytes_a_row_at_most": took.pop("most")}
        series.add(max(took.values()), 1.0, done.megabytes, **of_rows)

    return bench.rounds(measure)


@dataclass
class Work:
    key: str
    title: str
    yardstick: str
    target: str
    most: float  # the greatest ratio that meets the target
    measure: object
    small: int
    told_at_large: bool = False  # the size that the target speaks of


M = 1_000_000
SQLITE = "sqlite3, the two selects"
WORKS = (
    Work("scan", "scan a tree, command line", "find -printf", "≤ 1.2", 1.2, scan_by_command, 100_000, True),
    Work("window-scan", "scan a tree, window", "find -printf", "≤ 1.2", 1.2, scan_by_window, 100_000, True),
    Work("search-rare", "search a rare word, command line", SQLITE, "≤ 1", 1, search_by_command(RARE), M),
    Work("search-common", "search a common word, command line", SQLITE, "≤ 1", 1, search_by_command(COMMON), M),
    Work("window-rare", "search a rare word, window", SQLITE, "≤ 1.5", 1.5, search_by_window(RARE), M),
    Work("window-common", "search a common word, window", SQLITE, "≤ 1.5", 1.5, search_by_window(COMMON), M),
    Work("window-again", "the rare word again, window", "plocate", "≤ 3", 3, search_again, M),
    Work("click", "first click on the crowded unit", "cp of the catalogue", "≤ 6", 6, first_click, M),
    Work("click-small", "first click on a small unit", "cp of the catalogue", "≤ 0.5", 0.5, first_click_on_a_small_unit, M),
    Work("open", "open a catalogue of 200 units", "sqlite3, three counts", "≤ 0.6", 0.6, open_catalogue, M),
    Work("units", "units, command line", "sqlite3, the sums", "≤ 1", 1, by_command(UNIT_SUMS, "units"), M),
    Work("folder", "list a folder, command line", SQLITE, "≤ 2", 2,
         by_command(FOLDER_SELECTS, "list", CROWDED_UNIT, FULL_FOLDER), M),
    Work("duplicates", "duplicates, command line", "sqlite3, group by", "≤ 1", 1, by_command(TWINS, "duplicates"), M),
    Work("mount", "walk a mounted catalogue", "find -printf, the tree", "≤ 5", 5, walk_mounted, 100_000, True),
    Work("list", "result list filled, shown and sorted", "1 s", "≤ 0.25", 0.25, result_list, 300_000),
    Work("list-columns", "result list sorted by its slowest column", "1 s", "≤ 2", 2, sort_by_column, M, True),
)

COLUMNS = "{:<37} {:>9} {:>9}  {:<24} {:>9} {:>6} {:>6} {:>6} {:>6} {:>8}"


def print_row(work, sizes, series):
    told = 1 if work.told_at_large else 0
    at = series[told]
    ratio = at.ratio()
    verdict = "" if not work.most else "met" if ratio <= work.most else "MISSED"
    growth = series[1].figure() / series[0].figure()
    print(
        COLUMNS.format(
            work.title, f"{sizes[told]:,}", f"{at.figure():.3f} s", work.yardstick, f"{at.yardstick():.3f} s",
            f"{ratio:.2f}", work.target, verdict, f"{growth:.2f}", f"{at.megabytes:.0f} MB",
        ),
        flush=True,
    )
    for name, values in at.also.items():
        print(f"    {name.replace('_', ' ')}: {statistics.median(values):.3f}", flush=True)
    return verdict != "MISSED"


def measure_all(bench, works, growth):
    print(COLUMNS.format("work", "size", "time", "beside", "time", "ratio", "target", "", f"x{growth}", "memory"))
    met = True
    for work in works:
        sizes = work.small, work.small * growth
        if work.measure is result_list:
            sizes = work.small, work.small * 4
            series = result_list(bench, 0)
        elif work.measure is sort_by_column:
            sizes = work.small, work.small * 4
            series = tuple(sort_by_column(bench, size) for size in sizes)
        else:
            sizes = tuple(size // bench.scale for size in sizes)
            series = tuple(work.measure(bench, size) for size in sizes)
        met = print_row(work, sizes, series) and met
    return met


def main():
    parser = argparse.ArgumentParser(prog="bench/run", description="Measures the program beside other tools.")
    parser.add_argument("programs", help=argparse.SUPPRESS)
    parser.add_argument("--quick", action="store_true", help="a twentieth of the sizes, three rounds")
    parser.add_argument("--runs", type=int, help="rounds that count (5)")
    parser.add_argument("--growth", type=int, default=4, help="how many times the size the second figure is taken at (4)")
    parser.add_argument("--only", action="append", choices=[work.key for work in WORKS], help="one work; may be repeated")
    options = parser.parse_args()

    works = [work for work in WORKS if not options.only or work.key in options.only]
    kept = os.environ.get("ZARQUELIN_BENCH_DATA")
    data = kept or tempfile.mkdtemp(prefix="zarquelin-bench-")
    os.makedirs(data, mode=0o700, exist_ok=True)
    os.environ.update(QT_QPA_PLATFORM="offscreen", QT_LOGGING_RULES="*=false", XDG_RUNTIME_DIR=data, LC_ALL="C.UTF-8")
    try:
        runs = options.runs or (3 if options.quick else 5)
        met = measure_all(Bench(options.programs, data, runs, 20 if options.quick else 1), works, options.growth)
    finally:
        if not kept:
            shutil.rmtree(data)
    sys.exit(0 if met or options.quick else 1)


if __name__ == "__main__":
    main()
