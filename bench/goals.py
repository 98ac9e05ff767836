"""What is measured for the table, and what each figure is to reach. Names are those of the benchmarks: PROGRAM/NAME."""

import collections

import growth

# ours, unit: benchmarks. kind "ratio": ours divided by the unit; "difference": ours less the unit, in microseconds; "time": ours in
# microseconds. most: target -> the largest figure that meets the goal. beside: benchmark -> what it is called in the table.
# ahead_of, level_with: those of `beside` than which ours is to be faster, or at most LEVEL of.
Goal = collections.namedtuple("Goal", "what ours unit kind most beside ahead_of level_with", defaults=((), ()))

LEVEL = 1.05


def handler_goal(what, name):
    unit = "handler/bare_calls_" + name
    return Goal(f"{what}: a handler's own cost beyond its library calls, logging off", "handler/" + name, unit, "difference",
                {"host": 2.0}, {unit: "those calls alone, and the call of the window, which is thus no part of it (the unit)"})


GOALS = [
    Goal("one dispatch of an empty handler through the worker's hand-over", "hand_over/dispatch", "hand_over/ping_pong", "ratio",
         {"host": 1.3, "wine": 8.0}, {
             "hand_over/ping_pong": "two threads taking turns on one word (the unit)",
             "hand_over/helper_thread": "our hand-over with nothing in it",
             "hand_over/std_async": "`std::async` and `get`",
             "hand_over/parked_thread_notified_under_lock": "parked thread, notified under the lock",
             "hand_over/parked_thread_notified_after_unlocking": "parked thread, notified after unlocking",
             "hand_over/asio_strand": "asio, strand and future",
         }, ahead_of=("hand_over/std_async",), level_with=("hand_over/asio_strand",)),
    Goal("one timed wait ended by a post", "timed_wait/timer", "timed_wait/ping_pong", "ratio", {"host": 5.5, "wine": 25.0}, {
        "timed_wait/ping_pong": "two threads taking turns on one word (the unit)",
        "timed_wait/std_async": "a `std::async` task each time",
        "timed_wait/parked_thread": "parked thread, hand-shake at stop",
        "timed_wait/asio_steady_timer": "asio `steady_timer`; its stop waits for nothing",
    }, ahead_of=("timed_wait/std_async",)),
    Goal("a disabled log call", "log_call/disabled_call", "log_call/bare_call", "ratio", {"host": 1.2, "wine": 1.2}, {
        "log_call/bare_call": "a variadic call that tests a mask (the unit)",
    }),
    Goal("an enabled log line, in the platform's calls alone", "log_line/enabled_line", "log_line/bare_calls_text_ready", "ratio",
         {"host": 1.15, "wine": 1.15}, {
             "log_line/bare_calls_text_ready": "the platform's calls for one line, its text being there (the unit)",
             "log_line/spdlog_flushed": "spdlog, flushed per line, its file kept open",
         }),
    Goal("an enabled log line, in the calls of the platform and its runtime", "log_line/enabled_line", "log_line/bare_calls", "ratio",
         {"host": 1.15, "wine": 1.15}, {
             "log_line/bare_calls": "the same, and the runtime's calls that make the text (the unit)",
         }),
    Goal("`Add` of a new type into a list, last of 1,000 printers, warm", "add/add_last_of_1000", "add/walk_last_of_1000", "time",
         {"host": 10.0}, {"add/walk_last_of_1000": "the walk to the list alone (the unit)"}),
    handler_goal("state over USB", "state_usb"),
    handler_goal("state over the network", "state_network"),
    handler_goal("two device parameters read", "get_parameters"),
    handler_goal("the sleep time set", "set_sleep_time"),
]

# Allocations per enabled line; none is the goal. What the count cannot see is said beside it.
ALLOCATIONS = "log_line/enabled_line"
ALLOCATIONS_UNSEEN = {"host": "", "wine": "; those that the DLLs of Windows and of the C++ runtime make for themselves are not seen"}


def benchmarks():
    """All names that the table and the picture are made of."""
    names = {name for goal in GOALS for name in (goal.ours, goal.unit, *goal.beside)}
    return names | {growth.add_benchmark(count) for count in growth.COUNTS}
