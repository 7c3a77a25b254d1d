"""The pictures of two runs against each other."""

from __future__ import annotations

import numpy as np

from . import drawing as d
from .comparison import Pair
from .errors import KelpError
from .pictures import transport_rows, volume_through_time


def heading(pair: Pair) -> str:
    return f"B less A:  {pair.name_b} (B)  against  {pair.name_a} (A)"


def date_text(pair: Pair) -> str:
    return d.day_text(pair.a, -1)


def all_structures(pair: Pair):
    """Those of both runs, one that both have once."""
    found, seen = [], set()
    for one in [*pair.structures_a, *pair.structures_b]:
        key = (one.kind, tuple(np.round(one.x, 3)), tuple(np.round(one.y, 3)))
        if key not in seen:
            seen.add(key)
            found.append(one)
    return found


def need(pair: Pair, *tables: str):
    if not pair.has(*tables):
        raise KelpError(f"nothing to compare: {', '.join(tables)} are not there in both runs, or empty")


@d.styled
def shoreline_figure(pair: Pair):
    coast, unit, structures = d.Coast(pair.a), d.unit_text(pair.a, "length"), all_structures(pair)
    start, a, b = pair.a["slo"].values[0], pair.a["slo"].values[-1], pair.b["slo"].values[-1]
    figure, (plan, change) = d.new_figure(7.2, heading(pair), f"Shorelines on {date_text(pair)}", 2, [1.7, 1])
    plan.plot(coast.centers, start, color=d.GREY, linewidth=1.4, linestyle=(0, (4, 2)), label="Initial (A)", zorder=3)
    plan.plot(coast.centers, a, color=d.ORANGE, linewidth=2.4, label=f"A: {pair.name_a}", zorder=4, **coast.marker)
    plan.plot(coast.centers, b, color=d.BLUE, linewidth=1.5, label=f"B: {pair.name_b}", zorder=5, **coast.marker)
    d.draw_structures(plan, coast, structures, np.fmin(a, b))
    d.shoreline_limits(plan, [start, a, b], structures)
    plan.set_ylabel(f"Position from the baseline ({unit})")
    d.plain_y(plan)
    d.close_plan(plan, coast)
    d.fill_signed(change, coast, b - a, "B seaward of A", "B landward of A")
    d.close_change(change, coast, structures, f"Difference ({unit})", "Position of B less position of A")
    return figure


@d.styled
def change_figure(pair: Pair):
    label = f"Position of B less position of A ({d.unit_text(pair.a, 'length')})\nB landward < 0 < B seaward"
    subtitle = f"Difference of the shorelines, {d.period_text(pair.a)}"
    return d.time_distance(pair.a, all_structures(pair), pair.difference("slo"), heading(pair), subtitle, label)


@d.styled
def transport_figure(pair: Pair):
    need(pair, "mqn", "mqr", "mql")
    coast, structures = d.Coast(pair.a), all_structures(pair)
    rows_a, meaning_a, unit_a = transport_rows(pair.a)
    rows_b, meaning_b, unit_b = transport_rows(pair.b)
    if meaning_a != meaning_b:
        raise KelpError("the transports cannot be compared: one of the runs is not complete")
    figure, (net, parts) = d.new_figure(6.6, heading(pair), meaning_a, 2)
    net.plot(coast.walls, rows_a[0], color=d.ORANGE, linewidth=2.4, label=f"Net, A: {pair.name_a}", **coast.marker)
    net.plot(coast.walls, rows_b[0], color=d.BLUE, linewidth=1.5, label=f"Net, B: {pair.name_b}", **coast.marker)
    net.set_ylabel(f"Net, to the right\n({d.unit_text(pair.a, unit_a)})")
    net.margins(y=0.1)
    differences = [b - a for a, b in zip(rows_a, rows_b)]
    lines = (
        ("Net", d.BLACK, 2.8, "-"),
        ("To the right", d.SKY, 1.6, "-"),
        ("To the left: negative is more to the left", d.VERMILLION, 1.6, (0, (5, 2))),
    )
    for values, (name, color, width, style) in zip(differences, lines):
        parts.plot(coast.walls, values, color=color, linewidth=width, linestyle=style, label=name)
    parts.axhline(0, color=d.BLACK, linewidth=0.8)
    parts.set_ylabel(f"B less A\n({d.unit_text(pair.a, unit_b)})")
    d.zero_in_view(parts, np.concatenate(differences))
    for axis in (net, parts):
        d.mark_structures(axis, coast, structures)
        d.plain_y(axis)
        coast.label(axis)
    net.set_xlabel("")
    d.legend_below(net, -0.12)
    d.legend_below(parts, -0.24)
    return figure


@d.styled
def volume_figure(pair: Pair):
    need(pair, "vcc", "vcx")
    coast = d.Coast(pair.a)
    figure, (along, total) = d.new_figure(
        7.0, heading(pair), f"Difference of the volume change since the start, on {date_text(pair)}", 2
    )
    d.fill_signed(along, coast, pair.difference("vcx")[-1], "B holds more", "B holds less")
    d.mark_structures(along, coast, all_structures(pair))
    along.set_ylabel(f"Volume difference\n({d.unit_text(pair.a, 'per_length')} of coast)")
    d.plain_y(along)
    coast.label(along)
    d.legend_below(along, -0.22)
    volume_through_time(total, pair.a, pair.difference("vcc"), ("Cells where B holds more", "Cells where B holds less"))
    total.set_ylabel(f"Volume difference ({d.unit_text(pair.a, 'volume')})")
    total.set_title("Whole coast")
    return figure


PICTURES = {
    "shoreline": shoreline_figure,
    "change": change_figure,
    "transport": transport_figure,
    "volume": volume_figure,
}
