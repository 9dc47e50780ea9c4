#!/usr/bin/env python3
"""Compares the vcpkg port and the Conan recipe with what CMake builds and installs.

A port repeats the version, the licence, options, names of targets and of libraries. This finds where one of them
differs, without vcpkg or Conan, and tries on changed copies that it would. The last line is "N passed, N failed, N
skipped".
"""

import fnmatch
import json
import pathlib
import re
import sys
import types

ROOT = pathlib.Path(__file__).parent.parent
VCPKG = "packaging/vcpkg/vantro-profile-utils/"
CONAN = "packaging/conan/"
READ = ["CMakeLists.txt", "cmake/library.cmake", "bindings/c/CMakeLists.txt", "LICENSE", VCPKG + "vcpkg.json",
        VCPKG + "portfile.cmake", VCPKG + "usage", CONAN + "conanfile.py", CONAN + "test_package/conanfile.py",
        CONAN + "test_package/CMakeLists.txt"]


class Project:
    """What the files of CMake say."""

    def __init__(self, texts):
        top, library, c = (texts[name] for name in READ[:3])
        self.version = re.search(r"project\(VantroProfileUtils VERSION ([\d.]+)", top)[1]
        self.description = re.search(r'DESCRIPTION "(.*)"', top)[1]
        self.options = set(re.findall(r"^option\((\w+)", top, re.M))
        self.libraries = {re.search(r"OUTPUT_NAME ([\w-]+)", text)[1] for text in (library, c)}
        self.packages = set(re.findall(r"vantro_install_pkg_config\(([\w-]+)\.pc", library + c))
        self.targets = set(re.findall(r"EXPORT_NAME (\w+)", library + c))
        self.config = re.search(r"DESTINATION \$\{CMAKE_INSTALL_LIBDIR\}/(cmake/\w+)\)", library)[1]
        self.sources = set(re.findall(r"^    (src/\S+\.cpp)$", library, re.M))
        self.sources |= {"bindings/c/" + name for name in re.findall(r"^    (\w+\.cpp)$", c, re.M)}
        self.sources |= set(re.findall(r"\$\{PROJECT_SOURCE_DIR\}/(\S+\.cpp)", c))
        self.licence = {"MIT License": "MIT"}[texts["LICENSE"].splitlines()[0]]


def unknown_names(project, where, text):
    """CMake options, targets and components that the text names and the project does not have."""
    for option in set(re.findall(r"\bVANTRO_BUILD_\w+", text)) - project.options:
        yield f"{where}: no option {option}"
    targets = set(re.findall(r"VantroProfileUtils::(\w+)", text)) | set(re.findall(r"COMPONENTS (\w+)", text))
    for target in targets - project.targets:
        yield f"{where}: no target {target}"


def differences(where, **values):
    for name, (said, right) in values.items():
        if said != right:
            yield f"{where}: {name} is {said}, not {right}"


def problems_of_vcpkg(project, texts):
    port = json.loads(texts[VCPKG + "vcpkg.json"])
    portfile, usage = texts[VCPKG + "portfile.cmake"], texts[VCPKG + "usage"]
    yield from differences("vcpkg.json", version=(port["version"], project.version),
                           licence=(port["license"], project.licence),
                           description=(port["description"], project.description))
    yield from differences("portfile.cmake",
                           config=(re.search(r"CONFIG_PATH lib/(\S+)\)", portfile)[1], project.config),
                           features=(set(re.findall(r"FEATURES (\w+) VANTRO", portfile)), set(port["features"])))
    yield from unknown_names(project, "portfile.cmake", portfile)
    yield from unknown_names(project, "usage", usage)


class Part:
    """Stands for a part of Conan: keeps what the recipe sets."""

    def __init__(self, *_):
        self.properties, self.cache_variables = {}, {}

    def set_property(self, name, value):
        self.properties[name] = value

    def generate(self):
        Part.generated = self.cache_variables


