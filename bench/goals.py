"""What is measured for the table, and what each figure is to reach. Names are those of the benchmarks: PROGRAM/NAME."""

import collections

# ours, unit: benchmarks. kind "ratio": ours divided by the unit; "difference": ours less the unit, in microseconds; "time": ours in
# microseconds. most: target -> the largest figure that meets the goal. beside: benchmark -> what it is called in the table.
Goal = collections.namedtuple("Goal", "what ours unit kind most beside")

GOALS = [
    Goal("one dispatch of an empty handler through the worker's hand-over", "hand_over/dispatch", "hand_over/ping_pong", "ratio",
         {"host": 1.3, "wine": 8.0}, {
             "hand_over/ping_pong": "two threads taking turns on one word (the unit)",
             "hand_over/helper_thread": "our hand-over with nothing in it",
             "hand_over/std_async": "`std::async` and `get`",
             "hand_over/parked_thread_notified_under_lock": "parked thread, notified under the lock",
             "hand_over/parked_thread_notified_after_unlocking": "parked thread, notified after unlocking",
             "hand_over/asio_strand": "asio, strand and future",
         }),
    Goal("one timed wait ended by a post", "timed_wait/timer", "timed_wait/ping_pong", "ratio", {"host": 5.5, "wine": 25.0}, {
        "timed_wait/ping_pong": "two threads taking turns on one word (the unit)",
        "timed_wait/std_async": "a `std::async` task each time",
        "timed_wait/parked_thread": "parked thread, hand-shake at stop",
        "timed_wait/asio_steady_timer": "asio `steady_timer`; its stop waits for nothing",
    }),
    Goal("a disabled log call", "log_call/disabled_call", "log_call/bare_call", "ratio", {"host": 1.2, "wine": 1.2}, {
        "log_call/bare_call": "a variadic call that tests a mask (the unit)",
    }),
    Goal("an enabled log line", "log_line/enabled_line", "log_line/bare_calls", "ratio", {"host": 1.15, "wine": 1.15}, {
        "log_line/bare_calls": "the same calls of the platform and its runtime (the unit)",
        "log_line/bare_calls_text_ready": "the same without those that make the text",
        "log_line/spdlog_flushed": "spdlog, flushed per line, its file kept open",
    }),
    Goal("`Add` of a new type into a list, last of 1,000 printers, warm", "add/add_last_of_1000", "add/walk_last_of_1000", "time", {"host": 10.0}, {
        "add/walk_last_of_1000": "the walk to the list alone (the unit)",
    }),
    Goal("the state handler's own cost beyond its library calls and its notice, logging off", "handler/state_handler",
         "handler/bare_library_calls", "difference", {"host": 2.0}, {
             "handler/bare_library_calls": "those calls alone (the unit)",
         }),
]

# Allocations per enabled line; none is the goal.
ALLOCATIONS = "log_line/enabled_line"
