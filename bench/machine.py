"""What a run was made on and with, and what else the machine did meanwhile."""

import os
import platform
import re
import subprocess

WINE_LIBRARY = "/usr/lib/wine"


def first_line(command):
    try:
        return subprocess.run(command, capture_output=True, text=True, check=True).stdout.splitlines()[0].strip()
    except (OSError, subprocess.CalledProcessError, IndexError):
        return "unknown"


def package_version(package):
    return first_line(["dpkg-query", "--show", "--showformat=${Version}", package])


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        text = file.read()
    model = re.search(r"^model name\s*: (.*)$", text, re.MULTILINE)
    kind = "virtual machine" if "hypervisor" in text else "machine"
    return f"{model.group(1) if model else platform.machine()}, {os.cpu_count()} CPUs, {kind}"


def about():
    return {
        "machine": processor(),
        "kernel": platform.system() + " " + platform.release(),
        "compilers": first_line(["g++", "--version"]) + "; " + first_line(["x86_64-w64-mingw32-g++-posix", "--version"]),
        "libraries": f"glibc {package_version('libc6')}, Google Benchmark {package_version('libbenchmark-dev')}, "
                     f"asio {package_version('libasio-dev')}, spdlog {package_version('libspdlog-dev')}, fmt {package_version('libfmt-dev')}",
        "Wine": first_line([WINE_LIBRARY + "/wine64", "--version"]),
    }


def seconds_of(stat):
    """Of the first line of /proc/stat: all the processors' time, and what of it was not idle. Without what a hypervisor gave to
    other machines: that is no work of this one."""
    user, nice, system, idle, waiting, interrupts, soft_interrupts = (int(word) for word in stat.split()[1:8])
    busy = user + nice + system + interrupts + soft_interrupts
    tick = os.sysconf("SC_CLK_TCK")
    return (busy + idle + waiting) / tick, busy / tick


def processor_seconds():
    with open("/proc/stat", encoding="utf-8") as file:
        return seconds_of(file.readline())


class OtherWork:
    """What share of the machine's processors something else than this process and its children had, since this was made. Not
    for Wine: its server is nobody's child."""

    def __init__(self):
        self.total, self.busy = processor_seconds()
        self.own = self.own_seconds()

    @staticmethod
    def own_seconds():
        times = os.times()
        return times.user + times.system + times.children_user + times.children_system

    def percent(self):
        total, busy = processor_seconds()
        others = busy - self.busy - (self.own_seconds() - self.own)
        return max(0.0, 100 * others / max(total - self.total, 0.001))
