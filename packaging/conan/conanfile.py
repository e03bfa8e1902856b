"""The recipe of Conan 2, for the source archive of `make dist`.

    conan create packaging/conan -c user.vesk:archive=/path/of/VeskSondrel64-1.0.2.0-src.tar.gz
"""

import os

from conan import ConanFile
from conan.errors import ConanInvalidConfiguration
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain
from conan.tools.files import copy, unzip


class VeskSondrelConan(ConanFile):
    name = "vesk-sondrel"
    version = "1.0.2.0"
    description = "What a notebook's or desktop's hardware and system are doing"
    package_type = "shared-library"
    settings = "os", "arch", "compiler", "build_type"

    def validate(self):
        if self.settings.arch != "x86_64" or self.settings.os not in ("Windows", "Linux"):
            raise ConanInvalidConfiguration("VeskSondrel64 is a library for 64-bit Windows, and for Linux on x86_64")

    def requirements(self):
        # Compiled in, or used by the library alone.
        self.requires("nlohmann_json/[>=3.11]", visible=False)
        self.requires("cli11/[>=2.1]", visible=False)
        self.requires("valijson/[>=1.0]", visible=False)
        self.requires("zlib/[>=1.2.11 <2]", visible=False)
        if self.settings.os == "Linux":
            self.requires("sqlite3/[>=3.40]")

    def source(self):
        archive = self.conf.get("user.vesk:archive")
        if not archive:
            raise ConanInvalidConfiguration("user.vesk:archive names no source archive: make dist makes it")
        unzip(self, archive, strip_root=True)

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["VESK_FOR_PACKAGERS"] = True
        toolchain.generate()
        CMakeDeps(self).generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "LICENSE", self.source_folder, os.path.join(self.package_folder, "licenses"))

    def package_info(self):
        # The package's own CMake files are used: they work wherever it is.
        self.cpp_info.set_property("cmake_find_mode", "none")
        self.cpp_info.builddirs = [os.path.join("lib", "cmake", "VeskSondrel64")]
        self.cpp_info.libs = ["VeskSondrel64"]
