"""The table of docs/performance.md, made from results."""

import statistics

import goals
import growth
import results as results_of

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
    shown = float(rounded(figure))  # or the verdict would contradict what is read
    return ", met" if shown <= goal.most[target] else f", **missed by {100 * (shown / goal.most[target] - 1):.0f} %**"


def rival_texts(goal, name, rounds):
    """What ours is to be beside this one, and whether it is."""
    if name not in goal.ahead_of and name not in goal.level_with:
        return "", ""
    ours = results_of.ratio(rounds, goal.ours, name)
    if name in goal.ahead_of:
        words, reached = "ours is ahead", ours < 1
    else:
        words, reached = "ours is level or ahead", ours <= goals.LEVEL
    return words, f"; ours takes {rounded(ours)} of it, {'met' if reached else '**missed**'}"


def goal_rows(goal, target, rounds):
    figure = results_of.figure(goal, rounds)
    ours = duration(statistics.median(rounds[goal.ours]))
    figure_or_both = ours if goal.kind == "time" else f"{figure_text(goal, figure)} ({ours})"
    rows = [f"| **{goal.what}** | {goal_text(goal, target)} | **{figure_or_both}**{verdict(goal, target, figure)} |"]
    for name, label in goal.beside.items():
        words, reached = rival_texts(goal, name, rounds)
        times = duration(statistics.median(rounds[name]))
        rows.append(f"| {label} | {words} | {rounded(results_of.ratio(rounds, name, goal.unit))} ({times}){reached} |")
    return rows


def target_lines(target, results):
    rounds = results["targets"][target]
    lines = [f"### {HEADINGS[target]}", "", "| what | goal | measured |", "|---|---|---|"]
    for goal in goals.GOALS:
        lines += goal_rows(goal, target, rounds)
    allocations = results["allocations"][target]
    lines.append(f"| **allocations of an enabled line**{goals.ALLOCATIONS_UNSEEN[target]} | 0 | "
                 f"**{allocations:g}**, {'met' if allocations == 0 else '**missed**'} |")
    return lines + [""]


def text(results):
    about = results["about"]
    lines = ["| | |", "|---|---|"]
    lines += [f"| {key} | {'`' + value + '`' if key == 'command' else value} |" for key, value in about.items()]
    lines.append("")
    for target in results["targets"]:
        lines += target_lines(target, results)
    if results["scale"]:
        lines += growth.table_lines(results["scale"], results["targets"].get("host", {}))
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
