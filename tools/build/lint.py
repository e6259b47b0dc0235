"""Format, headers, clang-tidy and clazy: lint.py [--quick] [--all | FOLDER...]

Checks what changed: files that are not committed, and the commits since origin/main. A clean clone of
origin/main, as in CI, has neither; there it checks what the last commits changed. Of the changed files
it checks the newest, up to a limit that CI can afford, and says how many it leaves out. --all checks
everything, FOLDER everything below it. --quick leaves out clang-tidy and clazy. Needs the build in
build/dev, which ./dev makes first.
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
# Both linters together take some eight seconds for a source, and CI has minutes.
MOST_SOURCES = 25
MOST_HEADERS = 30
LAST_COMMITS = 30

# Left out: what clang does not know of gcc; a header in C that has a member named "explicit"; QSKIP with
# its text alone.
NOISE = ("unknown-warning-option", "keyword-macro", "gnu-zero-variadic-macro-arguments")
# Most loops run over what a call returns, which range-loop-detach warns of as well.
CLAZY = "level1,no-range-loop-detach"
# A test is a program, whose constants cost nothing where a library's would be made in every host.
CLAZY_IN_TESTS = CLAZY + ",no-non-pod-global-static"

# clang cannot read what gcc precompiled.
PRECOMPILED = re.compile(r" -include \S*/cmake_pch\.hxx| -Winvalid-pch| -fpch-preprocess")


def git(*arguments):
    result = subprocess.run(["git", *arguments], cwd=ROOT, capture_output=True, text=True)
    return result.stdout.split() if result.returncode == 0 else []


def since():
    """The commit after which changes count; None in a clone of a single commit."""
    head = git("rev-parse", "HEAD")
    base = git("merge-base", "HEAD", "origin/main")
    if base and (base != head or git("status", "--porcelain")):
        return base[0]
    oldest = git("rev-list", f"--max-count={LAST_COMMITS + 1}", "HEAD")[-1:]
    return None if oldest in ([], head) else oldest[0]


def changed():
    """The newest first: what is not committed, then commit by commit; without any, all files."""
    files = git("ls-files", "--others", "--exclude-standard") + git("diff", "--name-only", "HEAD")
    base = since()
    files += git("log", "--format=", "--name-only", f"{base}..HEAD") if base else git("ls-files")
    return [file for file in dict.fromkeys(files) if os.path.exists(os.path.join(ROOT, file))]


def newest(what, files, most):
    """The first files of the list; says how many it leaves out."""
    if len(files) > most:
        print(f"==> {what}: {len(files) - most} older ones are not checked; ./dev lint --all does it")
    return files[:most]


def sources_for(files):
    """The sources to check; a header is checked in its own source, or in one that includes it."""
    sources = {}
    for file in files:
        if file.endswith(".h"):
            pattern = rf'#include [<"](.*/)?{re.escape(os.path.basename(file))}[>"]'
            own = os.path.splitext(file)[0] + ".cpp"
            near = os.path.join(os.path.dirname(file), "*.cpp")
            users = git("ls-files", "--", own) or git("grep", "-lE", pattern, "--", near)
            users = users or git("grep", "-lE", pattern, "--", "*.cpp", ":!tests", ":!bench")
            users = users or git("grep", "-lE", pattern, "--", "*.cpp")
            sources.update(dict.fromkeys(users[:1]))
        else:
            sources[file] = None
    return list(sources)


def write_database():
    """Writes the build's commands without precompiled headers; returns each file's command."""
    with open(os.path.join(BUILD, "compile_commands.json"), encoding="utf-8") as file:
        entries = json.load(file)
    # A source that tests compile as well is checked as the product compiles it.
    entries.sort(key=lambda entry: " -o tests/" in entry["command"], reverse=True)
    entries = list({entry["file"]: entry for entry in entries}.values())
    for entry in entries:
        entry["command"] = PRECOMPILED.sub("", entry["command"])
    os.makedirs(DATABASE, exist_ok=True)
    with open(EMPTY, "wb"):
        pass
    with open(os.path.join(DATABASE, "compile_commands.json"), "w", encoding="utf-8") as file:
        json.dump(entries, file)
    return {os.path.relpath(entry["file"], ROOT): entry for entry in entries}


def alone(header, commands):
    """The command that compiles a header by itself, with the flags of a source near it."""
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
    """Runs the commands, one for each processor at a time; returns whether all succeeded."""
    print(f"==> {what}: {len(commands)} files", flush=True)

    def run(command):
        result = subprocess.run(command, cwd=BUILD, capture_output=True, text=True)
        # Both tools succeed in spite of warnings unless told otherwise, and count those they left out.
        found = re.sub(r"^\d+ (warning|error)s?.* generated\..*\n?", "", result.stderr, flags=re.M)
        return result.returncode == 0, result.stdout + (found if result.returncode else "")

    with ThreadPoolExecutor(os.cpu_count()) as pool:
        good = True
        for passed, text in pool.map(run, commands):
            if not passed:
                print(text, end="", flush=True)
            good = good and passed
        return good


def checks_of(source):
    """Clazy's checks for the source."""
    return "--checks=" + (CLAZY_IN_TESTS if source.startswith("tests/") else CLAZY)


def options(arguments):
    """The flags and the folders."""
    flags = {argument for argument in arguments if argument.startswith("--")}
    folders = [argument for argument in arguments if argument not in flags]
    missing = [folder for folder in folders if not git("ls-files", "--", folder)]
    if flags - {"--all", "--quick"} or missing or (folders and "--all" in flags):
        sys.exit("usage: ./dev lint [--quick] [--all | FOLDER...]")
    return flags, folders


def main():
    flags, folders = options(sys.argv[1:])
    limited = not folders and "--all" not in flags
    known = changed() if limited else git("ls-files", "--", *folders)
    files = [file for file in known if file.endswith((".cpp", ".h"))]
    commands = write_database()
    headers = [file for file in files if file.endswith(".h")]
    sources = [file for file in sources_for(files) if file in commands]
    if limited:
        headers = newest("headers", headers, MOST_HEADERS)
    if "--quick" in flags:
        sources = []
    elif limited:
        sources = newest("sources", sources, MOST_SOURCES)
    in_root = [os.path.join(ROOT, file) for file in files]
    tidy = ["clang-tidy", "-p", DATABASE, "--quiet", f"--header-filter=^{ROOT}/({FOLDERS})/"]
    clazy = ["clazy-standalone", "-p", DATABASE, f"--header-filter=^{ROOT}/({FOLDERS})/", "--extra-arg=-Werror"]
    for linter in (tidy, clazy):
        linter += [f"--extra-arg=-Wno-{warning}" for warning in NOISE]
    steps = (
        ("format", [["clang-format", "--dry-run", "--Werror", file] for file in in_root]),
        ("headers by themselves", [alone(header, commands) for header in headers]),
        ("clang-tidy", [[*tidy, os.path.join(ROOT, source)] for source in sources]),
        ("clazy", [[*clazy, checks_of(source), os.path.join(ROOT, source)] for source in sources]),
    )
    if not all([run_each(what, step) for what, step in steps]):
        sys.exit("dev: lint found something")
    print("==> lint is clean")


if __name__ == "__main__":
    main()
