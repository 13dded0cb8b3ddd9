#!/usr/bin/env python3
"""Checks tools/check-image: the built library is good, each damage done to a copy of it is found and named, and a
program that is no such library is refused.

usage: check_image_test.py LIBRARY PROGRAM ARCH
"""

import importlib.machinery
import importlib.util
import os
import struct
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
TOOL = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools", "check-image")


def load_tool():
    loader = importlib.machinery.SourceFileLoader("check_image", TOOL)
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("check_image", loader))
    loader.exec_module(module)
    return module


def put(layout, offset, *values):
    return lambda data: struct.pack_into(layout, data, offset, *values)


def rename(old, new):
    def change(data):
        place = data.find(old.encode() + b"\0")
        assert place >= 0, old
        data[place : place + len(new)] = new.encode()

    return change


def damages(tool, image):
    """Name, change, words that the one fault must have."""
    shared = image.section(tool.SHARED_SECTION)
    exports = image.offset_of(image.directories[0][0])
    names = image.u32(exports + 32)
    slot = image.delayed()[0].slots[-1]
    header = struct.unpack_from("<I", image.data, 0x3C)[0]
    yield "another machine", put("<H", header + 4, 0x1C0), "the machine is 0x1c0"
    yield "a library too many", rename("GDI32.dll", "GDI99.dll"), "shouldn't be: gdi99.dll"
    yield "a delayed library too many", rename("ADVAPI32.dll", "ADVAPI99.dll"), "at all: ADVAPI99.dll"
    yield "a null slot", put(image.pointer, slot.offset, 0), f"the slot of {slot.function} in ADVAPI32.dll holds 0x0"
    yield "other ordinals", put("<I", exports + 16, 2), "export 1 is None, not ServerInit"
    yield "another name", put("<B", image.offset_of(image.u32(image.offset_of(names))), ord("X")), "is X"
    yield "a section that isn't shared", put("<I", shared.header + 36, 0xC0000040), "0x10000000 are missing"
    yield "a section that can't be written", put("<I", shared.header + 36, 0x50000040), "0x80000000 are missing"
    yield "a block that isn't zero", put("<B", shared.offset + 28, 1), "isn't all zero"
    yield "a larger block", put("<I", shared.header + 8, 36), "has 36 bytes"
    yield "no block", put("8s", shared.header, b".private"), "no section .SHARDAT"
    yield "no image", put("<B", 0, 0), "not an image"


def faults(tool, path, arch):
    try:
        return list(tool.faults(path, arch))
    except tool.DamagedImage as error:
        return [str(error)]


def main():
    library, program, arch = sys.argv[1:]
    tool = load_tool()
    failures = []

    def check(name, good, seen):
        print(("ok    " if good else "FAIL  ") + name)
        if not good:
            failures.append(name)
            print(*(f"      seen: {line}" for line in seen or ["nothing"]), sep="\n")

    seen = faults(tool, library, arch)
    check("the library", not seen, seen)
    with open(library, "rb") as file:
        original = file.read()
    with tempfile.TemporaryDirectory() as folder:
        copy = os.path.join(folder, "copy.dll")
        for name, change, words in damages(tool, tool.Image(original)):
            data = bytearray(original)
            change(data)
            with open(copy, "wb") as file:
                file.write(data)
            seen = faults(tool, copy, arch)
            check(name, any(words in fault for fault in seen), seen)
        with open(copy, "wb") as file:
            file.write(original[: len(original) // 2])
        seen = faults(tool, copy, arch)
        check("half a file", any("ends before" in fault for fault in seen), seen)

    image = tool.Image(original)
    size = tool.stripped_size(image, library, arch)
    tool.SIZE_LIMIT = {arch: size - 1}
    seen = list(tool.check_size(image, library, arch))
    check("a byte too many", any(f"has {size} bytes, more than {size - 1}" in fault for fault in seen), seen)

    answer = subprocess.run([TOOL, program, "--arch", arch], capture_output=True, text=True, check=False)
    lines = answer.stdout.splitlines()
    refused = answer.returncode == 1 and any("export 11 is None, not GetServerHwnd" in line for line in lines)
    check("a program", refused, [f"status {answer.returncode}", *lines, answer.stderr])
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
