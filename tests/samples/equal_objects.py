#!/usr/bin/env python3
"""equal_objects.py <PAIRS: compares DICOM files as pydicom reads them, group lengths and group 0002 apart.

PAIRS are paths, one a line: a file, and one that must hold the same object. Prints each difference by its path and
exits with 1 if there is one: elements, items, VRs, values and the bytes of pixel data, fragment by fragment. What
implicit VR does not state is not compared where only one file of a pair is in it: the VRs of Pixel Data, and private
elements but for their presence.
"""
import sys
import warnings

import pydicom

warnings.simplefilter("ignore")
pydicom.config.reading_validation_mode = 0


def fragments(value):
    """Offset table and fragments of encapsulated pixel data."""
    found = []
    place = 0
    while place + 8 <= len(value):
        length = int.from_bytes(value[place + 4:place + 8], "little")
        found.append(value[place + 8:place + 8 + length])
        place += 8 + length
    return found


def plain(element, little):
    """The value as something that compares by content: padding is no difference, and neither is the byte order."""
    value = element.value
    if isinstance(value, bytes):
        if element.tag == 0x7FE00010 and element.is_undefined_length:
            return fragments(value)
        if element.VR == "OW" and not little and len(value) % 2 == 0:
            swapped = bytearray(value)
            swapped[0::2], swapped[1::2] = value[1::2], value[0::2]
            value = bytes(swapped)
        return value.rstrip(b"\0") or None
    if value is None or value == "" or value == []:
        return None
    if isinstance(value, (list, pydicom.multival.MultiValue)):
        return [str(part).rstrip("\0 ") for part in value]
    return str(value).rstrip("\0 ")


def differences(left, right, littles, stated, path=""):
    tags = sorted(set(left.keys()) | set(right.keys()))
    for tag in tags:
        if tag.element == 0:
            continue
        here = f"{path}({tag.group:04X},{tag.element:04X})"
        if tag not in left or tag not in right:
            yield f"{here}: only in the {'first' if tag in left else 'second'}"
            continue
        a, b = left[tag], right[tag]
        if tag.is_private and not stated:
            continue
        if a.VR != b.VR and (stated or tag != 0x7FE00010):
            yield f"{here}: VR {a.VR} and {b.VR}"
        if a.VR == "SQ" and b.VR == "SQ":
            if len(a.value) != len(b.value):
                yield f"{here}: {len(a.value)} and {len(b.value)} items"
            for number, (x, y) in enumerate(zip(a.value, b.value), 1):
                yield from differences(x, y, littles, stated, f"{here}[{number}].")
            continue
        values = plain(a, littles[0]), plain(b, littles[1])
        if values[0] != values[1]:
            yield f"{here}: {str(values[0])[:60]!r} and {str(values[1])[:60]!r}"


def main():
    status = 0
    names = sys.stdin.read().splitlines()
    for pair in zip(names[0::2], names[1::2]):
        # A file whose meta information names no transfer syntax, or that has none, is read as far as pydicom can.
        left, right = (pydicom.dcmread(name, force=True) for name in pair)
        littles = left.is_little_endian is not False, right.is_little_endian is not False
        for difference in differences(left, right, littles, left.is_implicit_VR == right.is_implicit_VR):
            print(f"{pair[1]}: {difference}")
            status = 1
    return status


if __name__ == "__main__":
    sys.exit(main())
