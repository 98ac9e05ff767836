"""Results of a run: rounds of times in nanoseconds, and figures of many printers, kept as JSON."""

import json
import math
import os
import statistics

# What a run's figures are good for. Only a full run makes results.json and the page.
REMARKS = {
    "full": "",
    "quick": "a quick run, whose figures mean little",
    "partial": "a run of one part",
    "unfinished": "a run that did not reach its end",
}


def is_number(value):
    return isinstance(value, (int, float)) and not isinstance(value, bool) and math.isfinite(value)


def require(condition):
    if not condition:
        raise ValueError


def check(results):
    """Raises one of ValueError, TypeError, KeyError and AttributeError when these are not the results of a run."""
    require(results["kind"] in REMARKS)
    require(all(isinstance(text, str) for text in results["about"].values()))
    require(all(is_number(count) for count in results["allocations"].values()))
    for rounds in results["targets"].values():
        require(len({len(times) for times in rounds.values()}) == 1)
        require(all(times and all(is_number(time) and time > 0 for time in times) for times in rounds.values()))
    for counts in results["scale"].values():
        for count, repetitions in counts.items():
            require(count.isdigit() and isinstance(repetitions, list) and repetitions)
            require(all(is_number(value) for figures in repetitions for value in figures.values()))


def load(path):
    """Raises ValueError, with a line for people, when the file is not the results of a run."""
    try:
        with open(path, encoding="utf-8") as file:
            results = json.load(file)
        check(results)
        return results
    except OSError as error:
        raise ValueError(f"{path} cannot be read: {error.strerror}.") from None
    except (ValueError, TypeError, KeyError, AttributeError, RecursionError):
        raise ValueError(f"{path} is not the results of a run. Give a JSON file that this ./dev bench has written.") from None


def save(path, results):
    """The file is whole at any time."""
    with open(path + ".new", "w", encoding="utf-8") as file:
        json.dump(results, file, indent=1)
        file.write("\n")
    os.replace(path + ".new", path)


def require_measured(names, target, rounds, count):
    """Raises ValueError when one of these benchmarks is not in all `count` rounds."""
    missing = sorted(name for name in names if len(rounds.get(name, [])) != count)
    if missing:
        raise ValueError(f"not measured in each of the {count} rounds ({target}): {', '.join(missing)}. "
                         "Does the program still call it that?")


def per_round(rounds, name, other):
    """What is compared was run in the same round, so that a slower minute weighs on both."""
    return list(zip(rounds[name], rounds[other]))


def ratio(rounds, name, unit):
    return statistics.median(time / one for time, one in per_round(rounds, name, unit))


def figure(goal, rounds):
    """The goal's figure: the median of the figures of all rounds."""
    if goal.kind == "ratio":
        return ratio(rounds, goal.ours, goal.unit)
    if goal.kind == "difference":
        return statistics.median((ours - unit) / 1000 for ours, unit in per_round(rounds, goal.ours, goal.unit))
    return statistics.median(rounds[goal.ours]) / 1000
