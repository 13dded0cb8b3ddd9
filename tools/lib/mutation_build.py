"""Builds a copy of the checkout and runs its tests, for tools/mutate."""

import filecmp
import hashlib
import json
import os
import re
import resource
import shutil
import signal
import subprocess
import tempfile
import time

# Which tests on Windows could see a change in a folder of src/, by their names without the preset. A folder inside
# another goes by the outer one's row. All tests see a folder that has no row; a test that no row names sees all folders.
SEEN_BY = {
    "settings": "store_test.*|server_test|behaviours_test|config_.*|desktop_test|taskbar_desktop_test",
    "displays": "behaviours?_.*|config_.*|taskbar.*",
    "hook": "hook_test|server_test|behaviours?_.*|desktop_test",
    "desktops": "store_test|server_test|desktop_test|config_.*|taskbar_desktop_test",
    "behaviours": "behaviours?_.*|desktop_test",
    "hotkeys": "store_test|server_test|config_.*|desktop_test",
    "config": "config_.*|store_test|server_test",
    "crash": "crash_.*",
    "mirror": "taskbar.*|server_test",
    "taskbars": "taskbar.*|behaviours_test|server_test|config_.*",
}
NAMED = re.compile("|".join(SEEN_BY.values()) + "|hook_test")
# They see nothing of it: the tests of the stand-in shell, and on Windows those that run natively as well.
BLIND = re.compile(r".*pure.*|tray_test")
VOID = ("doesn't compile", "same code")


def folder_of(file):
    """The folder of a file, as src/ has it."""
    return os.path.dirname(file).removeprefix("src/")


class Failure(Exception):
    """Ends the run with a message."""


def run(command, limit=1800, **options):
    """Exit status and output of a command, None for the status where it took longer than `limit` seconds. Whatever it
    started is ended with it, also when this program is interrupted."""
    with tempfile.TemporaryFile() as output:
        process = subprocess.Popen(
            command,
            stdin=subprocess.DEVNULL,
            stdout=output,
            stderr=subprocess.STDOUT,
            start_new_session=True,
            **options,
        )
        try:
            status = process.wait(limit)
        except subprocess.TimeoutExpired:
            status = None
        finally:
            # A desktop session takes away all of itself when it is asked to end.
            for sign, patience in ((signal.SIGTERM, 30), (signal.SIGKILL, None)):
                if process.poll() is None:
                    os.killpg(process.pid, sign)
                    try:
                        process.wait(patience)
                    except subprocess.TimeoutExpired:
                        pass
        output.seek(0)
        return status, output.read().decode(errors="replace")


def copy_checkout(root, copy):
    """Brings `copy` to the state of the checkout, also where that isn't committed. Equal files stay."""
    command = ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"]
    listed = subprocess.run(command, cwd=root, stdout=subprocess.PIPE, check=True).stdout.decode().split("\0")
    files = {name for name in listed if name and os.path.isfile(os.path.join(root, name))}
    for name in files:
        source, target = os.path.join(root, name), os.path.join(copy, name)
        if not os.path.isfile(target) or not filecmp.cmp(source, target, shallow=False):
            os.makedirs(os.path.dirname(target), exist_ok=True)
            shutil.copy(source, target)
    for folder, below, names in os.walk(copy):
        if folder == copy and "build" in below:
            below.remove("build")
        for path in (os.path.join(folder, name) for name in names):
            if os.path.relpath(path, copy) not in files:
                os.remove(path)


