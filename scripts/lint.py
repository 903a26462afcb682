#!/usr/bin/env python3
"""Refuses what the compiler lets through: an include against the arrows of src/, and a sleep in a test.

    scripts/lint.py [REPOSITORY]        prints one line for each fault; status 1 when there is one
"""
import pathlib
import re
import sys

ROOMS = "scan browse search notes copyback duplicates exchange stats print mount".split()

# Which folders a folder may include, besides itself. The libraries are in src/CMakeLists.txt.
MAY_INCLUDE = {
    "platform": "",
    "engine": "platform",
    "engine/text": "",
    "engine/dialect": "engine/text",
    "engine/file": "engine/dialect engine/text",
    "engine/rows": "engine/file engine/dialect engine/text",
    "engine/repair": "engine/file engine/text",
    "core": "engine platform",
    "controls": "platform",
    "frame": "core controls platform",
    "lists": "core engine controls platform",
    **dict.fromkeys(ROOMS, "lists frame core engine controls platform"),
    "shell": " ".join(ROOMS) + " lists frame core engine controls platform",
    "cli": " ".join(ROOMS) + " lists core engine platform",
}
WIDGETS = ("frame", "controls")  # folders that logic knows nothing of

INCLUDE = re.compile(r'^\s*#\s*include\s+"((?!moc_)[^"]+)"', re.M)
SLEEP = re.compile(r"\b(sleep_for|sleep_until|u?sleep|nanosleep|qSleep|qWait)\s*\(|\bQThread::m?sleep|^\s*sleep\s+\d", re.M)


def includes(path):
    text = path.read_text()
    for match in INCLUDE.finditer(text):
        yield text.count("\n", 0, match.start()) + 1, match.group(1)


def against_the_arrows(source):
    for path in sorted(source.rglob("*.h")) + sorted(source.rglob("*.cpp")):
        own = path.relative_to(source).parts[0]
        if own not in MAY_INCLUDE:
            yield f"src/{own}: has no place among the layers of scripts/lint.py"
            continue
        inner = "/".join(path.relative_to(source).parts[:2])
        for line, included in includes(path):
            for place, other in ((own, included.split("/")[0]), (inner, "/".join(included.split("/")[:2]))):
                known = place in MAY_INCLUDE and other in MAY_INCLUDE
                if place != other and (known or place == own) and other not in MAY_INCLUDE[place].split():
                    yield f"{path.relative_to(source.parent)}:{line}: {place} must not include {included}"


def logic_sources(source):
    """The sources of the library `catalogue`, as the folders list them."""
    for listing in sorted(source.rglob("CMakeLists.txt")):
        for group in re.findall(r"target_sources\(catalogue PRIVATE([^)]*)\)", listing.read_text()):
            yield from (listing.parent / name for name in group.split())


def logic_with_widgets(source):
    """Logic that reaches a widget's header, be it through others."""
    for start in logic_sources(source):
        seen, waiting = set(), [start]
        while waiting:
            path = waiting.pop()
            for line, included in includes(path):
                target = source / included
                if included.split("/")[0] in WIDGETS:
                    yield f"{path.relative_to(source.parent)}:{line}: logic ({start.name}) must not include {included}"
                elif target.is_file() and target not in seen:
                    seen.add(target)
                    waiting.append(target)


def sleeps(tests):
    for path in sorted(tests.rglob("*")):
        if path.suffix not in (".h", ".cpp", ".sh", ".py"):
            continue
        text = path.read_text()
        for match in SLEEP.finditer(text):
            line = text.count("\n", 0, match.start()) + 1
            yield f"{path.relative_to(tests.parent)}:{line}: a test waits for what it needs, never for a time"


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".").resolve()
    source = root / "src"
    if not source.is_dir():
        sys.exit(f"{root} holds no src/")
    faults = dict.fromkeys([*against_the_arrows(source), *logic_with_widgets(source), *sleeps(root / "tests")])
    for fault in faults:
        print(fault)
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
