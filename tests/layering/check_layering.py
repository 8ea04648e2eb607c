#!/usr/bin/env python3
"""Checks the station's layering: usage: check_layering.py SOURCE_DIR BINARY_DIR

1. Every #include "a/b.h" in src/ and app/ names a folder at the same place or below the
   including file's folder, never a sibling or a folder above it.
2. Qt headers by layer: none in core and formats; Qt Core only in station and the feature
   folders; nothing from Qt Widgets or Qt Print Support below src/ui.
3. No target below src/ui, and not tarvelle-cli, links Qt Widgets, directly or through
   another target (read from the links CMake wrote to BINARY_DIR/layering/targets.txt).
Prints each breach and exits 1 if there is any.
"""
import os
import re
import sys

# Rank of each folder, bottom to top. Folders of the same rank may not include each other.
RANKS = {
    "core": 0,
    "formats": 1,
    "station": 2,
    "platform": 3,
    "prediction": 4,
    "tables": 5, "sky": 5,
    "scripting": 6, "server": 6, "log": 6,
    "render": 7,
    "ui/common": 8,
    "ui/observer": 9, "ui/prediction": 9, "ui/tables": 9, "ui/sky": 9,
    "ui/scripting": 9, "ui/server": 9, "ui/log": 9,
    "ui/main": 10,
    "cli": 11,
    "app": 12,
}
FEATURES = {"prediction", "tables", "sky", "scripting", "server", "log"}
NO_QT = {"core", "formats"}
QT_CORE_ONLY = {"station"} | FEATURES
# Folders that may use one Qt module beyond Qt Core: the server's TCP adapter.
EXTRA_QT = {"server": {"QtNetwork"}}
WIDGET_MODULES = {"QtWidgets", "QtPrintSupport", "QtSvgWidgets"}
WIDGET_TARGETS = {"Qt6::Widgets", "Qt6::PrintSupport", "Qt6::SvgWidgets"}
QT_INCLUDE_ROOTS = ["/usr/include/x86_64-linux-gnu/qt6", "/usr/include/aarch64-linux-gnu/qt6",
                    "/usr/include/qt6"]

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.M)


def folder_of(rel_path):
    """The layer folder of a path relative to the source root ('src/ui/main/x.cpp' -> 'ui/main')."""
    parts = rel_path.split("/")
    if parts[0] == "app":
        return "app"
    if parts[0] != "src" or len(parts) < 3:
        return None
    if parts[1] == "ui":
        return "ui/" + parts[2] if len(parts) >= 4 else "ui"
    return parts[1]


def qt_module_of(header):
    for root in QT_INCLUDE_ROOTS:
        if not os.path.isdir(root):
            continue
        for module in os.listdir(root):
            if os.path.isfile(os.path.join(root, module, header)):
                return module
    return None


def check_includes(source_dir, breaches):
    qt_cache = {}
    for top in ("src", "app"):
        for dirpath, _, files in os.walk(os.path.join(source_dir, top)):
            for name in files:
                if not name.endswith((".h", ".cpp", ".inc")):
                    continue
                path = os.path.join(dirpath, name)
                rel = os.path.relpath(path, source_dir)
                own = folder_of(rel)
                if own not in RANKS:
                    breaches.append(f"{rel}: folder {own!r} is not in the layering")
                    continue
                with open(path, encoding="utf-8", errors="replace") as f:
                    text = f.read()
                for kind, target in INCLUDE.findall(text):
                    if kind == '"':
                        check_quoted(rel, own, target, source_dir, breaches)
                    elif target.startswith("Q"):
                        module = qt_cache.setdefault(target, qt_module_of(target))
                        check_qt(rel, own, target, module, breaches)


def check_quoted(rel, own, target, source_dir, breaches):
    if "/" not in target:
        # Only files of the same folder may be named without it (generated tables, .inc).
        if not os.path.isfile(os.path.join(source_dir, os.path.dirname(rel), target)):
            breaches.append(f"{rel}: include \"{target}\" does not name its folder")
        return
    other = folder_of("src/" + target)
    if other not in RANKS:
        breaches.append(f"{rel}: include \"{target}\" is outside the layered folders")
        return
    if other == own:
        return
    if RANKS[other] >= RANKS[own]:
        breaches.append(f"{rel}: {own} includes {other} (\"{target}\"), which is not below it")


def check_qt(rel, own, header, module, breaches):
    if own in NO_QT:
        breaches.append(f"{rel}: {own} uses no Qt, but includes <{header}>")
    elif own in QT_CORE_ONLY and module not in (None, "QtCore") and module not in EXTRA_QT.get(own, ()):
        breaches.append(f"{rel}: {own} is Qt Core only, but includes <{header}> from {module}")
    elif RANKS[own] < RANKS["ui/common"] and module in WIDGET_MODULES:
        breaches.append(f"{rel}: {own} is below src/ui, but includes <{header}> from {module}")


def check_links(binary_dir, breaches):
    path = os.path.join(binary_dir, "layering", "targets.txt")
    if not os.path.isfile(path):
        breaches.append(f"{path} is missing: configure the build first")
        return
    links, folders = {}, {}
    with open(path, encoding="utf-8") as f:
        for line in f:
            line = line.rstrip("\n")
            if not line:
                continue
            name, source, deps = line.split("|", 2)
            links[name] = [d for d in deps.split(";") if d]
            folders[name] = source
    if "tarvelle-cli" not in links or "tarvelle_core" not in links:
        breaches.append(f"{path} does not list the station's targets")

    def widget_path(target, seen):
        """A chain of links from target to a Qt widget module, or None."""
        if target in WIDGET_TARGETS:
            return [target]
        if target in seen:
            return None
        seen.add(target)
        for dep in links.get(target, []):
            dep = re.sub(r"^\$<LINK_ONLY:(.*)>$", r"\1", dep)
            chain = widget_path(dep, seen)
            if chain:
                return [target] + chain
        return None

    for name, source in folders.items():
        if not source:
            continue  # a Qt module
        rel = os.path.relpath(source, os.path.dirname(os.path.dirname(path)))
        folder = folder_of(os.path.relpath(source, SOURCE_DIR) + "/x")
        below_ui = folder in RANKS and RANKS[folder] < RANKS["ui/common"]
        if below_ui or name == "tarvelle-cli" or name == "tarvelle_cli_commands":
            chain = widget_path(name, set())
            if chain:
                breaches.append(f"{name} ({folder or rel}) links Qt Widgets: {' -> '.join(chain)}")


SOURCE_DIR = ""


def main():
    global SOURCE_DIR
    if len(sys.argv) != 3:
        print(__doc__)
        return 2
    SOURCE_DIR = os.path.abspath(sys.argv[1])
    breaches = []
    check_includes(SOURCE_DIR, breaches)
    check_links(os.path.abspath(sys.argv[2]), breaches)
    for b in breaches:
        print(b)
    print(f"layering: {len(breaches)} breach(es)")
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
