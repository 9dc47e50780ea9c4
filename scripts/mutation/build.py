"""The build of the mutants: one tree of unchanged sources, built once. A mutant compiles the objects that it changes
into its own folder, with the changed file instead of the real one, and takes all other objects from that tree."""

import json
import re
import shlex
import shutil
import subprocess
from pathlib import Path

CORE = ("include/vantro/", "src/")
CORE_OBJECTS = "CMakeFiles/vantro_profile_utils.dir/"
FLAGS = "-O1 -w -fvisibility-inlines-hidden"  # the tests' copies of inline functions never replace the library's
LIBRARY = "libVantroProfileUtils.so"
STATIC_CHECK = re.compile(
    r"error: (static_assert|static assertion|constexpr variable '.*' must be initialized by a constant expression)"
)


class CannotBuild(Exception):
    pass


def run(command, **options):
    return subprocess.run(command, text=True, errors="replace", **options)


class Build:
    def __init__(self, root: Path, with_simd: bool):
        self.root = root
        self.folder = root / "build" / ("mutate" if with_simd else "mutate-no-simd")
        self.source = self.folder / "source"
        self.tree = self.folder / "build"
        self.with_simd = with_simd

    def copy_sources(self) -> None:
        """Copies the files of the working tree, uncommitted ones included; writes only those that differ."""
        listed = run(
            ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
            cwd=self.root, check=True, capture_output=True,
        ).stdout.split("\0")  # fmt: skip
        wanted = {name for name in listed if name and (self.root / name).is_file()}
        for name in wanted:
            copy, content = self.source / name, (self.root / name).read_bytes()
            if not copy.is_file() or copy.read_bytes() != content:
                copy.parent.mkdir(parents=True, exist_ok=True)
                copy.write_bytes(content)
        for old in [path for path in self.source.rglob("*") if path.is_file()]:
            if str(old.relative_to(self.source)) not in wanted:
                old.unlink()

    def prepare(self, jobs: int) -> None:
        self.copy_sources()
        log = self.folder / "build.log"
        configure = [
            "cmake", "-S", self.source, "-B", self.tree, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None",
            "-DCMAKE_CXX_COMPILER=clang++", "-DCMAKE_CXX_COMPILER_LAUNCHER=", f"-DCMAKE_CXX_FLAGS={FLAGS}",
            "-DBUILD_SHARED_LIBS=ON", "-DCMAKE_SHARED_LINKER_FLAGS=-fuse-ld=lld -Wl,-Bsymbolic",
            "-DCMAKE_CXX_VISIBILITY_PRESET=default",  # the tests call the internals of the shared library
            "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld", "-DVANTRO_BUILD_EXAMPLES=OFF", "-DVANTRO_BUILD_CLI=OFF",
            "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON", f"-DVANTRO_NO_SIMD={'OFF' if self.with_simd else 'ON'}",
            f"-DCMAKE_PROJECT_VantroProfileUtils_INCLUDE={Path(__file__).with_name('build.cmake')}",
        ]  # fmt: skip
        with log.open("w") as out:
            for command in (configure, ["ninja", "-C", self.tree, f"-j{jobs}"]):
                if run(command, stdout=out, stderr=subprocess.STDOUT).returncode != 0:
                    out.flush()
                    raise CannotBuild(f"the unchanged sources do not build, {log}:\n" + log.read_text()[-3000:])
        self._read_build()

    def _read_build(self) -> None:
        self.commands: dict[str, list[str]] = {}
        for entry in json.loads((self.tree / "compile_commands.json").read_text()):
            command = shlex.split(entry["command"])
            self.commands[command[command.index("-o") + 1]] = command
        self.dependents: dict[str, list[str]] = {}
        output = ""
        listing = run(["ninja", "-t", "deps"], cwd=self.tree, check=True, capture_output=True).stdout
        for line in listing.splitlines():
            if line and not line.startswith(" "):
                output = line.split(": #deps")[0]
            elif line.strip().startswith(f"{self.source}/") and output in self.commands:
                name = str(Path(line.strip()).relative_to(self.source))
                self.dependents.setdefault(name, []).append(output)
        targets = run(["ninja", "-t", "targets", "all"], cwd=self.tree, check=True, capture_output=True).stdout
        self.tests = sorted(re.findall(r"^bin/(\w+_tests): CXX_EXECUTABLE_LINKER", targets, re.MULTILINE))
        self.library_link = self._link_command(f"{LIBRARY}.")
        self.test_links = {test: self._link_command(f"bin/{test}") for test in self.tests}

    def _link_command(self, output: str) -> list[str]:
        """The command line of the link step whose output begins with this text."""
        target = output if output.startswith("bin/") else LIBRARY
        listing = run(["ninja", "-t", "commands", target], cwd=self.tree, check=True, capture_output=True).stdout
        for line in reversed(listing.splitlines()):
            if f" -o {output}" in line and "clang++" in line:
                words = shlex.split(line[line.index("/") if line.startswith(":") else 0 :])
                return words[: words.index("&&")] if "&&" in words else words
        raise CannotBuild(f"no link step for {output}")

    def core_objects(self, file: str) -> list[str]:
        """The library's objects that include the file; the one of the same name first."""
        objects = [o for o in self.dependents.get(file, []) if o.startswith(CORE_OBJECTS)]
        stem = file.rsplit(".", 1)[0].removeprefix("include/vantro/")
        return sorted(objects, key=lambda name: (stem not in name, name))

    @staticmethod
    def source_of(core_object: str) -> str:
        return core_object.removeprefix(CORE_OBJECTS).removesuffix(".o")

    def other_objects(self, file: str) -> list[str]:
        return [o for o in self.dependents.get(file, []) if not o.startswith(CORE_OBJECTS)]


