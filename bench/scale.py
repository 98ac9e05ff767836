"""How cost grows with the number of printers: the runs, their lines of the table, and what is drawn of them."""

import results as results_of

COUNTS = [1, 10, 100, 1000, 5000]
GOAL_COUNT = 1000
INTERVAL_MS = 1000
# A kernel's table with room for every thread, where a process may choose it (Linux 6.16 and later).
SLOTS = 8192

# Goals at GOAL_COUNT printers.
MOST_PROCESSOR_RATIO = 2.0
MOST_KILOBYTES = 28.0


def plan(quick, wide):
    """What is run, in this order: the kind, the number of printers, and the arguments of bench_scale. The counts with goals are
    measured longest. `wide`: the kernel lets a process choose the size of its table."""
    counts = [1, 10] if quick else COUNTS
    goal_count = counts[-1] if quick else GOAL_COUNT
    runs = []
    for count in counts:
        seconds = 2 if quick else 60 if count == GOAL_COUNT else 20
        runs += [(mode, count, [mode, count, seconds]) for mode in ("lists", "threads")]
        if wide and count >= goal_count:
            runs += [("wide_" + mode, count, [mode, count, seconds, SLOTS]) for mode in ("lists", "threads")]
    return runs + [("end", goal_count, ["end", goal_count])]


def read_figures(output):
    figures = {}
    for line in output.splitlines():
        name, value = line.split(",")
        figures[name] = float(value)
    return figures


def counts_of(scale):
    return sorted(int(count) for count in scale["lists"])


def judged(figure, most):
    return f"**{figure}**, met" if figure <= most else f"**{figure}**, **missed by {100 * (figure / most - 1):.0f} %**"


def goal_lines(scale):
    ours, bare = scale["lists"].get(str(GOAL_COUNT)), scale["threads"].get(str(GOAL_COUNT))
    end = scale["end"].get(str(GOAL_COUNT))
    if not (ours and bare and end):
        return []
    processor = processor_ratio(scale, "")
    kilobytes = round(ours["resident_kb_each"], 1)
    missing = [name for name, one in (("module", ours), ("bare threads", bare)) if one["fewest_reads"] < one["most_reads"] - 2]
    return [
        f"| **{GOAL_COUNT} printers, state every second, 1 ms reads: processor time, in that of bare threads** | "
        f"≤ {MOST_PROCESSOR_RATIO:g} | {judged(processor, MOST_PROCESSOR_RATIO)} |",
        f"| **the same: was a printer starved?** | none | {'**no**, met' if not missing else '**yes**: ' + ', '.join(missing)} "
        f"(reads of each printer: {ours['fewest_reads']:.0f} to {ours['most_reads']:.0f}; "
        f"bare threads: {bare['fewest_reads']:.0f} to {bare['most_reads']:.0f}) |",
        *wide_lines(scale),
        f"| **memory of a printer with one task, resident** | ≤ {MOST_KILOBYTES:g} KB | {judged(kilobytes, MOST_KILOBYTES)} "
        f"(a bare thread: {bare['resident_kb_each']:.1f}) |",
        f"| **end of {GOAL_COUNT} lists after `Stop`, last exchange long ago** | all threads gone, memory back, in {INTERVAL_MS} ms | "
        f"{judged(round(end['end_ms']), INTERVAL_MS)} (ms; then {end['heap_kb_left']:.0f} KB of heap more in use than before, "
        f"{end['resident_kb_left']:.0f} of {end['resident_kb_running']:.0f} KB still resident) |",
    ]


def processor_ratio(scale, kind):
    ours, bare = (scale[kind + mode][str(GOAL_COUNT)]["processor_ms_per_s"] for mode in ("lists", "threads"))
    return round(ours / bare, 2)


def wide_lines(scale):
    if str(GOAL_COUNT) not in scale.get("wide_threads", {}):
        return []
    return [f"| the processor time with {SLOTS} slots in the kernel's table of sleeping threads, which has 16 on 2 CPUs | | "
            f"{processor_ratio(scale, 'wide_')} |"]


def growth_lines(scale, rounds):
    lines = ["| printers | `Add`, new type | threads | memory each | processor time per s | lateness median | p99 | worst |",
             "|---|---|---|---|---|---|---|---|"]
    for count in counts_of(scale):
        for mode, label in (("lists", f"**{count}**"), ("threads", f"{count} bare threads"),
                            ("wide_lists", f"**{count}**, {SLOTS} slots"), ("wide_threads", f"{count} bare threads, {SLOTS} slots")):
            one = scale.get(mode, {}).get(str(count))
            if one is None:
                continue
            add = rounds.get(f"add/add_last_of_{count}") if mode == "lists" else None
            add_text = f"{results_of.median(add) / 1000:.2f} µs" if add else "–"
            lines.append(f"| {label} | {add_text} | {one['threads']:.0f} | {one['resident_kb_each']:.1f} KB | "
                         f"{one['processor_ms_per_s']:.2f} ms | {one['lateness_median_ms']:.2f} ms | "
                         f"{one['lateness_p99_ms']:.2f} ms | {one['lateness_worst_ms']:.2f} ms |")
    return lines


def table_lines(scale, rounds):
    return ["### Many printers, Linux host", "", "| what | goal | measured |", "|---|---|---|", *goal_lines(scale), "",
            *growth_lines(scale, rounds), ""]


def curves(scale, rounds):
    """What the picture shows: title, and for each side its points (printers, value)."""
    counts = counts_of(scale)

    def points(mode, name):
        return [(count, scale[mode][str(count)][name]) for count in counts]

    adds = [(count, results_of.median(rounds[f"add/add_last_of_{count}"]) / 1000)
            for count in counts if f"add/add_last_of_{count}" in rounds]
    return [
        ("Add of a new type, µs", {"module": adds}),
        ("resident memory per printer, KB", {side: points(mode, "resident_kb_each") for side, mode in SIDES}),
        ("processor time, ms per second", {side: points(mode, "processor_ms_per_s") for side, mode in SIDES}),
        ("lateness p99, ms", {side: points(mode, "lateness_p99_ms") for side, mode in SIDES}),
    ]


SIDES = (("module", "lists"), ("bare threads", "threads"))