class Test:
    """One test as CTest lists it."""

    def __init__(self, entry):
        self.name = entry["name"].split(".", 1)[-1]
        self.command = entry["command"]
        properties = {item["name"]: item["value"] for item in entry.get("properties", ())}
        self.folder = properties.get("WORKING_DIRECTORY")
        self.failing = properties.get("FAIL_REGULAR_EXPRESSION", [])
        self.on_desktop = "wine" in self.command
        self.program = self.command[self.command.index("wine") + 1] if self.on_desktop else self.command[0]
        self.target = os.path.basename(self.program).removesuffix(".exe")
        self.seconds = 0.0

    def could_see(self, folder):
        if not self.on_desktop:
            return True
        row = SEEN_BY.get(folder.split("/")[0], ".*")
        return bool(re.fullmatch(row, self.name)) if NAMED.fullmatch(self.name) else not BLIND.fullmatch(self.name)

    def limit(self):
        """Seconds after which the test counts as hung. The machine may be busier than when it was measured."""
        return max(90, 5 * self.seconds) if self.on_desktop else max(20, 20 * self.seconds)

    def fails(self, limit, bounded, only=None):
        """None if it passes, else how it failed and in which of its cases. `only` runs one case."""

        def bound():
            # Endless loops of native tests must not take all memory or fill the disk.
            resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 28, 1 << 28))
            if bounded:
                resource.setrlimit(resource.RLIMIT_AS, (1 << 32, 1 << 32))

        surroundings = {**os.environ, "GTEST_FAIL_FAST": "1", "GTEST_COLOR": "no"}
        command = self.command + ([f"--gtest_filter={only}"] if only else [])
        before = None if self.on_desktop else bound
        status, output = run(command, limit, cwd=self.folder, env=surroundings, preexec_fn=before)
        if status == 0 and not any(re.search(pattern, output) for pattern in self.failing):
            return None
        # The case that says that it failed, else the one that was running when the program ended.
        failed = re.search(r"^\[  FAILED  \] ([\w./]+)", output, re.M)
        begun = re.findall(r"^\[ RUN      \] (\S+)", output, re.M)
        case = failed[1] if failed else begun[-1] if begun else None
        return "time-out" if status is None else "failed", case


    def passes(self, bounded):
        """Whether it passes without any change, in three tries, and how long that takes. A case that fails is left out."""
        tries, left_out = 3, []
        while tries:
            begin = time.monotonic()
            failure = self.fails(600, bounded)
            self.seconds = time.monotonic() - begin
            if not failure:
                break
            tries -= 1
            case = failure[1]
            if not tries and case and case not in left_out:
                given = [part for part in self.command if part.startswith("--gtest_filter=")] or ["--gtest_filter=*"]
                self.command.append(given[-1] + (":" if "-" in given[-1][len("--gtest_filter=") :] else "-") + case)
                left_out.append(case)
                tries = 1
        left_out = left_out if tries else [self.name]
        print(f"  {self.name}: {self.seconds:.1f} s", *(f"FAILS, left out: {name}" for name in left_out), flush=True)
        return tries > 0


