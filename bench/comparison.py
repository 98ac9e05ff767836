"""Two runs side by side. Whether a ratio is much is for the reader, who knows the machine."""

import statistics

import goals
import growth
import results as results_of
from table import duration, figure_text, rounded


def row(name, old, new, ratio):
    return f"  {name:<92} {old:>10} {new:>10} {ratio:>8}"


def rows_of(name, was, now, words):
    return [row(name, words(was), words(now), f"{now / was:.2f}" if was > 0 else "–")]


def target_goals(target, before, now):
    lines = []
    for goal in goals.GOALS:
        if goal.ours in before and goal.unit in before:
            lines += rows_of(f"{goal.what} ({target})", results_of.figure(goal, before), results_of.figure(goal, now),
                             lambda figure, goal=goal: figure_text(goal, figure))
    return lines


def goal_lines(old, new):
    lines = []
    for target in new["targets"]:
        lines += target_goals(target, old["targets"].get(target, {}), new["targets"][target])
    before, now = growth.goal_figures(old["scale"]), growth.goal_figures(new["scale"])
    for name in [name for name in now if name in before]:
        lines += rows_of(name, before[name], now[name], rounded)
    return lines


def time_lines(old, new):
    lines = []
    for target in new["targets"]:
        before, now = old["targets"].get(target, {}), new["targets"][target]
        for name in [name for name in now if name in before]:
            lines += rows_of(f"{name} ({target})", statistics.median(before[name]), statistics.median(now[name]), duration)
    return lines


def growth_lines(old, new):
    lines = []
    for kind, counts in new["scale"].items():
        for count in [count for count in counts if count in old["scale"].get(kind, {})]:
            before, now = (growth.summary(run["scale"], kind, count) for run in (old, new))
            for name in [name for name in now if name in before]:
                lines += rows_of(f"{kind} {count} {name}", before[name], now[name], rounded)
    return lines


def text(old, new):
    """First the goals' figures, then all that was measured: old, new, and new divided by old."""
    lines = [f"Note: the {age} results are those of {results_of.REMARKS[run['kind']]}."
             for age, run in (("old", old), ("new", new)) if results_of.REMARKS[run["kind"]]]
    lines.append("new/old above 1: more than it was.")
    for heading, found in (("goals' figures", goal_lines(old, new)), ("times", time_lines(old, new)),
                           ("many printers", growth_lines(old, new))):
        if found:
            lines += [row(heading, "old", "new", "new/old")[2:].rstrip(), *found]
    return "\n".join(lines)
