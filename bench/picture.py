"""Draws curves over the number of printers, both axes logarithmic, as an SVG that can be read on light and dark pages."""

import math

WIDTH, HEIGHT = 400, 260          # of one panel
LEFT, RIGHT, TOP, BOTTOM = 56, 20, 40, 40
COLOURS = {"module": "#1f77b4", "bare threads": "#d95f02"}

HEAD = """<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" width="{width}" height="{height}"
 font-family="sans-serif" font-size="11">
<rect width="{width}" height="{height}" fill="#ffffff"/>
"""


class Axis:
    """Whole decades around the values, onto a stretch of pixels."""

    def __init__(self, values, begin, end):
        positive = [value for value in values if value > 0] or [1]
        self.low = math.floor(math.log10(min(positive)))
        self.high = max(math.ceil(math.log10(max(positive))), self.low + 1)
        self.begin, self.end = begin, end

    def place(self, value):
        share = (math.log10(max(value, 10.0 ** self.low)) - self.low) / (self.high - self.low)
        return self.begin + share * (self.end - self.begin)

    def ticks(self):
        return [10.0 ** power for power in range(self.low, self.high + 1)]


def text(x, y, words, anchor="middle", more=""):
    return f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" fill="#333333"{more}>{words}</text>\n'


def line(x1, y1, x2, y2):
    return f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" stroke="#dddddd"/>\n'


def frame(title, across, up):
    out = text(LEFT, TOP - 18, title, "start", ' font-size="13" font-weight="bold"')
    for tick in across.ticks():
        x = across.place(tick)
        out += line(x, TOP, x, HEIGHT - BOTTOM) + text(x, HEIGHT - BOTTOM + 16, f"{tick:g}")
    for tick in up.ticks():
        y = up.place(tick)
        out += line(LEFT, y, WIDTH - RIGHT, y) + text(LEFT - 6, y + 4, f"{tick:g}", "end")
    return out + text((LEFT + WIDTH - RIGHT) / 2, HEIGHT - 6, "printers")


def curve(points, across, up, colour):
    places = [(across.place(count), up.place(value)) for count, value in points]
    path = " ".join(f"{x:.1f},{y:.1f}" for x, y in places)
    dots = "".join(f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3" fill="{colour}"/>\n' for x, y in places)
    return f'<polyline points="{path}" fill="none" stroke="{colour}" stroke-width="2"/>\n' + dots


def panel(title, sides):
    points = [point for each in sides.values() for point in each]
    across = Axis([count for count, _ in points], LEFT, WIDTH - RIGHT)
    up = Axis([value for _, value in points], HEIGHT - BOTTOM, TOP)
    out = frame(title, across, up)
    for number, (side, each) in enumerate(sides.items()):
        out += curve(each, across, up, COLOURS[side])
        out += text(LEFT + 8, TOP + 14 + 14 * number, side, "start", f' style="fill:{COLOURS[side]}"')
    return out


def draw(curves):
    """`curves`: title and {side: [(printers, value), ...]} per panel; two panels in a row."""
    panels = [(title, sides) for title, sides in curves if any(sides.values())]
    out = HEAD.format(width=2 * WIDTH, height=HEIGHT * math.ceil(len(panels) / 2))
    for number, (title, sides) in enumerate(panels):
        out += f'<g transform="translate({number % 2 * WIDTH} {number // 2 * HEIGHT})">\n{panel(title, sides)}</g>\n'
    return out + "</svg>\n"
