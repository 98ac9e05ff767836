"""How cost grows with the number of printers: the runs, their lines of the table, and what is drawn of them."""

import random
import statistics

COUNTS = [1, 10, 100, 1000, 5000]
GOAL_COUNT = 1000
# So that there is a median, and no kind of poller has the one good or bad minute.
REPETITIONS = 3
SECONDS = 20
INTERVAL_MS = 1000
READ_MS = 1
# A kernel's table with room for every thread, where a process may choose it.
SLOTS = 8192

# Goals at GOAL_COUNT printers.
MOST_PROCESSOR_RATIO = 2.0
MOST_KILOBYTES = 28.0
LEAST_READS = 0.9        # of those for which there was time
MOST_READS_APART = 2     # the least and the most of all printers
MOST_HEAP_LEFT = 0.01    # of what the lists had

# Figures whose worst repetition counts. Of the others it is the median.
WORST = {"fewest_reads": min, "most_reads": max, "lateness_worst_ms": max, "end_ms": max, "threads_gone_ms": max, "heap_kb_left": max}
KINDS = {"lists": "", "threads": " bare threads", "async": " threads with `std::async` timers"}


def add_benchmark(count):
    return f"add/add_last_of_{count}"


def kinds_of(count, goal_count, wide):
    kinds = ["lists", "threads"] + (["async"] if count == goal_count else [])
    return kinds + (["wide_lists", "wide_threads"] if wide and count >= goal_count else [])


def arguments(kind, count, seconds):
    if kind == "end":
        return ["end", count]
    return [kind.removeprefix("wide_"), count, seconds] + ([SLOTS] if kind.startswith("wide_") else [])


def plan(quick, wide):
    """What is run, in this order: the kind, the number of printers, and the arguments of bench_scale. Within a repetition the
    order is shuffled. `wide`: the kernel lets a process choose the size of its table."""
    counts = [1, 10] if quick else COUNTS
    goal_count = counts[-1] if quick else GOAL_COUNT
    runs = []
    for count in counts:
        for _ in range(REPETITIONS if count == GOAL_COUNT else 1):
            kinds = kinds_of(count, goal_count, wide)
            runs += [(kind, count) for kind in random.sample(kinds, len(kinds))]
    runs += [("end", goal_count)] * (1 if quick else REPETITIONS)
    return [(kind, count, arguments(kind, count, 2 if quick else SECONDS)) for kind, count in runs]


def read_figures(output):
    figures = {}
    for line in output.splitlines():
        name, value = line.split(",")
        figures[name] = float(value)
    return figures


def summary(scale, kind, count):
    """One value for each figure that all repetitions have."""
    repetitions = scale[kind][str(count)]
    names = [name for name in repetitions[0] if all(name in each for each in repetitions)]
    return {name: WORST.get(name, statistics.median)(each[name] for each in repetitions) for name in names}


def counts_of(scale):
    return sorted({int(count) for counts in scale.values() for count in counts})


def has(scale, *kinds, count=GOAL_COUNT):
    return all(str(count) in scale.get(kind, {}) for kind in kinds)


def processor_ratio(scale, kind, other):
    """At GOAL_COUNT: the median of the repetitions' ratios."""
    pairs = zip(scale[kind][str(GOAL_COUNT)], scale[other][str(GOAL_COUNT)])
    return statistics.median(one["processor_ms_per_s"] / two["processor_ms_per_s"] for one, two in pairs)


def goal_figures(scale):
    """What is judged, by name; none without the runs at GOAL_COUNT."""
    if not has(scale, "lists", "threads", "end"):
        return {}
    end = summary(scale, "end", GOAL_COUNT)
    return {
        "processor time": processor_ratio(scale, "lists", "threads"),
        "memory of a printer, KB": summary(scale, "lists", GOAL_COUNT)["resident_kb_each"],
        "end, ms": end["end_ms"],
        "heap left of what the lists had": end["heap_kb_left"] / end["heap_kb_running"],
    }


def judged(figure, most, digits=2, unit=""):
    """The verdict is on the figure as it is printed, or it would contradict what is read."""
    shown = round(figure, digits)
    words = "met" if shown <= most else f"**missed by {100 * (shown / most - 1):.0f} %**"
    return f"**{shown:g}{unit}**, {words}"


def starved(figures):
    possible = figures["measured_s"] * 1000 / (INTERVAL_MS + READ_MS)
    return figures["fewest_reads"] < LEAST_READS * possible or figures["fewest_reads"] < figures["most_reads"] - MOST_READS_APART


def starved_line(ours, bare):
    who = [name for name, figures in (("module", ours), ("bare threads", bare)) if starved(figures)]
    return (f"| **the same: was a printer starved?** (its reads fewer than {100 * LEAST_READS:.0f} % of those that fit into the time, or "
            f"{MOST_READS_APART + 1} fewer than another's) | none | {'**no**, met' if not who else '**yes**: ' + ', '.join(who)} "
            f"(reads of each printer in {ours['measured_s']:.0f} s: {ours['fewest_reads']:.0f} to {ours['most_reads']:.0f}; "
            f"bare threads: {bare['fewest_reads']:.0f} to {bare['most_reads']:.0f}) |")


