"""The pictures of one run. Each function takes the run's dataset and structures and gives a figure."""

from __future__ import annotations

import numpy as np

from . import drawing as d
from .errors import KelpError
from .run import EQUILIBRIUM_VOLUMES, MEAN_RATE


def need(data, *tables):
    """The tables are there, with at least one record."""
    for table in tables:
        if table not in data or data[table].shape[0] == 0:
            raise KelpError(f"{data.attrs['report']}: nothing to draw: the table {table} is not there or empty")


def unfinished(data) -> str:
    return "" if data.attrs["run_complete"] == "yes" else " (the run is not complete)"


def extremes(values: np.ndarray):
    """Most landward and most seaward position of each cell; NaN where there is none."""
    low = np.where(np.isfinite(values), values, np.inf).min(axis=0)
    high = np.where(np.isfinite(values), values, -np.inf).max(axis=0)
    return np.where(np.isfinite(low), low, np.nan), np.where(np.isfinite(high), high, np.nan)


@d.styled
def shoreline_figure(data, structures):
    """Initial and final shoreline, its extremes and the structures; below, the change."""
    need(data, "slo")
    coast, unit = d.Coast(data), d.unit_text(data, "length")
    shore = data["slo"].values
    landward, seaward = extremes(shore)
    figure, (plan, change) = d.new_figure(
        7.2, data.attrs["title"], f"Shoreline, {d.period_text(data)}{unfinished(data)}", 2, [1.7, 1]
    )
    plan.fill_between(
        coast.centers, landward, seaward, color=d.SKY, alpha=0.4, linewidth=0, label="Extremes of the saved records"
    )
    plan.plot(coast.centers, shore[0], color=d.GREY, linewidth=1.6, linestyle=(0, (4, 2)), label="Initial", zorder=3)
    plan.plot(
        coast.centers, shore[-1], color=d.BLUE, linewidth=1.8, label=f"Final, {d.day_text(data, -1)}", zorder=5,
        **coast.marker,
    )  # fmt: skip
    d.draw_structures(plan, coast, structures, landward)
    d.shoreline_limits(plan, [landward, seaward], structures)
    plan.set_ylabel(f"Position from the baseline ({unit})")
    d.plain_y(plan)
    d.close_plan(plan, coast)
    d.fill_signed(change, coast, shore[-1] - shore[0], "Advance", "Retreat")
    d.close_change(change, coast, structures, f"Change ({unit})", "Final less initial position")
    return figure


@d.styled
def change_figure(data, structures):
    """Shoreline change from the first record on, through time."""
    need(data, "slo")
    shore = data["slo"].values
    label = f"Change of the shoreline ({d.unit_text(data, 'length')})\nretreat < 0 < advance"
    subtitle = f"Shoreline change since the start, {d.period_text(data)}{unfinished(data)}"
    return d.time_distance(data, structures, shore - shore[0], data.attrs["title"], subtitle, label)


def transport_rows(data):
    """Net, right and left transport of the whole run, and what they are: mean annual rates of a run that
    ended, or else the sums of the last year or print date. Of the rows that an anniversary has within a day
    the first holds the year."""
    kind, dates, times = data["kind"].values, data["year_date"].values, data["year_time"].values
    if kind[-1] == MEAN_RATE:
        row, meaning, unit = kind.size - 1, "Mean annual longshore transport", "rate"
    else:
        together = dates == dates[-1] if np.isnat(times).any() else times >= times[-1] - np.timedelta64(1, "D")
        row = int(np.argmax(together))
        text = str(dates[row])
        meaning = f"Longshore transport since the last year's end, up to {text[:4]}-{text[4:6]}-{text[6:]}"
        unit = "volume"
    values = [data[name].values[row] if name in data else None for name in ("mqn", "mqr", "mql")]
    return values, meaning, unit


@d.styled
def transport_figure(data, structures):
    """Net transport and its parts to the right and to the left at the walls."""
    need(data, "mqn", "mqr", "mql")
    coast = d.Coast(data)
    (net, right, left), meaning, unit = transport_rows(data)
    figure, (axis,) = d.new_figure(
        5.4, data.attrs["title"], f"{meaning}, {d.period_text(data)}{unfinished(data)}" if unit == "rate" else meaning
    )
    axis.fill_between(coast.walls, 0, right, color=d.SKY, alpha=0.35, linewidth=0)
    axis.fill_between(coast.walls, 0, left, color=d.ORANGE, alpha=0.3, linewidth=0)
    # The parts lie over the net: where there is one part only, both are seen.
    axis.plot(coast.walls, right, color=d.SKY, linewidth=1.6, label="To the right", zorder=2.6)
    axis.plot(
        coast.walls, net, color=d.BLACK, linewidth=2.8, label="Net, positive to the right", zorder=2.5, **coast.marker
    )
    axis.plot(
        coast.walls, left, color=d.VERMILLION, linewidth=1.6, linestyle=(0, (5, 2)), label="To the left, negative",
        zorder=2.6,
    )  # fmt: skip
    axis.axhline(0, color=d.BLACK, linewidth=0.8)
    d.zero_in_view(axis, np.concatenate((net, right, left)))
    d.mark_structures(axis, coast, structures)
    axis.set_ylabel(f"Transport ({d.unit_text(data, unit)})")
    d.plain_y(axis)
    coast.label(axis)
    d.legend_below(axis, -0.14)
    return figure


