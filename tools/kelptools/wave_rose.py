"""The wave rose: from where the waves come, how often and how high, about the shore."""

from __future__ import annotations

import numpy as np
from matplotlib import colormaps
from matplotlib.figure import Figure
from matplotlib.patches import Patch

from .drawing import BLACK, SAND, VERMILLION, styled
from .wave_input import show_time
from .wave_series import Series, calm

SECTOR = 10.0  # degrees
CLASSES_MAX = 6
RING_STEPS = (0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0, 20.0)
CLASS_WIDTHS = (0.1, 0.2, 0.25, 0.5, 1.0, 2.0, 2.5, 5.0, 10.0, 20.0)
COMPASS = ("N", "NE", "E", "SE", "S", "SW", "W", "NW")


def height_classes(heights: np.ndarray) -> np.ndarray:
    """Lower ends of classes of a round width; the last one is open."""
    usual = np.quantile(heights, 0.995) if heights.size else 1.0
    width = next((width for width in CLASS_WIDTHS if usual <= width * CLASSES_MAX), CLASS_WIDTHS[-1])
    return np.arange(0, max(1, min(CLASSES_MAX, int(np.ceil(usual / width - 1e-9))))) * width


def rose_table(waves, classes: np.ndarray) -> np.ndarray:
    """Number of waves of each height class and sector; sectors are centred on 0, 10, 20 ... degrees."""
    sectors = round(360 / SECTOR)
    table = np.zeros((classes.size, sectors))
    for height, _, direction in waves:
        kind = max(0, int(np.searchsorted(classes, height, side="right")) - 1)
        table[kind, int(((direction + SECTOR / 2) % 360.0) // SECTOR) % sectors] += 1
    return table


def rings(top: float) -> np.ndarray:
    """Round percentages, the outermost one clear of the rim."""
    step = next((step for step in RING_STEPS if top <= 5 * step), RING_STEPS[-1])
    return np.arange(step, 0.93 * top, step)


@styled
def wave_rose(series: Series) -> Figure:
    known = [wave for wave in series.waves if wave]
    moving = [wave for wave in known if not calm(wave)]
    classes = height_classes(np.array([height for height, _, _ in moving]))
    share = rose_table(moving, classes) * (100.0 / max(1, len(known)))

    figure = Figure(figsize=(8.2, 7.6))
    axes = figure.add_axes([0.06, 0.07, 0.66, 0.76], projection="polar")
    axes.set_theta_zero_location("N")
    axes.set_theta_direction(-1)
    axes.set_xticks(np.radians(np.arange(0, 360, 45)), COMPASS, fontsize=11)
    centres = np.radians(np.arange(share.shape[1]) * SECTOR)
    top = np.maximum(share.sum(axis=0).max(initial=0.0), 0.5) * 1.08

    colours = colormaps["viridis_r"](np.linspace(0.02, 1.0, max(2, classes.size)))
    bottom = np.zeros(share.shape[1])
    bars = []
    for kind, lower in enumerate(classes):
        label = f"{lower:g} to {classes[kind + 1]:g}" if kind + 1 < classes.size else f"{lower:g} and above"
        bars.append(
            axes.bar(
                centres, share[kind], width=np.radians(SECTOR * 0.9), bottom=bottom, color=colours[kind],
                edgecolor="#444444", linewidth=0.4, label=label, zorder=3,
            )
        )  # fmt: skip
        bottom += share[kind]

    normal = np.radians(series.normal)
    land = np.linspace(normal + np.pi / 2, normal + 3 * np.pi / 2, 91)
    axes.fill_between(land, 0, top, color=SAND, zorder=0.5, linewidth=0)
    for side in (-np.pi / 2, np.pi / 2):
        axes.plot([normal + side] * 2, [0, top], color=BLACK, linewidth=2.0, zorder=4)
    axes.plot([normal, normal], [0, top], color=VERMILLION, linewidth=1.6, linestyle=(0, (5, 3)), zorder=4)
    axes.set_ylim(0, top)
    # Percentages stand on the land side, where few bars reach.
    axes.set_rlabel_position((series.normal + 180.0) % 360.0)
    axes.set_rgrids(rings(top), [f"{value:g} %" for value in rings(top)])
    axes.tick_params(axis="y", labelsize=9, labelcolor="#333333")
    axes.grid(color="#BBBBBB", linewidth=0.6)

    times = series.times
    figure.text(0.06, 0.965, "Wave rose: where the waves come from", fontsize=13, fontweight="bold", va="top")
    missing = len(times) - len(known)
    words = [
        f"{show_time(times[0])} to {show_time(times[-1])}, a record every {series.hours:g} h",
        f"Share of the {len(known)} records with data; {len(known) - len(moving)} of them calm; {missing} without data",
    ]
    if series.rows.place:
        words[0] += "; " + ", ".join(series.rows.place.split(", ")[:2])
    figure.text(0.06, 0.93, "\n".join(words), fontsize=9.5, color="#333333", va="top", linespacing=1.5)
    handles = [bar.patches[0] for bar in bars][::-1]
    labels = [bar.get_label() for bar in bars][::-1]
    figure.legend(
        handles, labels, title="Height\n(unit of the wave file)", loc="upper left", bbox_to_anchor=(0.765, 0.80),
        alignment="left",
    )  # fmt: skip
    signs = [axes.lines[-1], axes.lines[0], Patch(facecolor=SAND)]
    figure.legend(
        signs, [f"shore normal, {series.normal:g}°", "line of the shore", "land side: waves\nfrom here are calm"],
        loc="lower left", bbox_to_anchor=(0.765, 0.10),
    )  # fmt: skip
    return figure