def end_lines(end, left):
    return [
        f"| **end of {GOAL_COUNT} lists after `Stop`, last exchange long ago: all threads gone and the heap back** | "
        f"≤ {INTERVAL_MS} ms | {judged(end['end_ms'], INTERVAL_MS, 0, ' ms')} (the threads alone: {end['threads_gone_ms']:.0f} ms) |",
        f"| **the same: heap still in use, of what the lists had** | ≤ {100 * MOST_HEAP_LEFT:g} % | "
        f"{judged(100 * left, 100 * MOST_HEAP_LEFT, 2, ' %')} ({end['heap_kb_left']:.0f} of {end['heap_kb_running']:.0f} KB; resident after "
        f"`malloc_trim`: {end['resident_kb_left_after_trim']:.0f} of {end['resident_kb_running']:.0f} KB) |",
    ]


def processor_lines(scale):
    """What the processor time of 1,000 printers is beside."""
    lines = []
    if has(scale, "async"):
        lines.append(f"| a thread each that reads by itself, with a `std::async` timer per cycle | | {processor_ratio(scale, 'async', 'threads'):.2f}; "
                     f"ours takes {processor_ratio(scale, 'lists', 'async'):.2f} of it |")
    if has(scale, "wide_lists", "wide_threads"):
        slots = summary(scale, "lists", GOAL_COUNT).get("slots")
        by_itself = f" (by itself it took {slots:.0f} here)" if slots else ""
        lines.append(f"| the module's, both with {SLOTS} slots in the kernel's table of sleeping threads{by_itself} | | "
                     f"{processor_ratio(scale, 'wide_lists', 'wide_threads'):.2f} |")
    return lines


def goal_lines(scale):
    figures = goal_figures(scale)
    if not figures:
        return []
    ours, bare, end = (summary(scale, kind, GOAL_COUNT) for kind in ("lists", "threads", "end"))
    return [
        f"| **{GOAL_COUNT} printers, state every second, 1 ms reads: processor time, in that of bare threads** | "
        f"≤ {MOST_PROCESSOR_RATIO:g} | {judged(figures['processor time'], MOST_PROCESSOR_RATIO)} |",
        *processor_lines(scale),
        starved_line(ours, bare),
        f"| **memory of a printer with one task, resident** | ≤ {MOST_KILOBYTES:g} KB | "
        f"{judged(figures['memory of a printer, KB'], MOST_KILOBYTES, 1, ' KB')} (a bare thread: {bare['resident_kb_each']:.1f}) |",
        *end_lines(end, figures["heap left of what the lists had"]),
    ]


def labelled_kinds(count):
    plain = [(kind, f"**{count}**" if kind == "lists" else f"{count}{words}") for kind, words in KINDS.items()]
    return plain + [("wide_" + kind, f"{label}, {SLOTS} slots") for kind, label in plain]


def growth_lines(scale, rounds):
    lines = ["| printers | `Add`, new type | threads | memory each | processor time per s | lateness median | p99 | worst |",
             "|---|---|---|---|---|---|---|---|"]
    for count in counts_of(scale):
        for kind, label in labelled_kinds(count):
            add = rounds.get(add_benchmark(count)) if kind == "lists" else None
            add_text = f"{statistics.median(add) / 1000:.2f} µs" if add else "–"
            if has(scale, kind, count=count):
                lines.append(f"| {label} | {add_text} | {figures_text(summary(scale, kind, count))} |")
            elif kind in ("lists", "threads"):
                lines.append(f"| {label} | {add_text} | – | – | more than the processor can do | – | – | – |")
    return lines


def figures_text(one):
    return (f"{one['threads']:.0f} | {one['resident_kb_each']:.1f} KB | {one['processor_ms_per_s']:.2f} ms | "
            f"{one['lateness_median_ms']:.2f} ms | {one['lateness_p99_ms']:.2f} ms | {one['lateness_worst_ms']:.2f} ms")


def table_lines(scale, rounds):
    goals = goal_lines(scale)
    judged_lines = ["| what | goal | measured |", "|---|---|---|", *goals, ""] if goals else []
    return ["### Many printers, Linux host", "", *judged_lines, *growth_lines(scale, rounds), ""]


def curves(scale, rounds):
    """What the picture shows: title, and for each side its points (printers, value)."""
    counts = counts_of(scale)

    def both(name):
        return {side: [(count, summary(scale, kind, count)[name]) for count in counts if has(scale, kind, count=count)]
                for side, kind in SIDES}

    adds = [(count, statistics.median(rounds[add_benchmark(count)]) / 1000) for count in counts]
    return [
        ("Add of a new type, µs", {"module": adds}),
        ("resident memory per printer, KB", both("resident_kb_each")),
        ("processor time, ms per second", both("processor_ms_per_s")),
        ("lateness p99, ms", both("lateness_p99_ms")),
    ]


SIDES = (("module", "lists"), ("bare threads", "threads"))
