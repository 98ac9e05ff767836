"""Results of a run: rounds of times in nanoseconds, kept as JSON. Written and read here, with what a minimal Python has: the
same text is JSON and a Python literal, since nothing in it is true, false or null."""

import ast


def median(values):
    ordered = sorted(values)
    middle = len(ordered) // 2
    return ordered[middle] if len(ordered) % 2 else (ordered[middle - 1] + ordered[middle]) / 2


def to_json(value, indent=0):
    pad = " " * (indent + 1)
    if isinstance(value, dict):
        rows = [f"{pad}{quoted(str(key))}: {to_json(each, indent + 1)}" for key, each in value.items()]
        return "{\n" + ",\n".join(rows) + "\n" + " " * indent + "}" if rows else "{}"
    if isinstance(value, (list, tuple)):
        return "[" + ", ".join(to_json(each) for each in value) + "]"
    if isinstance(value, str):
        return quoted(value)
    return format(value, ".6g") if isinstance(value, float) else str(value)


def quoted(text):
    plain = text.encode("ascii", "replace").decode().replace("\\", "\\\\").replace('"', '\\"')
    return '"' + "".join(character if character >= " " else " " for character in plain) + '"'


def load(path):
    """Raises ValueError, with a line for people, when the file is not the results of a run."""
    try:
        with open(path, encoding="utf-8") as file:
            results = ast.literal_eval(file.read())
        for rounds in results["targets"].values():
            for times in rounds.values():
                if not times or not all(isinstance(time, (int, float)) and time > 0 for time in times):
                    raise ValueError
        return results
    except OSError as error:
        raise ValueError(f"{path} cannot be read: {error.strerror}.") from None
    except (SyntaxError, ValueError, TypeError, KeyError, AttributeError):
        raise ValueError(f"{path} is not the results of a run. Give a JSON file that ./dev bench has written.") from None


def save(path, results):
    with open(path, "w", encoding="utf-8") as file:
        file.write(to_json(results) + "\n")


def figure(goal, rounds):
    """The goal's figure, median of the figures of all rounds, or None when it was not measured. What is compared was run in the
    same round, so that a slower minute weighs on both."""
    if goal.ours not in rounds or goal.unit not in rounds:
        return None
    pairs = zip(rounds[goal.ours], rounds[goal.unit])
    if goal.kind == "ratio":
        return median([ours / unit for ours, unit in pairs])
    if goal.kind == "difference":
        return median([(ours - unit) / 1000 for ours, unit in pairs])
    return median(rounds[goal.ours]) / 1000


def ratio(rounds, name, unit):
    return median([time / one for time, one in zip(rounds[name], rounds[unit])])
