#!/usr/bin/python3
"""Times pixora-cli beside the least that each task can cost, and beside other programs that do the like.

    bench/cli_peers.py build/native/bin [ROUNDS]

Prints the tables of docs/performance.md. Every time is the processor time of a whole process, user and system, from its
start to its end; the median of ROUNDS (9) runs, all programs taking turns, files in the page cache. "Plain" is
pixora_plain_io: it reads the same files once with read() into one reused buffer of the product's block size, or reads
and writes as many bytes, or does nothing. Peers that are not installed (Debian's libvips-tools, imagemagick) are left
out. The images go into a folder of the run's own, made in PIXORA_BENCH_DIR and removed in the end.
"""

import os
import pathlib
import random
import shutil
import statistics
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
LARGE = ("tiff8-mono.tif", "tiff8-rgb.tif", "tiff12-mono.tif", "tiff12-rgb.tif", "tiff16-mono-upper12.tif",
         "tiff16-mono.tif", "tiff16-rgb-upper12.tif", "tiff16-rgb.tif", "bmp8-grey.bmp", "bmp8-palette.bmp",
         "bmp24-grey.bmp", "bmp24-colour.bmp", "bmp32-colour.bmp")  # fmt: skip
PEERED = ("tiff8-rgb.tif", "tiff16-mono-upper12.tif", "tiff16-rgb-upper12.tif")
MANY = 200
ENVIRONMENT = {**os.environ, "VIPS_CONCURRENCY": "1", "MAGICK_THREAD_LIMIT": "1", "OMP_NUM_THREADS": "1"}
NUMPY = """
import sys, numpy as np
name, kind, channels, out = sys.argv[1], sys.argv[2], int(sys.argv[3]), sys.argv[4]
a = np.fromfile(name, kind, offset={1: 174, 3: 180}[channels]).reshape(-1, channels)
if out == "stats":
    print(a.min(0), a.max(0), a.mean(0), a.std(0))
else:
    levels = 256 if kind == "u1" else 65536
    np.savetxt(out, np.stack([np.bincount(a[:, i], minlength=levels) for i in range(channels)], 1), "%d", ",")
"""


def processor_ms(words):
    quiet = [(os.POSIX_SPAWN_OPEN, 1, os.devnull, os.O_WRONLY, 0), (os.POSIX_SPAWN_OPEN, 2, os.devnull, os.O_WRONLY, 0)]
    process = os.posix_spawn(words[0], words, ENVIRONMENT, file_actions=quiet)
    _, status, usage = os.wait4(process, 0)
    if status:
        sys.exit(f"failed: {' '.join(words[:8])}")
    return (usage.ru_utime + usage.ru_stime) * 1000


def race(cases, rounds):
    """Medians by name; every program once a round, so that the machine's moods meet all of them. In another order each
    time: what a program leaves in the processor's caches is the next one's luck."""
    times, order = {name: [] for name in cases}, random.Random(1)
    for words in cases.values():
        processor_ms(words)  # into the caches
    for _ in range(rounds):
        for name, words in order.sample(list(cases.items()), len(cases)):
            times[name].append(processor_ms(words))
    return {name: statistics.median(found) for name, found in times.items()}


def table(header, rows):
    print("| " + " | ".join(header) + " |\n|" + " --- |" * len(header))
    for row in rows:
        print("| " + " | ".join(row) + " |")
    print()


def against(time, least):
    return f"{time:.1f} ms ({time / least:.2f})"


def samples(folder, size, names):
    folder.mkdir()
    subprocess.run([ROOT / "scripts" / "make_samples.py", "--size", size, "--out", folder, *names], check=True,
                   stdout=subprocess.DEVNULL)  # fmt: skip
    return folder


def ours(programs, large, work, rounds):
    cli, plain, csv = str(programs / "pixora-cli"), str(programs / "pixora_plain_io"), str(work / "out.csv")
    rows = []
    for name in LARGE:
        file, copies = str(large / name), [str(work / "out.bmp")]
        convert = [cli, "convert", file, "--display", copies[0]]
        if "tiff16" in name:
            copies.append(str(work / "out.bin"))
            convert += ["--data", copies[1]]
        processor_ms(convert)
        copying = [word for copy in copies for word in (copy + ".plain", str(os.path.getsize(copy)))]
        # Apart from each other: copies push everything else out of the caches.
        found = race({"read": [plain, file], "stats": [cli, "stats", file],
                      "histogram": [cli, "histogram", file, "--out", csv]}, rounds)  # fmt: skip
        found |= race({"copy": [plain, "-copy", file, *copying], "convert": convert}, rounds)
        read = found["read"]
        rows.append([name, f"{os.path.getsize(file) / 1e6:.0f} MB", f"{read:.1f} ms", against(found["stats"], read),
                     against(found["histogram"], read), f"{found['copy']:.1f} ms",
                     against(found["convert"], found["copy"])])  # fmt: skip
    table(["12 megapixels", "file", "reading", "`stats`", "`histogram`", "reading and writing", "`convert`"], rows)


