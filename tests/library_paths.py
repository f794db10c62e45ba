#!/usr/bin/python3
"""Where the programs and modules of a build look for libraries, and those that are installed from it.

library_paths.py BUILD
"""
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

BUILD = Path(sys.argv[1])
MODULES = {"bin/tarumine": ("tarumine-gio.so", "tarumine-printing.so"),
           "libexec/tarumine-worker": ("tarumine-decode.so", "tarumine-paper.so", "tarumine-picture.so"),
           "lib/**/tarumine-paper.so": ("tarumine-paper-work.so",)}
OF_THE_WORKER = re.compile(r"lib(harfbuzz|qpdf|uchardet|seccomp)")  # nothing that looks at foreign bytes is ours


def is_elf(path):
    with path.open("rb") as file:
        return file.read(4) == b"\x7fELF"


def programs_and_modules(folder):
    return [path for path in folder.rglob("*") if path.is_file() and not path.is_symlink()
            and path.suffix not in (".o", ".a") and is_elf(path)]


def library_path(program):
    """Its entries, as they are written there."""
    told = subprocess.run(["readelf", "-dW", program], check=True, capture_output=True, text=True).stdout
    written = re.findall(r"\((?:RUNPATH|RPATH)\).*\[(.*)\]", told)
    return [entry for path in written for entry in path.split(":")]


def needed(program):
    told = subprocess.run(["readelf", "-dW", program], check=True, capture_output=True, text=True).stdout
    return re.findall(r"\(NEEDED\).*\[(.*)\]", told)


class LibraryPaths(unittest.TestCase):
    def check(self, files):
        for path in files:
            for entry in library_path(path):
                self.assertRegex(entry, r"^(/|\$ORIGIN(/|$))", f"{path} looks into the current folder")

    def check_modules(self, root):
        for pattern, modules in MODULES.items():
            (program,) = root.glob(pattern)
            folders = [Path(entry.replace("$ORIGIN", str(program.parent))) for entry in library_path(program)]
            for module in modules:
                self.assertTrue(any((folder / module).is_file() for folder in folders), module)
        for path in (root / "bin" / "tarumine", *root.glob("lib/**/tarumine-printing.so")):
            self.assertFalse([name for name in needed(path) if OF_THE_WORKER.match(name)], path)

    def test_what_is_built_looks_nowhere_else(self):
        parts = [BUILD / name for name in ("bin", "lib", "libexec", "bench", "tests", "tools")]
        self.check([path for part in parts for path in programs_and_modules(part)])
        self.check_modules(BUILD)

    def test_what_is_installed_finds_its_modules_there(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run(["cmake", "--install", BUILD, "--prefix", folder], check=True, stdout=subprocess.DEVNULL)
            self.check(programs_and_modules(Path(folder)))
            self.check_modules(Path(folder))
            program = Path(folder, "bin", "tarumine")
            self.assertFalse([entry for entry in library_path(program) if str(BUILD) in entry])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
