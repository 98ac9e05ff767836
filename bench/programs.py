"""Runs the programs that ./dev bench has built, one at a time and on one CPU."""

import csv
import os
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OUTPUT = os.path.join(ROOT, "build", "bench")
PROGRAMS = ["hand_over", "timed_wait", "log_call", "log_line", "add", "handler"]
NANOSECONDS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}
LIMIT = 360   # seconds that a program has
GRACE = 20    # seconds that it has for its end
OVERLOADED = 3  # exit code of bench_scale


class Failed(Exception):
    """Has a line for people: what is wrong."""


class Overloaded(Failed):
    """More printers than the processor can do."""


def command_of(target, program):
    if target == "host":
        return [os.path.join(ROOT, "build", "bench-host", "bin", "bench_" + program)]
    return [os.path.join(ROOT, "cmake", "run-under-wine"),
            os.path.join(ROOT, "build", "bench-mingw", "bin", "bench_" + program + ".exe")]


def the_cpu():
    """The last one that this process may use: the first is where most interrupts go."""
    return max(os.sched_getaffinity(0))


def end(process, grace=GRACE):
    """Asks first: what runs Wine then ends all that it started there, and removes its prefix."""
    process.terminate()
    try:
        process.wait(grace)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


def output_of(name, command, limit=LIMIT):
    """What it printed. It has a working folder of its own."""
    work = os.path.join(OUTPUT, "work")
    os.makedirs(work, exist_ok=True)
    try:
        process = subprocess.Popen(command, cwd=work, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   text=True)
    except OSError as error:
        raise Failed(f"{error.filename} cannot be run: {error.strerror}.") from None
    with process:
        try:
            output, errors = process.communicate(timeout=limit)
        except subprocess.TimeoutExpired:
            end(process)
            raise Failed(f"{name} was not done after {limit:g} s.") from None
        except BaseException:
            end(process)
            raise
    if process.returncode != 0:
        raise (Overloaded if process.returncode == OVERLOADED else Failed)(f"{name} ended with {process.returncode}:\n{output}{errors}")
    return output


def pinned(command):
    return ["taskset", "--cpu-list", str(the_cpu()), *command]


def run_benchmarks(target, program, seconds):
    options = ["--benchmark_format=csv", "--benchmark_enable_random_interleaving=true", f"--benchmark_min_time={seconds}"]
    name, command = f"bench_{program} ({target})", pinned(command_of(target, program) + options)
    try:
        return output_of(name, command)
    except Failed as failure:
        # Once in hundreds of starts Wine finds a place taken that it needs, before the program has begun.
        if "failed to map the shared user data" not in str(failure):
            raise
        print(f"   Wine did not start for bench_{program}; once more", file=sys.stderr)
        return output_of(name, command)


def read_times(target, program, output):
    """Times in nanoseconds by PROGRAM/NAME, and the counters of the same run."""
    text = output[output.find("name,iterations,"):]
    times, counters = {}, {}
    for row in csv.DictReader(text.splitlines()):
        name = program + "/" + row["name"].split("/")[0]
        if row["error_occurred"]:
            raise Failed(f"{name} ({target}) failed: {row['error_message']}")
        times[name] = float(row["real_time"]) * NANOSECONDS[row["time_unit"]]
        if row.get("allocations"):
            counters[name] = float(row["allocations"])
    if not times:
        raise Failed(f"bench_{program} ({target}) printed no results:\n{output}")
    return times, counters


def run_scale(words):
    words = [str(word) for word in words]
    return output_of(f"bench_scale {' '.join(words)}", pinned(command_of("host", "scale") + words))
