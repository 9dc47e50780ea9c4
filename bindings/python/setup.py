"""Builds the C interface with CMake, then the extension module against it.

The environment variable VANTRO_C_LIBRARY saves the first step: it names a libvantro-c.so.1 that is there already. It is
copied into the package, unless VANTRO_C_BUNDLE=no says that the system has it.
"""

import os
import pathlib
import re
import shutil
import subprocess

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext
from setuptools.command.sdist import sdist

HERE = pathlib.Path(__file__).parent.resolve()
# The sources of the library: a source package contains them, and the repository is around this folder.
LIBRARY = HERE / "library" if (HERE / "library").is_dir() else HERE.parent.parent
SOURCES = ["CMakeLists.txt", "LICENSE", "bindings/c", "cli/io/ascii.h", "cli/io/utf.cpp", "cli/io/utf.h",
           "cmake", "include", "src"]
FILE_NAME = "libvantro-c.so.1"
BUNDLES = os.environ.get("VANTRO_C_BUNDLE") != "no"


def version():
    return re.search(r"project\(VantroProfileUtils VERSION ([0-9.]+)", (LIBRARY / "CMakeLists.txt").read_text())[1]


class BuildExtension(build_ext):
    def run(self):
        given = os.environ.get("VANTRO_C_LIBRARY")
        library = pathlib.Path(given).resolve() if given else self.build_library()
        for extension in self.extensions:
            extension.extra_objects = [str(library)]
        super().run()
        for extension in self.extensions if BUNDLES else []:
            folder = pathlib.Path(self.get_ext_fullpath(extension.name)).parent
            shutil.copyfile(library, folder / FILE_NAME)

    def build_library(self):
        folder = pathlib.Path(self.build_temp).resolve() / "library"
        folder.mkdir(parents=True, exist_ok=True)
        options = ["-DCMAKE_BUILD_TYPE=Release", "-DVANTRO_BUILD_C=ON"]
        options += [f"-DVANTRO_BUILD_{part}=OFF" for part in ("CLI", "TESTS", "EXAMPLES")]
        # Nothing but the C library is needed where the package is used.
        options.append("-DCMAKE_SHARED_LINKER_FLAGS=-static-libstdc++ -static-libgcc -Wl,-s")
        subprocess.run(["cmake", "-S", LIBRARY, "-B", folder, *options], check=True)
        jobs = str(self.parallel or os.cpu_count() or 1)
        subprocess.run(["cmake", "--build", folder, "--target", "vantro_c", "-j", jobs], check=True)
        return folder / "bindings" / "c" / FILE_NAME


class SourcePackage(sdist):
    """Adds the sources of the library."""

    def make_release_tree(self, base_dir, files):
        super().make_release_tree(base_dir, files)
        for name in SOURCES:
            source, target = LIBRARY / name, pathlib.Path(base_dir) / "library" / name
            target.parent.mkdir(parents=True, exist_ok=True)
            if source.is_dir():
                shutil.copytree(source, target, dirs_exist_ok=True)
            else:
                shutil.copyfile(source, target)
        shutil.copyfile(LIBRARY / "LICENSE", pathlib.Path(base_dir) / "LICENSE")


setup(
    version=version(),
    cmdclass={"build_ext": BuildExtension, "sdist": SourcePackage},
    options={"bdist_wheel": {"py_limited_api": "cp310"}},
    ext_modules=[
        Extension(
            "vantro_profile._core",
            sorted(str(file.relative_to(HERE)) for file in (HERE / "core").glob("*.c")),
            depends=["core/core.h", str(LIBRARY / "bindings/c/include/vantro_c.h")],
            include_dirs=[str(LIBRARY)],
            extra_compile_args=["-O2", "-Wall", "-Wextra"] + (["-g0"] if BUNDLES else []),
            extra_link_args=["-Wl,-rpath,$ORIGIN"] if BUNDLES else [],
            py_limited_api=True,
        )
    ],
)
