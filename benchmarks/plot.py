"""The plot of cost over size."""

import math

WIDTH, HEIGHT, LEFT, RIGHT, TOP, BOTTOM = 640, 420, 64, 110, 24, 56
COLOURS = ["#1f6feb", "#c2410c", "#15803d", "#7c3aed", "#be185d"]


def growth(lines):
    """An SVG picture of `lines`: for each name, the costs of 1, 10 and 100 times the work. Both axes are logarithmic."""
    highest = max(2.0, *(math.log10(cost) for costs in lines.values() for cost in costs))

    def place(decade, cost):
        x = LEFT + decade / 2 * (WIDTH - LEFT - RIGHT)
        y = HEIGHT - BOTTOM - math.log10(cost) / highest * (HEIGHT - TOP - BOTTOM)
        return x, max(TOP, min(y, HEIGHT - BOTTOM))

    def points(costs):
        return " ".join(f"{x:.1f},{y:.1f}" for x, y in (place(*each) for each in enumerate(costs)))

    parts = [
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" font-family="sans-serif" '
        'font-size="13">',
        "<title>Cost over size</title>",
        f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#ffffff"/>',
    ]
    for decade in range(3):
        (x, bottom), (_, y) = place(decade, 1), place(decade, 10**decade)
        parts += [
            f'<path d="M{x:.1f} {bottom}V{TOP}M{LEFT} {y:.1f}H{WIDTH - RIGHT}" stroke="#d0d7de"/>',
            f'<text x="{x:.1f}" y="{bottom + 20}" text-anchor="middle">{10**decade}x</text>',
            f'<text x="{LEFT - 8}" y="{y + 4:.1f}" text-anchor="end">{10**decade}x</text>',
        ]
    middle = (LEFT + WIDTH - RIGHT) / 2
    parts += [
        f'<text x="{middle}" y="{HEIGHT - 14}" text-anchor="middle">work</text>',
        f'<text x="16" y="{HEIGHT / 2}" text-anchor="middle" transform="rotate(-90 16 {HEIGHT / 2})">cost</text>',
        f'<polyline points="{points([1, 10, 100])}" fill="none" stroke="#57606a" stroke-dasharray="5 4"/>',
    ]
    ends = sorted(lines, key=lambda name: lines[name][-1], reverse=True)
    label = TOP - 16.0
    for name in ends:
        colour = COLOURS[list(lines).index(name) % len(COLOURS)]
        x, y = place(2, lines[name][-1])
        label = max(label + 16, y)
        parts += [
            f'<polyline points="{points(lines[name])}" fill="none" stroke="{colour}" stroke-width="2"/>',
            f'<text x="{x + 8:.1f}" y="{label + 4:.1f}" fill="{colour}">{name} {lines[name][-1]:.0f}x</text>',
        ]
    return "\n".join([*parts, "</svg>"]) + "\n"