class Build:
    """A build tree in a copy of the checkout, with its sources and tests."""

    def __init__(self, copy, preset, folder, *definitions):
        self.copy, self.folder, self.native = copy, os.path.join(copy, "build", folder), preset == "host"
        self.tests, self.codes, self.prepared = [], {}, False
        # Objects are the same in every copy, but for the paths in their debug information. The compiler cache may know.
        self.surroundings = {**os.environ, "CCACHE_BASEDIR": copy, "CCACHE_NOHASHDIR": "1"}
        # Warnings are no errors here: a change may well leave a variable unused.
        command = ["cmake", "--preset", preset, "-B", self.folder, "-DCMAKE_CXX_FLAGS=-w", *definitions]
        status, output = run(command, cwd=copy)
        if status != 0:
            raise Failure(output)
        with open(os.path.join(self.folder, "compile_commands.json"), encoding="utf-8") as file:
            commands = json.load(file)
        self.included = {}
        # Each object of the checkout's own sources, its source, and the files that it consists of.
        self.objects = []
        for entry in commands:
            source, made = os.path.relpath(entry["file"], copy), re.search(r" -o (\S+) -c ", entry["command"])
            if made and not source.startswith(".."):
                self.objects.append((made[1], source, self.closure(source)))
        # The address sanitizer takes more address space than any bound would allow.
        self.bounded = self.native and not self.setting("HALYARD_SANITIZE")
        self.strip = self.setting("CMAKE_STRIP")

    def setting(self, name):
        with open(os.path.join(self.folder, "CMakeCache.txt"), encoding="utf-8") as file:
            return next((line.split("=", 1)[1].strip() for line in file if line.startswith(name + ":")), "")

    def closure(self, source):
        """The files of the checkout that a source consists of, itself among them."""
        found, waiting = set(), [source]
        while waiting:
            file = waiting.pop()
            if file in found:
                continue
            found.add(file)
            if file not in self.included:
                with open(os.path.join(self.copy, file), encoding="utf-8") as text:
                    names = re.findall(r'^#include "([^"]+)"', text.read(), re.M)
                folders = ("src", "tests", "apps", os.path.dirname(file))
                paths = {os.path.normpath(os.path.join(folder, name)) for name in names for folder in folders}
                self.included[file] = [path for path in paths if os.path.isfile(os.path.join(self.copy, path))]
            waiting += self.included[file]
        return found

    def make(self, *targets):
        """Whether the targets could be built, and what the compiler says."""
        command = ["nice", "cmake", "--build", self.folder, "-j", "2", "--target", *targets]
        status, output = run(command, env=self.surroundings)
        return status == 0, output

    def build(self, *targets):
        good, output = self.make(*targets)
        if not good:
            raise Failure(output)

    def code_of(self, made):
        """A digest of an object without its debug information, which has the columns of a line."""
        bare = os.path.join(self.folder, "bare.o")
        subprocess.run([self.strip, "-g", "-o", bare, made], cwd=self.folder, check=True)
        with open(bare, "rb") as file:
            return hashlib.sha256(file.read()).digest()

    def prepare(self, folders):
        """Builds the tests that could see a change in the folders and runs each. Those that fail are left out."""
        self.prepared = True
        print(f"{self.folder}: building and running the tests without any change", flush=True)
        # CTest knows the command of a native test when it is built, and that of a test on Windows before.
        self.build("all" if self.native else "tvlHalyd")
        shown = run(["ctest", "--test-dir", self.folder, "--show-only=json-v1"])[1]
        tests = [Test(entry) for entry in json.loads(shown[shown.index("{") :])["tests"] if "command" in entry]
        used = [test for test in tests if test.program.startswith(self.folder + "/")]
        self.tests = [test for test in used if any(test.could_see(folder) for folder in folders)]
        if not self.native:
            self.build(*{test.target for test in self.tests})
            # The first session makes what all others copy; its time isn't a test's.
            run([os.path.join(self.copy, "tools", "desktop"), "--displays", "1", "--", "true"])
        for made, _, _ in self.objects:
            if os.path.exists(os.path.join(self.folder, made)):
                self.codes[made] = self.code_of(made)
        self.tests = [test for test in self.tests if test.passes(self.bounded)]
        if not self.tests:
            raise Failure("no test passes without any change")
        self.tests.sort(key=lambda test: test.seconds)

    def effect(self, file):
        """Compiles what `file` is part of, after a change. One of VOID, or None where other code came of it."""
        # Native tests are compiled as well, since templates come to life in them. On Windows they wait until they run.
        folders = ("src/", "apps/", "tests/") if self.native else ("src/",)
        objects = [made for made, source, parts in self.objects if file in parts and source.startswith(folders)]
        if not self.make(*objects)[0]:
            return VOID[0]
        return VOID[1] if all(self.code_of(made) == self.codes.get(made) for made in objects) else None

    def notices(self, test):
        """How a test notices the change that is built, None if it doesn't. A failure must show again, alone."""
        for _ in range(3):
            failure = test.fails(test.limit(), self.bounded)
            if not failure:
                return None
            how, case = failure
            if (self.native and how == "time-out") or test.fails(test.limit(), self.bounded, case):
                return f"{test.name} {case or ''} ({how})"
        return None

    def answer(self, mutation):
        """`noticed` and by what, `survived`, or one of VOID."""
        void = self.effect(mutation.file)
        if void:
            return void, ""
        for test in self.tests:
            if test.could_see(folder_of(mutation.file)):
                if not self.make(test.target)[0]:
                    return VOID[0], ""
                by = self.notices(test)
                if by:
                    return "noticed", by
        return "survived", ""
