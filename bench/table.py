"""The table of docs/performance.md, made from results."""

import goals
import results as results_of
import scale

BEGIN = "<!-- measured: begin -->"
END = "<!-- measured: end -->"
HEADINGS = {"host": "Linux host", "wine": "Windows program under Wine"}


def rounded(number):
    return f"{number:.2f}" if number < 10 else f"{number:.1f}" if number < 100 else f"{number:.0f}"


def duration(nanoseconds):
    return f"{rounded(nanoseconds)} ns" if nanoseconds < 1000 else f"{rounded(nanoseconds / 1000)} µs"


def figure_text(goal, figure):
    return rounded(figure) + ("" if goal.kind == "ratio" else " µs")


def goal_text(goal, target):
    if target not in goal.most:
        return "–"
    most = goal.most[target]
    return f"≤ {most:g}" + ("" if goal.kind == "ratio" else " µs")


def verdict(goal, target, figure):
    if target not in goal.most:
        return ""
    return ", met" if figure <= goal.most[target] else f", **missed by {100 * (figure / goal.most[target] - 1):.0f} %**"


def goal_rows(goal, target, rounds):
    figure = results_of.figure(goal, rounds)
    if figure is None:
        return []
    ours = duration(results_of.median(rounds[goal.ours]))
    figure_or_both = ours if goal.kind == "time" else f"{figure_text(goal, figure)} ({ours})"
    rows = [f"| **{goal.what}** | {goal_text(goal, target)} | **{figure_or_both}**{verdict(goal, target, figure)} |"]
    for name, label in goal.beside.items():
        if name in rounds:
            times = duration(results_of.median(rounds[name]))
            rows.append(f"| {label} | | {rounded(results_of.ratio(rounds, name, goal.unit))} ({times}) |")
    return rows


def target_lines(target, results):
    rounds = results["targets"][target]
    lines = [f"### {HEADINGS[target]}", "", "| what | goal | measured |", "|---|---|---|"]
    for goal in goals.GOALS:
        lines += goal_rows(goal, target, rounds)
    allocations = results["allocations"].get(target)
    if allocations is not None:
        lines.append(f"| **allocations of an enabled line** | 0 | **{allocations:g}**, {'met' if allocations == 0 else '**missed**'} |")
    return lines + [""]


def text(results):
    about = results["about"]
    lines = ["| | |", "|---|---|"]
    lines += [f"| {key} | {'`' + value + '`' if key == 'command' else value} |" for key, value in about.items()]
    lines.append("")
    for target in results["targets"]:
        lines += target_lines(target, results)
    if results["scale"]:
        lines += scale.table_lines(results["scale"], results["targets"].get("host", {}))
    return "\n".join(lines)


def put_into(path, results):
    """Replaces what stands between the two markers; the prose around it stays. Raises ValueError when they are not there."""
    with open(path, encoding="utf-8") as file:
        page = file.read()
    begin, end = page.find(BEGIN), page.find(END)
    if begin < 0 or end < begin:
        raise ValueError(f"{path} has no place for the table: the lines '{BEGIN}' and '{END}', in this order.")
    page = page[:begin] + BEGIN + "\n" + text(results) + page[end:]
    with open(path, "w", encoding="utf-8") as file:
        file.write(page)


def comparison(old, new):
    """Ratios new to old of every benchmark that both runs have. Whether that is much is for the reader, who knows the machine."""
    lines = []
    for target in new["targets"]:
        before, now = old["targets"].get(target, {}), new["targets"][target]
        shared = [name for name in now if name in before]
        if shared:
            lines += [f"{target:<52} {'old':>10} {'new':>10} {'new/old':>8}"]
        for name in shared:
            was, is_now = results_of.median(before[name]), results_of.median(now[name])
            lines.append(f"  {name:<50} {duration(was):>10} {duration(is_now):>10} {is_now / was:>8.2f}")
    return "\n".join(lines + scale_comparison(old.get("scale") or {}, new["scale"]))


def scale_comparison(old, new):
    lines = []
    for mode, counts in new.items():
        for count, figures in counts.items():
            before = old.get(mode, {}).get(count, {})
            for name, now in figures.items():
                was = before.get(name, 0)
                if was > 0:
                    lines.append(f"  {mode + ' ' + count + ' ' + name:<50} {rounded(was):>10} {rounded(now):>10} {now / was:>8.2f}")
    return ["scale", *lines] if lines else []
