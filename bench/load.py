#!/usr/bin/env python3
"""How long a large text takes to open, beside a bare plain text edit and other editors.

load.py BENCH_FOLDER [RUNS=5] [MEGABYTES=10]

In turns, each in a process of its own: open_text in a main window and with --bare, as they say
themselves, and of the editors that are installed, from exec until the processor is left alone, less
what the same takes with an empty file. Texts: short lines, and eight long ones.
"""
import os
import pathlib
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

SENTENCE = "今日は天気がよいので、机を窓の近くへ動かして本を読む。"
EDITORS = ["kwrite", "featherpad", "scite"]
TICK = 1000 / os.sysconf("SC_CLK_TCK")


def texts(folder, size):
    count = size // len(SENTENCE.encode())
    short, long, empty = (folder / f"{name}.txt" for name in ("short", "long", "empty"))
    short.write_text((SENTENCE + "\n") * count, "utf-8")
    long.write_text((SENTENCE * (count // 8) + "\n") * 8, "utf-8")
    empty.write_text("", "utf-8")
    return short, long, empty


def figures(program, *arguments):
    last = subprocess.run([program, *arguments], capture_output=True, text=True, timeout=120,
                          check=True).stdout.splitlines()[-1]
    numbers = re.findall(r"(first screenful|idle|longest block|memory) +([\d.]+)", last)
    return {name: float(number) for name, number in numbers}


def processor_time(pid):
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) * TICK


def until_idle(editor, file):
    """Milliseconds from exec until the process has used no processor time for half a second."""
    start = time.monotonic()
    process = subprocess.Popen([editor, file], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        used, at = 0.0, start
        while time.monotonic() - max(at, start + 0.5) < 0.5 and time.monotonic() - start < 60:
            time.sleep(0.01)
            now = processor_time(process.pid)
            if now > used:
                used, at = now, time.monotonic()
        return (at - start) * 1000
    finally:
        process.kill()
        process.wait()


def main():
    bench = pathlib.Path(sys.argv[1])
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 5
    size = int(sys.argv[3]) << 20 if len(sys.argv) > 3 else 10 << 20
    open_text = bench / "open_text"
    with tempfile.TemporaryDirectory() as name:
        os.environ["HOME"] = os.environ["XDG_CONFIG_HOME"] = os.environ["XDG_RUNTIME_DIR"] = name
        short, long, empty = texts(pathlib.Path(name), size)
        editors = [editor for editor in EDITORS if shutil.which(editor)]
        for file in (short, long):
            ours, nothing, bare = [], [], []
            others = {editor: [] for editor in editors}
            for _ in range(runs):
                nothing.append(figures(open_text, empty, empty))
                ours.append(figures(open_text, empty, file))
                bare.append(figures(open_text, "--bare", empty, file))
                for editor in editors:
                    others[editor].append(until_idle(editor, file) - until_idle(editor, empty))

            def median(samples, figure):
                return statistics.median(sample[figure] for sample in samples)

            idle, bare_idle = median(ours, "idle"), median(bare, "idle")
            print(f"{file.stem} lines, {size >> 20} MB, medians of {runs}")
            print(f"  first screenful {median(ours, 'first screenful'):7.1f} ms, "
                  f"of an empty text {median(nothing, 'first screenful'):7.1f} ms")
            print(f"  idle            {idle:7.1f} ms, bare edit {bare_idle:7.1f} ms, ratio {idle / bare_idle:.2f}")
            print(f"  longest block   {median(ours, 'longest block'):7.1f} ms, "
                  f"bare edit {median(bare, 'longest block'):7.1f} ms")
            print(f"  memory          {median(ours, 'memory'):7.1f} MB, bare edit {median(bare, 'memory'):7.1f} MB")
            for editor in editors:
                print(f"  {editor:15} {statistics.median(others[editor]):7.1f} ms until idle")


if __name__ == "__main__":
    main()