@d.styled
def volume_figure(data, structures):
    """Volume change along the coast at the end, and of the whole coast through time."""
    need(data, "vcc", "vcx")
    coast = d.Coast(data)
    figure, (along, total) = d.new_figure(
        7.0, data.attrs["title"], f"Volume change since the start, on {d.day_text(data, -1)}{unfinished(data)}", 2
    )
    d.fill_signed(along, coast, data["vcx"].values[-1], "Gain", "Loss")
    d.mark_structures(along, coast, structures)
    along.set_ylabel(f"Volume change\n({d.unit_text(data, 'per_length')} of coast)")
    d.plain_y(along)
    coast.label(along)
    d.legend_below(along, -0.22)
    volume_through_time(total, data, data["vcc"].values)
    total.set_title("Whole coast")
    return figure


def volume_through_time(axis, data, volumes: np.ndarray, names=("Cells that gained", "Cells that lost")):
    """Sums over the coast of what cells gained and lost, and their net."""
    moments, dated = d.time_values(data)
    gained = np.nansum(np.where(volumes > 0, volumes, 0.0), axis=1)
    lost = np.nansum(np.where(volumes < 0, volumes, 0.0), axis=1)
    axis.plot(moments, gained, color=d.ADVANCE, linewidth=1.6, label=names[0], zorder=2.6)
    axis.plot(
        moments, lost, color=d.RETREAT, linewidth=1.6, linestyle=(0, (5, 2)), label=names[1], zorder=2.6
    )
    axis.plot(moments, gained + lost, color=d.BLACK, linewidth=2.8, label="Net", zorder=2.5)
    axis.axhline(0, color=d.BLACK, linewidth=0.8)
    d.zero_in_view(axis, np.concatenate((gained, lost)))
    if moments[0] < moments[-1]:
        axis.set_xlim(moments[0], moments[-1])
    axis.set_ylabel(f"Volume change ({d.unit_text(data, 'volume')})")
    d.plain_y(axis)
    d.label_time(axis, "x", dated)
    d.legend_below(axis, -0.2)


SHOALS = (  # what the table calls them, their name, colour and line
    ("Ebb", "Ebb shoal", d.BLUE, "-"),
    ("Flood", "Flood shoal", d.ORANGE, "-"),
    ("L_Bypass", "Left bypass bar", d.GREEN, (0, (4, 2))),
    ("R_Bypass", "Right bypass bar", d.GREEN, "-"),
    ("L_Attach", "Left attachment bar", d.VERMILLION, (0, (4, 2))),
    ("R_Attach", "Right attachment bar", d.VERMILLION, "-"),
)
PATHS = (
    ("Right beach", ("Ebb", "R_Bypass", "R_Attach"), "-"),
    ("Left beach", ("Ebb", "L_Bypass", "L_Attach"), (0, (4, 2))),
)


@d.styled
def shoals_figure(data, structures, inlet: int = 0):
    """Shoals and bars of an inlet through time; below, how much of the sand that comes onto the ebb shoal they
    hand on to the beaches: each passes on the share that its volume has of its equilibrium volume."""
    if "inlet" not in data or data.sizes["inlet_record"] == 0:
        raise KelpError(f"{data.attrs['report']}: nothing to draw: the run has no inlet, or its table is empty")
    one = data.isel(inlet=inlet)
    moments, dated = d.time_values(data, "inlet_")
    period = f"{d.period_text(data)}{unfinished(data)}"
    figure, (shoals, share) = d.new_figure(
        7.2, data.attrs["title"], f"Shoals of {one['inlet'].item()}, {period}", 2, [1.7, 1]
    )
    for column, name, color, line in SHOALS:
        shoals.axhline(one[EQUILIBRIUM_VOLUMES[column]].item(), color=color, linewidth=0.8, zorder=2.2)
        shoals.plot(moments, one[column].values, color=color, linestyle=line, linewidth=1.8, label=name)
    shoals.plot([], [], color=d.GREY, linewidth=0.8, label="Equilibrium volumes")
    drawn = [name for pair in EQUILIBRIUM_VOLUMES.items() for name in pair]
    d.zero_in_view(shoals, np.concatenate([np.ravel(one[name].values) for name in drawn]))
    shoals.set_ylabel(f"Volume ({d.unit_text(data, 'volume')})")
    for name, path, line in PATHS:
        ratios = [one[column].values / one[EQUILIBRIUM_VOLUMES[column]].item() for column in path]
        share.plot(moments, np.prod(ratios, axis=0), color=d.BLACK, linestyle=line, linewidth=1.6, label=name)
    d.zero_in_view(share, np.concatenate([[1.0], *(curve.get_ydata() for curve in share.lines)]))
    share.set_title("Share of the sand coming onto the ebb shoal that is handed on to the beach")
    share.set_ylabel("Share")
    for axis in (shoals, share):
        d.plain_y(axis)
        if moments[0] < moments[-1]:
            axis.set_xlim(moments[0], moments[-1])
        d.label_time(axis, "x", dated)
    shoals.set_xlabel("")
    d.legend_below(shoals, -0.06)
    d.legend_below(share, -0.2)
    return figure


PICTURES = {
    "shoreline": shoreline_figure,
    "change": change_figure,
    "transport": transport_figure,
    "volume": volume_figure,
    "shoals": shoals_figure,
}
