"""What `pixora_bench kernel` answers, against arithmetic of its own."""

import json
import math
import subprocess

import numpy as np

from cli_limits import small_memory

WIDTH, HEIGHT, OFFSET = 2, 3, 5


def call(program, *words, limit=None):
    return subprocess.run([program, "kernel", *map(str, words)], capture_output=True, text=True, timeout=60,
                          preexec_fn=limit)  # fmt: skip


def check_answer(checks, program, path, samples):
    sides = ["--input", path, "--offset", OFFSET, "--width", WIDTH, "--height", HEIGHT]
    first = samples[..., 0].reshape(-1).tolist()  # blue, or the only channel
    count, total, squares = len(first), sum(first), sum(value * value for value in first)
    deviation = math.sqrt((squares * count - total * total) / (count * count))
    for kernel in ("stats", "histogram", "both"):
        for more in ([], ["--mono"]):
            done = call(program, kernel, *sides, "--repeat", 3, *more)
            what = f"kernel {kernel} {more}: {done.stdout}{done.stderr}"
            answer = json.loads(done.stdout) if done.returncode == 0 else {"seconds": [], "check": [0] * 4}
            checks.that(what, done.returncode == 0 and not done.stderr and list(answer) == ["seconds", "check"])
            seconds, check = answer["seconds"], answer["check"]
            checks.that(f"times of {what}", len(seconds) == 3 and all(0 <= time < 60 for time in seconds))
            checks.that(f"figures of {what}", check[:3] == [min(first), max(first), total / count])
            checks.that(f"deviation of {what}", math.isclose(check[3], deviation, rel_tol=1e-13))


def check_files(checks, program, path):
    def sides(name, offset, width, height):
        return ["--input", name, "--offset", offset, "--width", width, "--height", height, "--repeat", 1]

    missing = checks.fresh("missing.raw")
    for words in (sides(path, OFFSET + 1, WIDTH, HEIGHT), sides(path, OFFSET, WIDTH, HEIGHT + 1),
                  sides(path, 1 << 62, WIDTH, HEIGHT), sides(path, (1 << 64) - 1, WIDTH, HEIGHT),
                  sides(path, 0, 65535, 65535), sides(missing, 0, 1, 1), sides(checks.folder, 0, 1, 1)):  # fmt: skip
        done = call(program, "stats", *words, limit=small_memory)
        good = done.returncode == 1 and not done.stdout
        good = good and done.stderr == f"{words[1]}: the samples cannot be read\n"
        checks.that(f"kernel without its samples: {words} {done.stderr}", good)


def check_usage(checks, program, path):
    good = ["--input", path, "--offset", OFFSET, "--width", WIDTH, "--height", HEIGHT, "--repeat", 1]
    wrong = [
        [], ["mean", *good], ["stats"], ["stats", *good[2:]], ["stats", *good, "--bogus"],
        ["stats", *good, "--bogus", 1],
        ["stats", *good[:-1]], ["stats", *good[:-1], 0], ["stats", *good[:-1], "x"], ["stats", *good[:-1], -1],
        ["stats", *good, "--width", 0], ["stats", *good, "--height", 65536], ["stats", *good, "--width", "2x"],
        ["stats", *good, "--offset", "1.5"], ["stats", *good, "--height", ""], ["stats", *good, "--mono", "yes"],
    ]  # fmt: skip
    for words in wrong:
        done = call(program, *words)
        told = done.stderr.startswith("usage: pixora_bench kernel stats|histogram|both --input FILE ")
        checks.that(f"wrong usage of kernel: {words}", done.returncode == 2 and told and not done.stdout)


def check(checks, program):
    path = checks.fresh("samples.raw")
    colour = np.array([[3, 9, 1], [65535, 2, 5], [40, 41, 42], [7, 7, 8], [0, 65535, 1], [1000, 2, 3]], "<u2")
    path.write_bytes(b"\xff" * OFFSET + colour.tobytes())
    check_answer(checks, program, path, colour)
    check_files(checks, program, path)
    check_usage(checks, program, path)
    path.write_bytes(b"\xff" * OFFSET + np.repeat(colour[:, :1], 3, axis=1).tobytes())
    check_answer(checks, program, path, colour[:, :1])
