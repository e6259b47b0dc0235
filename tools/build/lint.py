"""Format, headers, clang-tidy and clazy: lint.py [--all] [--quick]

Looks at what changed since origin/main, or in the last commit; with --all at everything; with --quick
at format and headers alone, as CI does. A clone that has neither, such as one of depth 1, has only its
format looked at. Needs the build in build/dev, which ./dev sees to.
"""

import json
import os
import re
import shlex
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
BUILD = os.path.join(ROOT, "build", "dev")
DATABASE = os.path.join(ROOT, "build", "lint")
EMPTY = os.path.join(DATABASE, "empty")
FOLDERS = "bench|book|controller|host|link|pendant|schema|src|tests|tl|tools"
# The linters take some ten seconds for a source, and CI has minutes.
MOST_SOURCES = 40

# clang cannot read what gcc precompiled.
PRECOMPILED = re.compile(r" -include \S*/cmake_pch\.hxx| -Winvalid-pch| -fpch-preprocess")


def git(*arguments):
    result = subprocess.run(["git", *arguments], cwd=ROOT, capture_output=True, text=True)
    return result.stdout.split() if result.returncode == 0 else []


def changed():
    """The newest first: what is not committed, then commit by commit; None where nothing says."""
    head = git("rev-parse", "HEAD")
    base = git("merge-base", "HEAD", "origin/main")
    if not base or base == head:
        base = git("rev-parse", "--verify", "HEAD~1")
    if not base:
        return None
    files = git("ls-files", "--others", "--exclude-standard") + git("diff", "--name-only", "HEAD")
    files += git("log", "--format=", "--name-only", f"{base[0]}..HEAD")
    return [file for file in dict.fromkeys(files) if os.path.exists(os.path.join(ROOT, file))]


def sources_for(files):
    """A header is looked at through the first source that includes it."""
    sources = {}
    for file in files:
        if file.endswith(".h"):
            pattern = rf'#include [<"](.*/)?{re.escape(os.path.basename(file))}[>"]'
            sources.update(dict.fromkeys(git("grep", "-lE", pattern, "--", "*.cpp")[:1]))
        else:
            sources[file] = None
    return list(sources)


def write_database():
    """The build's commands without what is precompiled; the command of each file of ours."""
    with open(os.path.join(BUILD, "compile_commands.json"), encoding="utf-8") as file:
        entries = json.load(file)
    for entry in entries:
        entry["command"] = PRECOMPILED.sub("", entry["command"])
    os.makedirs(DATABASE, exist_ok=True)
    with open(EMPTY, "wb"):
        pass
    with open(os.path.join(DATABASE, "compile_commands.json"), "w", encoding="utf-8") as file:
        json.dump(entries, file)
    return {os.path.relpath(entry["file"], ROOT): entry for entry in entries}


def alone(header, commands):
    """The header and nothing else, with the flags of a source from its folder, or from above it."""
    folder = header
    near = []
    while not near:
        folder = os.path.dirname(folder)
        near = [file for file in commands if file.startswith(os.path.join(folder, ""))]
    entry = commands[near[0]]
    words = shlex.split(entry["command"])
    flags = words[: words.index("-o")]
    return [*flags, "-fsyntax-only", "-include", os.path.join(ROOT, header), "-x", "c++", EMPTY]


def run_each(what, commands):
    """Runs the commands, as many at a time as there are processors; whether all were content."""
    print(f"==> {what}: {len(commands)} files", flush=True)

    def run(command):
        result = subprocess.run(command, cwd=BUILD, capture_output=True, text=True)
        # Both tools end well after a warning unless told otherwise, and count what they left out.
        found = re.sub(r"^\d+ (warning|error)s?.* generated\..*\n?", "", result.stderr, flags=re.M)
        return result.returncode == 0, result.stdout + (found if result.returncode else "")

    with ThreadPoolExecutor(os.cpu_count()) as pool:
        good = True
        for passed, text in pool.map(run, commands):
            if not passed:
                print(text, end="", flush=True)
            good = good and passed
        return good


def main():
    if set(sys.argv[1:]) - {"--all", "--quick"}:
        sys.exit("usage: ./dev lint [--all] [--quick]")
    everything = "--all" in sys.argv
    quick = "--quick" in sys.argv
    known = None if everything else changed()
    files = [f for f in (git("ls-files") if known is None else known) if f.endswith((".cpp", ".h"))]
    looked_at = files
    if known is None and not everything:
        print("==> no commit to compare with: the format only; ./dev lint --all takes all")
        looked_at = []
    commands = write_database()
    headers = [file for file in looked_at if file.endswith(".h")]
    sources = [file for file in sources_for(looked_at) if file in commands]
    if quick:
        sources = []
    elif not everything and len(sources) > MOST_SOURCES:
        print(f"==> of {len(sources)} sources those that changed last; ./dev lint --all takes all")
        sources = sources[:MOST_SOURCES]
    in_root = [os.path.join(ROOT, file) for file in files]
    tidy = ["clang-tidy", "-p", DATABASE, "--quiet", f"--header-filter=^{ROOT}/({FOLDERS})/"]
    tidy += ["--extra-arg=-Wno-unknown-warning-option"]
    clazy = ["clazy-standalone", "-p", DATABASE, "--checks=level1", f"--header-filter=^{ROOT}/({FOLDERS})/"]
    clazy += ["--extra-arg=-Wno-unknown-warning-option", "--extra-arg=-Werror"]
    steps = (
        ("format", [["clang-format", "--dry-run", "--Werror", file] for file in in_root]),
        ("headers by themselves", [alone(header, commands) for header in headers]),
        ("clang-tidy", [[*tidy, os.path.join(ROOT, source)] for source in sources]),
        ("clazy", [[*clazy, os.path.join(ROOT, source)] for source in sources]),
    )
    if not all([run_each(what, step) for what, step in steps]):
        sys.exit("dev: lint found something")
    print("==> lint is clean")


if __name__ == "__main__":
    main()