class MutantBuild:
    """The objects and programs of one mutant, in its own folder."""

    def __init__(self, build: Build, folder: Path, file: str, text: str, execute):
        self.build, self.folder, self.file, self.execute = build, folder, file, execute
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)
        changed = folder / f"changed{Path(file).suffix}"
        changed.write_text(text)
        overlay = {
            "version": 0, "case-sensitive": "true", "use-external-names": "false",
            "roots": [{"type": "file", "name": str(build.source / file), "external-contents": str(changed)}],
        }  # fmt: skip
        (folder / "overlay.yaml").write_text(json.dumps(overlay))
        self.log = ""

    def _placed(self, name: str) -> str:
        path = self.folder / "objects" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        return str(path)

    def compile(self, objects: list[str], options=()) -> bool:
        for name in objects:
            command = list(self.build.commands[name])
            command[command.index("-o") + 1] = self._placed(name)
            command[1:1] = ["-ivfsoverlay", str(self.folder / "overlay.yaml")]
            status, self.log = self.execute([*command, *options], 120, cwd=self.build.tree)
            if status != 0:
                return False
        return True

    def failed_by_static_check(self) -> bool:
        return STATIC_CHECK.search(self.log) is not None

    def _link(self, command: list[str], output: Path, further=()) -> bool:
        placed = [self._own_or_common(word) for word in command]
        placed[placed.index("-o") + 1] = str(output)
        status, self.log = self.execute([*placed, *further], 120, cwd=self.build.tree)
        return status == 0

    def _own_or_common(self, word: str) -> str:
        own = self.folder / "objects" / word
        return str(own) if word.endswith(".o") and own.is_file() else word

    def link_library(self) -> bool:
        soname = next(w for w in self.build.library_link if "-soname," in w).split("-soname,")[1]
        return self._link(self.build.library_link, self.folder / soname)

    def link_tests(self, objects: list[str]) -> bool:
        """Relinks the test programs that contain one of the objects, directly or from an archive."""
        (self.folder / "bin").mkdir(exist_ok=True)
        for test, command in self.build.test_links.items():
            own = [o for o in objects if o in command]
            archives = {Path(word).parent for word in command if word.endswith(".a")}
            # The linker skips an archive member whose definitions it already has.
            from_archives = [
                o for o in objects if "/CMakeFiles/" in o and Path(o.split("/CMakeFiles/")[0]) in archives
                and o not in command
            ]  # fmt: skip
            further = [self._placed(o) for o in from_archives]
            if (own or further) and not self._link(command, self.folder / "bin" / test, further):
                return False
        return True

    def program(self, test: str) -> Path:
        own = self.folder / "bin" / test
        return own if own.is_file() else self.build.tree / "bin" / test
