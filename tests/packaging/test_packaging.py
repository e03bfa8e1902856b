"""Archives with the same bytes, the source archive, and the ports run with doubles of what was not at hand."""

from __future__ import annotations

import json
import os
import re
import subprocess
import sys
import tarfile
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "packaging"))

import archives  # noqa: E402

# Doubles of vcpkg's functions: each prints its arguments.
FUNCTIONS = (
    "vcpkg_cmake_configure", "vcpkg_cmake_install", "vcpkg_copy_pdbs", "vcpkg_copy_tools", "vcpkg_cmake_config_fixup",
    "vcpkg_fixup_pkgconfig", "vcpkg_install_copyright",
)
DOUBLES = "".join(f'function({name})\n  message(STATUS "{name} ${{ARGN}}")\nendfunction()\n' for name in FUNCTIONS) + """
function(vcpkg_download_distfile variable)
  message(STATUS "vcpkg_download_distfile ${ARGN}")
  set(${variable} /archive PARENT_SCOPE)
endfunction()
function(vcpkg_extract_source_archive variable)
  set(${variable} /sources PARENT_SCOPE)
endfunction()
"""


class Archives(unittest.TestCase):
    def setUp(self) -> None:
        self.directory = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def test_depend_on_their_content_alone(self) -> None:
        entries = {"b/tool": (b"#!", True), "a": (b"text", False)}
        for name in ("x.zip", "x.tar.gz"):
            one, two = self.directory / ("1-" + name), self.directory / ("2-" + name)
            archives.write(one, entries, 1700000000)
            archives.write(two, dict(reversed(list(entries.items()))), 1700000000)
            self.assertEqual(one.read_bytes(), two.read_bytes())
            self.assertEqual(archives.read(one), entries)

    def test_a_kit_is_finished_whatever_its_times_and_order_were(self) -> None:
        finished = []
        for number, names in enumerate((["kit/a", "kit/b"], ["kit/b", "kit/a"])):
            file = self.directory / f"{number}" / "kit.tar.gz"
            file.parent.mkdir()
            with tarfile.open(file, "w:gz") as archive:
                for name in names:
                    source = self.directory / "source"
                    source.write_text(name)
                    os.utime(source, (1000 + number, 1000 + number))
                    archive.add(source, name)
            subprocess.run([sys.executable, str(ROOT / "packaging/finish_kit.py"), str(file)], check=True)
            finished.append(file.read_bytes())
            self.assertEqual(list(file.parent.iterdir()), [file])
        self.assertEqual(finished[0], finished[1])


class SourceArchive(unittest.TestCase):
    def test_has_what_the_ports_build(self) -> None:
        with tempfile.TemporaryDirectory() as directory:
            asked = subprocess.run(
                [sys.executable, str(ROOT / "packaging/make_dist.py"), directory],
                capture_output=True, text=True, check=True,
            )
            file, checksum = asked.stdout.split()
            self.assertRegex(checksum, "^[0-9a-f]{128}$")
            names = set(archives.read(Path(file)))
        top = Path(file).name[: -len(".tar.gz")]
        for wanted in ("CMakeLists.txt", "include/vesk_sondrel.hpp", "src/frame/VeskSondrel64.def", "LICENSE"):
            self.assertIn(f"{top}/{wanted}", names)
        self.assertFalse([name for name in names if not name.startswith(top + "/")])


class Ports(unittest.TestCase):
    def options_of(self, text: str) -> set:
        """The options that a port passes, which the project has to know."""
        return set(re.findall(r"VESK_[A-Z_0-9]+", text)) - {"VESK_SONDREL_SOURCES", "VESK_SONDREL_SHA512"}

    def test_pass_options_that_the_project_has(self) -> None:
        text = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
        known = set(re.findall(r"option\((VESK_\w+)", text))
        for port in ("vcpkg/vesk-sondrel/portfile.cmake", "conan/conanfile.py"):
            used = self.options_of((ROOT / "packaging" / port).read_text(encoding="utf-8"))
            self.assertEqual(used, {"VESK_FOR_PACKAGERS"})
            self.assertLessEqual(used, known)

    def test_port_of_vcpkg_runs(self) -> None:
        manifest = json.loads((ROOT / "packaging/vcpkg/vesk-sondrel/vcpkg.json").read_text(encoding="utf-8"))
        self.assertRegex(manifest["name"], "^[a-z0-9]+(-[a-z0-9]+)*$")
        dependencies = {each if isinstance(each, str) else each["name"] for each in manifest["dependencies"]}
        self.assertLessEqual({"nlohmann-json", "cli11", "valijson", "sqlite3", "zlib"}, dependencies)
        with tempfile.TemporaryDirectory() as directory:
            script = Path(directory) / "run.cmake"
            port = ROOT / "packaging/vcpkg/vesk-sondrel/portfile.cmake"
            script.write_text(
                f'{DOUBLES}\nset(VERSION {manifest["version"]})\nset(CURRENT_PACKAGES_DIR "{directory}")\ninclude("{port}")\n'
            )
            done = subprocess.run(
                ["cmake", "-P", str(script)], capture_output=True, text=True, check=True,
                env={**os.environ, "VESK_SONDREL_SOURCES": "file:///sources", "VESK_SONDREL_SHA512": "0"},
            )
        self.assertIn(f"file:///sources/VeskSondrel64-{manifest['version']}-src.tar.gz", done.stdout)
        self.assertIn("vcpkg_cmake_configure SOURCE_PATH;/sources;OPTIONS;-DVESK_FOR_PACKAGERS=ON", done.stdout)
        self.assertIn("lib/cmake/VeskSondrel64", done.stdout)

    def test_recipe_of_conan_requires_what_the_port_of_vcpkg_does(self) -> None:
        recipe = (ROOT / "packaging/conan/conanfile.py").read_text(encoding="utf-8")
        compile(recipe, "conanfile.py", "exec")
        required = set(re.findall(r'self\.requires\("([^/"]+)', recipe))
        self.assertEqual(required, {"nlohmann_json", "cli11", "valijson", "sqlite3", "zlib"})


if __name__ == "__main__":
    unittest.main()
