#!/usr/bin/env python3
"""Measures what packages made to do harm cost to open: the table in docs/reliability.md.

    scripts/measure-hostile-packages.py build/release/bin/gaugewright-cli

Each package is made in memory-backed storage where there is any, shown by the command line (rendered, where
it has images), and removed again. Time and memory are those beyond showing an empty package.
"""

import os
import pathlib
import struct
import sys
import tempfile
import zipfile
import zlib

PAGE = '<e c="GPageParam"/>'


def overlay(pages, extra="", conf_extra=""):
    return (
        f'<overlay_cli><e c="C"><e c="GConfParam">{conf_extra}{pages}</e></e>{extra}</overlay_cli>'
    )


def png(width, height):
    """An image of one colour, one bit a pixel."""

    def chunk(kind, data):
        return (
            struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
        )

    rows = zlib.compress((b"\0" + b"\0" * ((width + 7) // 8)) * height, 9)
    header = struct.pack(">IIBBBBB", width, height, 1, 0, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", rows) + chunk(b"IEND", b"")


def package(files):
    """files: a function that returns names with contents, so that nothing is kept in memory."""

    def make(path):
        write(path, overlay(PAGE), files())

    return make


def tree(xml):
    return lambda path: write(path, xml(), [])


def write(path, xml, files):
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
        archive.writestr("overlay.ov3.xml", xml)
        for name, content in files:
            archive.writestr(name, content)


def with_copied_records(count, content, declared=None):
    """One member and more records of it, with other names of the same length."""

    def make(path):
        write(path, overlay(PAGE), [("m00000", content)])
        data = path.read_bytes()
        start = struct.unpack("<I", data[-6:-2])[0]
        record = data.rindex(b"PK\1\2", 0, data.rindex(b"PK\5\6"))
        directory = data[start:-22]
        for i in range(1, count):
            copy = bytearray(data[record:-22])
            copy[46:52] = b"m%05d" % i
            if declared:
                copy[24:28] = struct.pack("<I", declared)
            directory += copy
        end = struct.pack("<IHHHHIIH", 0x06054B50, 0, 0, count + 1, count + 1, len(directory), start, 0)
        path.write_bytes(data[:start] + directory + end)

    return make


def with_images(path):
    pages = "".join(
        f'<e c="GPageParam"><p n="WIDTH">800</p><p n="HEIGHT">480</p><p n="PATH_IMAGE">{i}.png</p></e>'
        for i in range(16)
    )
    files = [(f"{i}.png", png(5700, 5700)) for i in range(16)]
    write(path, overlay(pages), files)


def nested_file(i, levels=254):
    return (f"{i:03d}/" + "d/" * (levels - 1) + "f", b"")


def entities(count):
    lines = "".join(f'<!ENTITY e{i + 1} "&e{i};&e{i};">' for i in range(count))
    return f'<!DOCTYPE overlay_cli [<!ENTITY e0 "x">{lines}]>' + overlay(PAGE)


PACKAGES = [
    ("900 files, each in 254 other folders", package(lambda: map(nested_file, range(900)))),
    ("32 files, each in 254 other folders", package(lambda: map(nested_file, range(32)))),
    ("11,500 files of one byte", package(lambda: ((f"f{i}", b"x") for i in range(11500)))),
    ("10,000 members that share data of 2 MB", with_copied_records(10000, os.urandom(1000) * 2000)),
    ("9,000 members that declare 4 GB each", with_copied_records(9000, b"x", 0xFFFFFFFE)),
    ("1 GB of zeros", package(lambda: [("zeros", bytes(1 << 30))])),
    ("142,000 levels of XML", tree(lambda: overlay(PAGE, "<e>" * 142000 + "</e>" * 142000))),
    ("250,000 empty tags", tree(lambda: overlay(PAGE, "<p/>" * 250000))),
    (
        "one tag with 160,000 attributes",
        tree(lambda: overlay(PAGE, "<p " + "".join(f'a{i}="" ' for i in range(160000)) + "/>")),
    ),
    ("11,000 entities made of one another", tree(lambda: entities(11000))),
    (
        "50,000 elements without properties",
        tree(lambda: overlay('<e c="GPageParam">' + '<e c="GMaskParam"/>' * 50000 + "</e>")),
    ),
    ("50,000 pages", tree(lambda: overlay(PAGE * 50000))),
    ("a million empty tags", tree(lambda: overlay(PAGE, "<p/>" * 1000000))),
    ("16 million empty tags", tree(lambda: overlay(PAGE, "<p/>" * 15900000))),
    ("62 million empty tags", tree(lambda: overlay(PAGE, "<p/>" * 62000000))),
]


def run(program, arguments):
    """Exit status, processor seconds and peak memory in MB."""
    child = os.fork()
    if child == 0:
        os.dup2(os.open(os.devnull, os.O_WRONLY), 1)
        os.dup2(1, 2)
        os.execv(program, [program, *arguments])
    _, status, usage = os.wait4(child, 0)
    return os.waitstatus_to_exitcode(status), usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    program = os.path.abspath(sys.argv[1])
    memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(dir=memory) as folder:
        os.environ.update(TMPDIR=folder, QT_QPA_PLATFORM="offscreen")
        path = pathlib.Path(folder, "hostile.zconf2")

        def measure(make, *command):
            make(path)
            best = min(run(program, [*command, str(path)]) for _ in range(3))
            return path.stat().st_size, *best

        _, _, start, program_alone = measure(package(list), "show")
        print("| package | size | answer | time | memory |\n|---|---|---|---|---|")
        rows = [(name, measure(make, "show")) for name, make in PACKAGES]
        pictures = measure(with_images, "render", "--page", "1", "--output", f"{folder}/pictures")
        rows.append(("16 pages with images of 5,700 x 5,700 pixels", pictures))
        for name, (size, status, seconds, peak) in rows:
            answer = "refused" if status else "opens"
            print(
                f"| {name} | {size / 1e6:.3f} MB | {answer} | {seconds - start:.2f} s"
                f" | {peak - program_alone:.0f} MB |"
            )


main()
