"""Reads a Win32 image: its sections, symbols, exports, imports and resources, out of the bytes of the file."""

import os
import struct
import subprocess
import tempfile
from collections import namedtuple

MACHINES = {"x86": 0x14C, "x64": 0x8664}
TRIPLES = {"x86": "i686-w64-mingw32", "x64": "x86_64-w64-mingw32"}
BITMAPS = 2  # a type of resources
EXPORT_DIRECTORY, IMPORT_DIRECTORY, RESOURCE_DIRECTORY, DELAY_DIRECTORY = 0, 1, 2, 13

Section = namedtuple("Section", "name address size offset raw_size flags header")
Symbol = namedtuple("Symbol", "name section value")
# The library's name, and for each function of it: its name, and the position and content of its slot.
Delayed = namedtuple("Delayed", "library slots")
Slot = namedtuple("Slot", "function offset content")


class DamagedImage(Exception):
    """The file isn't an image, or ends too soon."""


class Image:
    """Addresses are relative to the image's base; `offset` always means a place in the file."""

    def __init__(self, data):
        self.data = data
        if data[:2] != b"MZ":
            raise DamagedImage("not an image")
        header = self.u32(0x3C)
        if data[header : header + 4] != b"PE\0\0":
            raise DamagedImage("not an image")
        self.machine, section_count = self.unpack("<HH", header + 4)
        symbol_table, symbol_count, optional_size = self.unpack("<IIH", header + 12)
        optional = header + 24
        self.wide = self.u16(optional) == 0x20B
        self.pointer = "<Q" if self.wide else "<I"
        self.base = self.unpack(self.pointer, optional + (24 if self.wide else 28))[0]
        directories = optional + (112 if self.wide else 96)
        self.directories = [self.unpack("<II", directories + 8 * index) for index in range(16)]
        strings = symbol_table + 18 * symbol_count
        self.sections = [self._section(optional + optional_size + 40 * index, strings) for index in range(section_count)]
        self.symbols = list(self._symbols(symbol_table, symbol_count, strings))

    def unpack(self, layout, offset):
        try:
            return struct.unpack_from(layout, self.data, offset)
        except struct.error:
            raise DamagedImage(f"the file ends before {offset:#x}") from None

    def u16(self, offset):
        return self.unpack("<H", offset)[0]

    def u32(self, offset):
        return self.unpack("<I", offset)[0]

    def text(self, offset):
        end = self.data.find(b"\0", offset)
        return self.data[offset:end].decode("latin-1")

    def offset_of(self, address):
        for section in self.sections:
            if section.address <= address < section.address + section.raw_size:
                return section.offset + address - section.address
        raise DamagedImage(f"no section holds {address:#x}")

    def text_at(self, address):
        return self.text(self.offset_of(address))

    def section(self, name):
        return next((section for section in self.sections if section.name == name), None)

    def content(self, section):
        return self.data[section.offset : section.offset + section.raw_size]

    def _section(self, header, strings):
        name = self.data[header : header + 8].rstrip(b"\0").decode("latin-1")
        if name.startswith("/"):
            name = self.text(strings + int(name[1:]))
        size, address, raw_size, offset = self.unpack("<IIII", header + 8)
        return Section(name, address, size, offset, raw_size, self.u32(header + 36), header)

    def _symbols(self, table, count, strings):
        index = 0
        while index < count:
            entry = table + 18 * index
            value, section, _, _, auxiliary = self.unpack("<IhHBB", entry + 8)
            if self.u32(entry) == 0:
                name = self.text(strings + self.u32(entry + 4))
            else:
                name = self.data[entry : entry + 8].rstrip(b"\0").decode("latin-1")
            # Only what lies in a section, and isn't the section itself.
            if section > 0 and not auxiliary:
                yield Symbol(name, self.sections[section - 1].name, value)
            index += 1 + auxiliary

    def exports(self):
        """Ordinal to name; an export without a name has an empty one."""
        address, _ = self.directories[EXPORT_DIRECTORY]
        if not address:
            return {}
        directory = self.offset_of(address)
        base, count, name_count, functions, names, ordinals = self.unpack("<6I", directory + 16)
        exports = {}
        for index in range(count):
            if self.u32(self.offset_of(functions) + 4 * index):
                exports[base + index] = ""
        for index in range(name_count):
            ordinal = base + self.u16(self.offset_of(ordinals) + 2 * index)
            exports[ordinal] = self.text_at(self.u32(self.offset_of(names) + 4 * index))
        return exports

    def imports(self):
        """The names of the libraries that are mapped with the image."""
        address, _ = self.directories[IMPORT_DIRECTORY]
        if not address:
            return []
        entry, libraries = self.offset_of(address), []
        while name := self.u32(entry + 12):
            libraries.append(self.text_at(name))
            entry += 20
        return libraries

    def imported(self):
        """Pairs of library and function, of what is bound when the image is mapped; functions without a name left out."""
        address, _ = self.directories[IMPORT_DIRECTORY]
        entry = self.offset_of(address) if address else None
        wide = self.machine == MACHINES["x64"]
        while entry is not None and (name := self.u32(entry + 12)):
            slot = self.offset_of(self.u32(entry) or self.u32(entry + 16))
            while any(self.data[slot : slot + (8 if wide else 4)]):
                by_number = self.data[slot + (7 if wide else 3)] & 0x80
                if not by_number:
                    yield self.text_at(name).lower(), self.text_at(self.u32(slot) + 2)
                slot += 8 if wide else 4
            entry += 20

    def delayed(self):
        """The libraries that are mapped at a first call. The linker leaves the directory empty, so that the table of
        each library is found by its symbol too."""
        address, _ = self.directories[DELAY_DIRECTORY]
        places = []
        if address:
            entry = self.offset_of(address)
            while self.u32(entry + 4):
                places.append(entry)
                entry += 32
        for symbol in self.symbols:
            if symbol.name.startswith("__DELAY_IMPORT_DESCRIPTOR"):
                places.append(self.section(symbol.section).offset + symbol.value)
        return [self._delayed(place) for place in dict.fromkeys(places)]

    def _delayed(self, descriptor):
        name, _, slots, names = self.unpack("<4I", descriptor + 4)
        slot, entry, found = self.offset_of(slots), self.offset_of(names), []
        size = struct.calcsize(self.pointer)
        while hint := self.unpack(self.pointer, entry)[0]:
            by_ordinal = hint >> (8 * size - 1)
            function = f"#{hint & 0xFFFF}" if by_ordinal else self.text_at((hint & 0x7FFFFFFF) + 2)
            found.append(Slot(function, slot, self.unpack(self.pointer, slot)[0]))
            slot, entry = slot + size, entry + size
        return Delayed(self.text_at(name), found)

    def resource_bytes(self, wanted):
        """The size of all resources of a type, in bytes."""
        address, _ = self.directories[RESOURCE_DIRECTORY]
        if not address:
            return 0
        root = self.offset_of(address)

        def entries(directory):
            named, numbered = self.unpack("<HH", directory + 12)
            return [self.unpack("<II", directory + 16 + 8 * index) for index in range(named + numbered)]

        def size(place):
            if place & 0x80000000:
                return sum(size(child) for _, child in entries(root + (place & 0x7FFFFFFF)))
            return self.u32(root + place + 4)

        return sum(size(place) for kind, place in entries(root) if kind == wanted)


def strip(path, arch, stripped):
    """Writes the file as it is handed out, without symbols; False if that can't be done."""
    command = [f"{TRIPLES[arch]}-strip", "-o", stripped, path]
    return subprocess.run(command, capture_output=True, check=False).returncode == 0


def stripped_size(image, path, arch):
    """The size of the file that is handed out, in bytes, its bitmaps left out; None if there can't be such a file."""
    with tempfile.TemporaryDirectory() as folder:
        stripped = os.path.join(folder, "stripped")
        if not strip(path, arch, stripped):
            return None
        return os.path.getsize(stripped) - image.resource_bytes(BITMAPS)
