"""The recipe for Conan 2. In the repository's top folder: conan create packaging/conan --build=missing"""

import os
import re

from conan import ConanFile
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeToolchain
from conan.tools.files import copy, load

TOP = os.path.join("..", "..")
SOURCES = ["CMakeLists.txt", "LICENSE", "bindings/c/*", "cli/io/ascii.h", "cli/io/utf.*", "cmake/*", "include/*", "src/*"]


class VantroProfileUtils(ConanFile):
    name = "vantro-profile-utils"
    description = "Profile transactions and profile parsing for travel-agency reservation terminals"
    license = "MIT"
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False], "fPIC": [True, False], "with_c": [True, False]}
    default_options = {"shared": False, "fPIC": True, "with_c": False}
    implements = ["auto_shared_fpic"]

    def set_version(self):
        lists = load(self, os.path.join(self.recipe_folder, TOP, "CMakeLists.txt"))
        self.version = re.search(r"project\(VantroProfileUtils VERSION ([0-9.]+)", lists)[1]

    def export_sources(self):
        for pattern in SOURCES:
            copy(self, pattern, os.path.join(self.recipe_folder, TOP), self.export_sources_folder)

    def layout(self):
        self.folders.root = TOP
        self.folders.source = "."
        self.folders.build = os.path.join("build", "conan")

    def validate(self):
        check_min_cppstd(self, 20)

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["VANTRO_BUILD_C"] = bool(self.options.with_c)
        for part in ("CLI", "EXAMPLES", "TESTS"):
            toolchain.cache_variables[f"VANTRO_BUILD_{part}"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "LICENSE", self.source_folder, os.path.join(self.package_folder, "licenses"))

    def package_info(self):
        # CMake uses the package's own files, so that find_package works as after "cmake --install".
        self.cpp_info.set_property("cmake_find_mode", "none")
        cxx = self.cpp_info.components["cxx"]
        cxx.builddirs = [os.path.join("lib", "cmake", "VantroProfileUtils")]
        cxx.libs = ["VantroProfileUtils"]
        cxx.set_property("pkg_config_name", "vantro-profile-utils")
        if self.options.shared:
            cxx.defines = ["VANTRO_SHARED"]
        if self.options.with_c:
            self.cpp_info.components["c"].libs = ["vantro-c"]
            self.cpp_info.components["c"].set_property("pkg_config_name", "vantro-c")
