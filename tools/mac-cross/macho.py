"""Reads the modules of macOS: the slices of a universal file, and what each imports and exports.

Whatever is unknown is refused with Unknown, so that no check passes over it.
"""

import struct

ARCHITECTURES = {0x01000007: "x86_64", 0x0100000C: "arm64"}
BUNDLE = 8

SEGMENT, SYMTAB, DYLD_INFO, LOAD_DYLIB = 0x19, 0x2, 0x80000022, 0xC
BUILD_VERSION, CODE_SIGNATURE = 0x32, 0x1D
# Load commands without contents that a check needs: the indirect symbols, the module's id, where
# functions start, data in code, the version of the source.
OTHER_COMMANDS = {0xB, 0x1B, 0x26, 0x29, 0x2A}

EXTERNAL, TYPE_MASK, UNDEFINED = 0x01, 0x0E, 0x00
# The library that a name with this number is looked up in, in place of one of the module's own.
SPECIAL_LIBRARIES = {0xFF: "the program", 0xFE: "any library", 0: "itself"}


class Unknown(Exception):
    """Something in the module that this reader doesn't know."""


def read_slices(data):
    """Returns the bytes of each slice by the name of its architecture."""
    if data[:4] != b"\xca\xfe\xba\xbe":
        raise Unknown("the file is not a universal module")
    slices = {}
    for index in range(struct.unpack_from(">I", data, 4)[0]):
        kind, _, offset, size, _ = struct.unpack_from(">5I", data, 8 + 20 * index)
        if kind not in ARCHITECTURES:
            raise Unknown(f"the architecture {kind:#x} is unknown")
        slices[ARCHITECTURES[kind]] = data[offset:offset + size]
    return slices


def version_text(packed):
    """Returns the text of a packed version, without a third part that is 0."""
    parts = [packed >> 16, packed >> 8 & 0xFF, packed & 0xFF]
    return ".".join(map(str, parts if parts[2] else parts[:2]))


class Module:
    """One slice. Addresses are those of the file's own segments."""

    def __init__(self, data):
        self.data = data
        self.libraries = []
        self.sections = {}
        self.minimum = None
        self.is_signed = False
        self._segments = []
        self._symtab = None
        self._dyld_info = None
        magic, _, _, self.file_type, count = struct.unpack_from("<5I", data)
        if magic != 0xFEEDFACF:
            raise Unknown(f"the magic number {magic:#x} is unknown")
        position = 32
        for _ in range(count):
            command, size = struct.unpack_from("<2I", data, position)
            self._read_command(command, position)
            position += size
        if self._symtab is None or self._dyld_info is None or self.minimum is None:
            raise Unknown("no symbols, no bindings or no minimum version")

    def _read_command(self, command, position):
        if command == SEGMENT:
            self._read_segment(position)
        elif command == SYMTAB:
            self._symtab = struct.unpack_from("<4I", self.data, position + 8)
        elif command == DYLD_INFO:
            self._dyld_info = struct.unpack_from("<10I", self.data, position + 8)
        elif command == LOAD_DYLIB:
            name = struct.unpack_from("<I", self.data, position + 8)[0]
            self.libraries.append(self._text(position + name))
        elif command == BUILD_VERSION:
            platform, minimum = struct.unpack_from("<2I", self.data, position + 8)
            if platform != 1:
                raise Unknown(f"the platform {platform} is not macOS")
            self.minimum = version_text(minimum)
        elif command == CODE_SIGNATURE:
            self.is_signed = True
        elif command not in OTHER_COMMANDS:
            raise Unknown(f"the load command {command:#x} is unknown")

    def _read_segment(self, position):
        address, _, offset, size = struct.unpack_from("<4Q", self.data, position + 24)
        self._segments.append((address, offset, size))
        for index in range(struct.unpack_from("<I", self.data, position + 64)[0]):
            start = position + 72 + 80 * index
            name = self.data[start:start + 16].rstrip(b"\0").decode()
            self.sections[name] = struct.unpack_from("<2Q", self.data, start + 32)

    def _text(self, offset):
        return self.data[offset:self.data.index(b"\0", offset)].decode()

    def _offset(self, address):
        for start, offset, size in self._segments:
            if start <= address < start + size:
                return address - start + offset
        raise Unknown(f"the address {address:#x} is in no segment")

    def text_at(self, address):
        """Returns the zero-terminated text at an address."""
        return self._text(self._offset(address))

    def words_at(self, address, count):
        """Returns words of 8 bytes. A word that is bound to an import is 0."""
        return struct.unpack_from(f"<{count}Q", self.data, self._offset(address))

    def pointers_of(self, section):
        """Returns the words of a section, none if there is no such section."""
        address, size = self.sections.get(section, (0, 0))
        return self.words_at(address, size // 8) if size else ()

    def _symbols(self):
        symbols, count, strings, _ = self._symtab
        for index in range(count):
            name, kind, _, description, _ = struct.unpack_from("<IBBHQ", self.data,
                                                               symbols + 16 * index)
            if kind & EXTERNAL:
                yield self._text(strings + name), kind & TYPE_MASK, description

    def imports(self):
        """Returns a dictionary of each imported name and the library that has it."""
        found = {}
        for name, kind, description in self._symbols():
            if kind == UNDEFINED:
                number = description >> 8
                found[name] = (SPECIAL_LIBRARIES.get(number) or
                               self.libraries[number - 1].rsplit("/", 1)[-1])
        return found

    def exports(self):
        """Returns the names that the module exports, by its symbols and by its export tree."""
        return ({name for name, kind, _ in self._symbols() if kind != UNDEFINED} |
                set(self._exports_below(0, "")))

    def _exports_below(self, node, prefix):
        offset, size = self._dyld_info[8:10]
        if size == 0:
            return
        position = offset + node
        length, position = self._number(position)
        if length:
            yield prefix
        position += length
        children = self.data[position]
        position += 1
        for _ in range(children):
            part = self._text(position)
            child, position = self._number(position + len(part) + 1)
            yield from self._exports_below(child, prefix + part)

    def bound_names(self):
        """Returns the names in the three lists of bindings: at once, weak and lazy."""
        names = set()
        for index in (2, 4, 6):
            offset, size = self._dyld_info[index:index + 2]
            names |= self._names_in_bindings(offset, offset + size)
        return names

    def _names_in_bindings(self, position, end):
        names = set()
        # How many numbers follow each operation. SET_SYMBOL is followed by a name.
        numbers = {0: 0, 1: 0, 2: 1, 3: 0, 5: 0, 6: 1, 7: 1, 8: 1, 9: 0, 10: 1, 11: 0, 12: 2}
        set_symbol = 4
        while position < end:
            operation = self.data[position] >> 4
            position += 1
            if operation == set_symbol:
                name = self._text(position)
                names.add(name)
                position += len(name) + 1
            elif operation in numbers:
                for _ in range(numbers[operation]):
                    _, position = self._number(position)
            else:
                raise Unknown(f"the binding operation {operation:#x} is unknown")
        return names

    def _number(self, position):
        value, shift = 0, 0
        while True:
            byte = self.data[position]
            position += 1
            value |= (byte & 0x7F) << shift
            shift += 7
            if byte < 0x80:
                return value, position