def small(programs, work, rounds):
    cli, plain = str(programs / "pixora-cli"), str(programs / "pixora_plain_io")
    one = samples(work / "small", "1024x1024", ["tiff16-mono-upper12.tif"]) / "tiff16-mono-upper12.tif"
    many = [str(work / "small" / f"{number:03}.tif") for number in range(MANY)]
    for name in many:
        shutil.copy(one, name)
    found = race({"nothing": [plain], "true": ["/bin/true"], "read": [plain, str(one)],
                  "stats": [cli, "stats", str(one)], "info": [cli, "info", str(one)], "help": [cli, "--help"],
                  "read many": [plain, *many], "stats many": [cli, "stats", *many]}, 3 * rounds)  # fmt: skip
    nothing, true = found["nothing"], found["true"]
    calls = [[f"`{words}`", f"{found[key]:.2f} ms", f"{found[key] / nothing:.1f}, {found[key] / true:.1f}"]
             for words, key in (("--help", "help"), ("info", "info"), ("stats", "stats"))]  # fmt: skip
    table(["start to finish", "time", "ratio"],
          [["an empty program without shared libraries", f"{nothing:.2f} ms", "1"],
           ["`/bin/true`, which has one", f"{true:.2f} ms", "1"],
           ["reading one file of one megapixel", f"{found['read']:.2f} ms", ""], *calls,
           [f"reading {MANY} files of one megapixel", f"{found['read many']:.1f} ms", "1"],
           ["`stats` of them in one call", f"{found['stats many']:.1f} ms",
            f"{found['stats many'] / found['read many']:.2f}"]])  # fmt: skip


def peers_of(name, file, work):
    """Program, and its words for statistics and for a histogram as text."""
    out, kind, channels = str(work / "peer.csv"), "u1" if "8" in name else "<u2", "3" if "rgb" in name else "1"
    python = ["/usr/bin/python3", "-c", NUMPY, file, kind, channels]
    found = {"numpy": (python + ["stats"], python + [out])}
    if vips := shutil.which("vips"):
        found["vips"] = ([vips, "stats", file, str(work / "peer.v")], [vips, "hist_find", file, out])
    if identify := shutil.which("identify"):
        counting = [shutil.which("convert"), file, "-format", "%c", f"histogram:info:{out}"]
        # Of a colour image it counts the colours, which is another task.
        found["ImageMagick"] = ([identify, "-verbose", file], counting if channels == "1" else None)
    return found


def peers(programs, large, work, rounds):
    cli, rows = str(programs / "pixora-cli"), []
    for name in PEERED:
        file = str(large / name)
        for task, index in (("stats", 0), ("histogram", 1)):
            words = [cli, task, file, *(["--out", str(work / "out.csv")] if index else [])]
            cases = {"pixora-cli": words, **{peer: w[index] for peer, w in peers_of(name, file, work).items()}}
            found = race({peer: words for peer, words in cases.items() if words}, rounds)
            names = list(cases)
            rows.append([f"`{task}` of {name}", *(f"{found[n]:.0f} ms" if n in found else "" for n in names)])
    table(["12 megapixels", *names], rows)


def main():
    if len(sys.argv) not in (2, 3):
        print(__doc__)
        return 2
    programs, rounds = pathlib.Path(sys.argv[1]).resolve(), int(sys.argv[2]) if len(sys.argv) == 3 else 9
    work = pathlib.Path(tempfile.mkdtemp(prefix="pixora-peers-", dir=os.environ.get("PIXORA_BENCH_DIR")))
    try:
        large = samples(work / "large", "4000x3000", LARGE)
        ours(programs, large, work, rounds)
        small(programs, work, rounds)
        peers(programs, large, work, max(3, rounds // 3))
    finally:
        shutil.rmtree(work)
    return 0


if __name__ == "__main__":
    sys.exit(main())