def recipe_from(text, texts):
    """The recipe in this text, as an object of its class, after the methods that need nothing but the sources."""
    copied = []
    tools = {"conan": {"ConanFile": object}, "conan.tools.build": {"check_min_cppstd": lambda *_: None},
             "conan.tools.cmake": {"CMake": Part, "CMakeToolchain": Part},
             "conan.tools.files": {"copy": lambda recipe, pattern, *_: copied.append(pattern),
                                   "load": lambda recipe, path: texts[pathlib.Path(path).name]}}
    for name in ("conan", "conan.tools", *tools):
        sys.modules[name] = types.ModuleType(name)
        vars(sys.modules[name]).update(tools.get(name, {}))
    names = {}
    exec(compile(text, CONAN + "conanfile.py", "exec"), names)
    recipe = names["VantroProfileUtils"]()
    recipe.recipe_folder, recipe.export_sources_folder, recipe.folders = CONAN, "", Part()
    recipe.options = types.SimpleNamespace(shared=True, fPIC=True, with_c=True)
    recipe.cpp_info = Part()
    recipe.cpp_info.components = {"cxx": Part(), "c": Part()}
    for step in (recipe.set_version, recipe.export_sources, recipe.layout, recipe.generate, recipe.package_info):
        step()
    recipe.copied = copied
    return recipe


def problems_of_conan(project, texts):
    recipe = recipe_from(texts[CONAN + "conanfile.py"], texts)
    parts = recipe.cpp_info.components.values()
    yield from differences(
        "conanfile.py", version=(recipe.version, project.version), licence=(recipe.license, project.licence),
        description=(recipe.description, project.description),
        libraries=({name for part in parts for name in part.libs}, project.libraries),
        packages=({part.properties["pkg_config_name"] for part in parts}, project.packages),
        config=(recipe.cpp_info.components["cxx"].builddirs, ["lib/" + project.config]))
    for option in set(Part.generated) - project.options:
        yield f"conanfile.py: no option {option}"
    for source in sorted(project.sources):
        if not any(fnmatch.fnmatch(source, pattern) for pattern in recipe.copied):
            yield f"conanfile.py: does not export {source}"
    compile(texts[CONAN + "test_package/conanfile.py"], "test_package/conanfile.py", "exec")
    lists = texts[CONAN + "test_package/CMakeLists.txt"]
    yield from unknown_names(project, "test_package", lists)
    for program in re.findall(r"\.\./\.\./\.\./(\S+\.cpp)", lists):
        if not (ROOT / program).is_file():
            yield f"test_package: no {program}"


def problems_of(texts):
    project = Project(texts)
    return [*problems_of_vcpkg(project, texts), *problems_of_conan(project, texts)]


# What a change would look like: a file, a text in it, and what stands there instead.
CHANGES = [
    ("CMakeLists.txt", "VERSION 0", "VERSION 9"),
    ("CMakeLists.txt", "option(VANTRO_BUILD_C ", "option(VANTRO_BUILD_PLAIN_C "),
    ("CMakeLists.txt", "option(VANTRO_BUILD_TESTS ", "option(VANTRO_BUILD_SUITE "),
    ("CMakeLists.txt", "Profile transactions", "Transactions"),
    ("cmake/library.cmake", "EXPORT_NAME VantroProfileUtils", "EXPORT_NAME Library"),
    ("cmake/library.cmake", "OUTPUT_NAME VantroProfileUtils", "OUTPUT_NAME Library"),
    ("cmake/library.cmake", "/cmake/VantroProfileUtils)", "/cmake/Library)"),
    ("bindings/c/CMakeLists.txt", "EXPORT_NAME C", "EXPORT_NAME PlainC"),
    ("bindings/c/CMakeLists.txt", "(vantro-c.pc", "(vantro-plain-c.pc"),
    (VCPKG + "vcpkg.json", '"MIT"', '"BSL-1.0"'),
    (VCPKG + "vcpkg.json", '"c": {', '"plain-c": {'),
    (VCPKG + "usage", "COMPONENTS C", "COMPONENTS PlainC"),
    (CONAN + "conanfile.py", '"src/*"', '"include/*"'),
    (CONAN + "test_package/CMakeLists.txt", "parse_profile.cpp", "no_program.cpp"),
]


def main():
    texts = {name: (ROOT / name).read_text(encoding="utf-8") for name in READ}
    found = problems_of(texts)
    for problem in found:
        print(problem)
    missed = 0
    for name, old, new in CHANGES:
        if old not in texts[name]:
            print(f"{name} does not contain: {old}")
            missed += 1
        elif problems_of({**texts, name: texts[name].replace(old, new)}) == found:
            print(f"not noticed in {name}: {old} -> {new}")
            missed += 1
    failed = missed + (1 if found else 0)
    print(f"{1 + len(CHANGES) - failed} passed, {failed} failed, 0 skipped")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
