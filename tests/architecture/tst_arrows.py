"""Which folder includes which: only what docs/rooms.dot draws, and nothing in circles."""

import os
import re
import unittest
from collections import defaultdict
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
QT_CORE_HEADERS = Path(os.environ["QT_CORE_HEADERS"])
# They include what they like.
COMPOSERS = ("tests", "bench")
HOST_LIBRARIES = {"kelp": "kelpCore", "pando": "kelpPando", "vu": "kelpvu", "tessa": "tessa"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.M)


class Room:
    """A folder, and what its sources may include besides their own headers and the standard library."""

    def __init__(self, folder, qt, headers):
        self.folder = folder
        self.has_all_of_qt = qt == "all"
        self.headers = headers.split()  # an entry with a slash at its end is a folder
        self.arrows = set()  # other rooms

    def may_include(self, header, quoted):
        if any(header.startswith(entry) if entry.endswith("/") else header == entry for entry in self.headers):
            return True
        if "/" in header and (other := room_of(path_of(header))):
            return other is self or other.folder in self.arrows
        if quoted:  # written by the build
            return header.endswith(".moc") or (header.startswith("ui_") and self.has_all_of_qt)
        if header.startswith("Q"):
            return self.has_all_of_qt or (QT_CORE_HEADERS / header).exists()
        return re.fullmatch("[a-z_]+", header) is not None


def read_rooms():
    text = (ROOT / "docs/rooms.dot").read_text(encoding="utf-8")
    rooms = {}
    for folder, qt, headers in re.findall(r'"([\w/]+)" \[qt=(core|all)(?:, headers="([^"]*)")?\]', text):
        rooms[folder] = Room(folder, qt, headers)
    for folder, targets in re.findall(r'"([\w/]+)" -> ("[\w/]+"|\{[^}]*\})', text):
        rooms[folder].arrows.update(re.findall(r'"([\w/]+)"', targets))
    return rooms


ROOMS = read_rooms()


def room_of(path):
    """The innermost room counts; None outside every room."""
    inside = [folder for folder in ROOMS if path.startswith(folder + "/")]
    return ROOMS[max(inside, key=len)] if inside else None


def path_of(header):
    """A header lies below the root, below src/, or among a host library's public headers."""
    first = header.split("/")[0]
    if first in HOST_LIBRARIES:
        return f"host/{HOST_LIBRARIES[first]}/include/{header}"
    return header if (ROOT / first).exists() else "src/" + header


def all_sources():
    """The text of each source below the root, by its path; the composers' are left out."""
    folders = [each for each in ROOT.iterdir() if each.is_dir() and not each.name.startswith((".", "build"))]
    files = [file for folder in folders if folder.name not in COMPOSERS for file in folder.rglob("*.*")]
    return {str(file.relative_to(ROOT)): file.read_text(encoding="utf-8")
            for file in files if file.suffix in (".h", ".cpp")}


def violations(file, text):
    room = room_of(file)
    if not room:
        return [f"{file} lies in no room"]
    return [f"{file} must not include {header}" for quote, header in INCLUDE.findall(text)
            if not room.may_include(header, quote == '"')]


def reach_of(graph):
    """All that each node leads to."""
    reached = defaultdict(set)
    for node in list(graph):
        ahead = list(graph[node])
        while ahead:
            following = ahead.pop()
            if following not in reached[node]:
                reached[node].add(following)
                ahead += graph.get(following, ())
    return reached


def circles_in(graph):
    return sorted(node for node, reached in reach_of(graph).items() if node in reached)


ARROWS = {folder: room.arrows for folder, room in ROOMS.items() if room.arrows}


class Arrows(unittest.TestCase):
    maxDiff = None

    def test_every_source_keeps_to_its_room(self):
        used = defaultdict(set)
        for file, text in all_sources().items():
            self.assertEqual(violations(file, text), [])
            for _, header in INCLUDE.findall(text):
                other = room_of(path_of(header)) if "/" in header else None
                if other and other is not room_of(file):
                    used[room_of(file).folder].add(other.folder)
        for folder, arrows in ARROWS.items():
            self.assertTrue((ROOT / folder).is_dir(), folder)
            self.assertEqual(arrows - used[folder], set(), f"no source uses these arrows of {folder}")

    def test_nothing_goes_in_circles(self):
        self.assertEqual(circles_in(ARROWS), [])
        # A component is a header with its source. Within the stand-in of tessa, host, service and manager
        # know each other, because the host's closed libraries let them.
        components = defaultdict(set)
        for file, text in all_sources().items():
            component = file.split(".")[0]
            others = {path_of(header).split(".")[0] for _, header in INCLUDE.findall(text)}
            if not file.startswith("host/tessa/"):
                components[component] |= others - {component}
        self.assertEqual(circles_in(components), [])

    def test_a_forbidden_include_is_found(self):
        for room, header, forbidden in (
            ("src/data", '"settings/arcongroup.h"', True),
            ("src/settings", '"data/field.h"', False),
            ("src/page", '"elsewhere.h"', True),
            ("tl", "<QWidget>", True),
            ("host/kelpCore", "<QtWidgets/QWidget>", True),
            ("controller", "<tessa/controllerlink.h>", True),
            ("nowhere", "<vector>", True),
        ):
            found = violations(room + "/some.cpp", f"#pragma once\n  #  include {header}\n")
            self.assertEqual(bool(found), forbidden, f"{room} and {header}")
        self.assertEqual(circles_in({"b": ["c"], "c": ["b", "d"], "d": ["e"]}), ["b", "c"])

    def test_the_picture_shows_these_arrows(self):
        drawn = defaultdict(list)
        picture = (ROOT / "docs/pictures/rooms.svg").read_text(encoding="utf-8")
        for start, end in re.findall(r"<title>([\w/]+)&#45;&gt;([\w/]+)</title>", picture):
            drawn[start].append(end)
        # An arrow that follows from others is left out.
        self.assertEqual(reach_of(drawn), reach_of(ARROWS), "draw it anew with ./dev picture")


if __name__ == "__main__":
    unittest.main()
