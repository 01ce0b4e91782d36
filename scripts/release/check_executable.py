#!/usr/bin/python3
"""Checks what a Windows executable of ours must be, on the file itself.

    scripts/release/check_executable.py FILE...

Prints what is wrong with each, a line a finding, and ends with 1 when there is any.
"""
import collections
import re
import struct
import sys

import pefile

OLDEST_WINDOWS = (6, 1)  # Windows 7
HIGH_ENTROPY, DYNAMIC_BASE, NX_COMPAT = 0x20, 0x40, 0x100
EXECUTE, WRITE = 0x20000000, 0x80000000
STACK_OVERRUN = struct.pack("<I", 0xC0000409)  # With what a program ends whose stack was overrun.
GUARDED_FUNCTIONS = 100  # There are several hundred; a source or two that do without would be no fault.
RELOCATIONS = 5  # Its place in the data directory.
ICON_SIZES = {16, 24, 32, 48, 256}
RESOURCES = {"RT_ICON": 3, "RT_GROUP_ICON": 14, "RT_VERSION": 16, "RT_MANIFEST": 24}
MANIFEST_WORDS = (b"asInvoker", b"PerMonitorV2", b"Microsoft.Windows.Common-Controls")

# What Windows, from 7 on, never looks for in the program's folder, where a game server may have put a library of the
# same name: its known libraries (KnownDLLs). Every other library is loaded late. api-ms-win-crt-*: the parts of the C
# run time that Windows 10 and its successors bring; these names stand for no files.
KNOWN_LIBRARIES = {name + ".dll" for name in (
    "kernel32 user32 gdi32 advapi32 comdlg32 shell32 shlwapi ole32 oleaut32 rpcrt4 ws2_32 msvcrt ntdll imm32 "
    "psapi").split()}

# Functions newer than Windows 7 that the program looks up by name when it first needs them. In the import table one of
# them would keep it from starting on an older Windows. (Others cannot be called: the headers are those of Windows 7.)
LATE_FUNCTIONS = {"GetDpiForWindow", "AdjustWindowRectExForDpi", "SystemParametersInfoForDpi",
                  "SetDefaultDllDirectories"}


def header_faults(image):
    header = image.OPTIONAL_HEADER
    wanted = DYNAMIC_BASE | NX_COMPAT
    if image.PE_TYPE == pefile.OPTIONAL_HEADER_MAGIC_PE_PLUS:
        wanted |= HIGH_ENTROPY
    if header.DllCharacteristics & wanted != wanted:
        yield f"its flags are {header.DllCharacteristics:#x}, without address randomisation or data execution prevention"
    if not header.DATA_DIRECTORY[RELOCATIONS].Size:
        yield "it has no relocations, so its address cannot be randomised"
    for name, version in (("system", (header.MajorOperatingSystemVersion, header.MinorOperatingSystemVersion)),
                          ("subsystem", (header.MajorSubsystemVersion, header.MinorSubsystemVersion))):
        if version != OLDEST_WINDOWS:
            yield f"its {name} version is {version[0]}.{version[1]}"


def section_faults(image):
    for section in image.sections:
        if section.Characteristics & EXECUTE and section.Characteristics & WRITE:
            yield f"its section {section.Name.rstrip(bytes(1)).decode()} is writable and executable"


def guard_faults(image):
    """Each function with a guarded frame calls the one that ends the process with the code for an overrun stack."""
    if guarded_functions(image) < GUARDED_FUNCTIONS:
        yield "its functions do not guard their frames against overrun arrays"


def guarded_functions(image):
    """How many calls lead to the function in which the code for an overrun stack stands."""
    code = next(section for section in image.sections if section.Characteristics & EXECUTE).get_data()
    called = collections.Counter(call.end() + 4 + struct.unpack("<i", call.group(1))[0]
                                 for call in re.finditer(rb"\xe8(?=(....))", code, re.S))
    places = [found.start() for found in re.finditer(re.escape(STACK_OVERRUN), code)]
    return max((called[start] for place in places for start in range(place - 80, place)), default=0)


def import_faults(image):
    entries = getattr(image, "DIRECTORY_ENTRY_IMPORT", [])
    if not entries:
        yield "it has no import table"
    for entry in entries:
        library = entry.dll.decode().lower()
        if library not in KNOWN_LIBRARIES and not library.startswith("api-ms-win-crt-"):
            yield f"it imports {library}, which may be found in the server root"
        for function in entry.imports:
            name = (function.name or b"").decode()
            if name in LATE_FUNCTIONS:
                yield f"it imports {name}, which Windows 7 does not have"


def resource_faults(image):
    resources = getattr(image, "DIRECTORY_ENTRY_RESOURCE", None)
    kinds = {entry.id: entry for entry in resources.entries} if resources else {}
    for name, number in RESOURCES.items():
        if number not in kinds:
            yield f"it has no resource {name}"
    if RESOURCES["RT_GROUP_ICON"] in kinds:
        group = content(image, kinds[RESOURCES["RT_GROUP_ICON"]])
        sizes = {group[6 + 14 * i] or 256 for i in range(int.from_bytes(group[4:6], "little"))}
        if missing := ICON_SIZES - sizes:
            yield f"its icon lacks the sizes {sorted(missing)}"
    if RESOURCES["RT_MANIFEST"] in kinds:
        manifest = content(image, kinds[RESOURCES["RT_MANIFEST"]])
        for word in MANIFEST_WORDS:
            if word not in manifest:
                yield f"its manifest lacks {word.decode()}"


def content(image, kind):
    leaf = kind.directory.entries[0].directory.entries[0].data.struct
    return image.get_data(leaf.OffsetToData, leaf.Size)


def program_faults(path):
    """What is wrong with any program of ours."""
    image = pefile.PE(path)
    for check in (header_faults, section_faults, guard_faults, import_faults):
        yield from check(image)


def faults(path):
    """What is wrong with the product."""
    yield from program_faults(path)
    yield from resource_faults(pefile.PE(path))


def main():
    if len(sys.argv) < 2:
        print(__doc__, file=sys.stderr)
        return 2
    found = 0
    for path in sys.argv[1:]:
        for fault in faults(path):
            found += 1
            print(f"FAILED: {path}: {fault}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
