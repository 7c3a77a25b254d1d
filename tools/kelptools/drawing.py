"""What the pictures share: colours, axes, the coast's structures."""

from __future__ import annotations

import matplotlib

matplotlib.use("Agg")

import matplotlib.dates as mdates  # noqa: E402
import numpy as np  # noqa: E402
from matplotlib.figure import Figure  # noqa: E402
from matplotlib.ticker import FuncFormatter, MaxNLocator  # noqa: E402

from .structures import Structure  # noqa: E402

# Colours that the colour-blind can tell apart (Okabe and Ito).
BLACK, ORANGE, SKY, GREEN = "#000000", "#E69F00", "#56B4E9", "#009E73"
BLUE, VERMILLION, PURPLE, GREY = "#0072B2", "#D55E00", "#CC79A7", "#7F7F7F"
SAND, WATER, INLET = "#EADBB5", "#E3F0F8", "#B9D9EC"
DIFFERENCES = "RdBu"  # red for sand lost, blue for sand gained
ADVANCE, RETREAT = BLUE, VERMILLION

WIDTH = 10.0  # inches
DOTS = 150  # an inch

STYLE = {
    "font.size": 10,
    "font.family": "DejaVu Sans",
    "axes.titlesize": 11,
    "axes.titleweight": "bold",
    "axes.titlelocation": "left",
    "axes.grid": True,
    "axes.axisbelow": True,
    "grid.color": "#DDDDDD",
    "grid.linewidth": 0.6,
    "axes.spines.top": False,
    "axes.spines.right": False,
    "legend.frameon": False,
    "legend.fontsize": 9,
    "svg.fonttype": "none",
    "axes.formatter.useoffset": False,
    "axes.formatter.limits": (-5, 6),
    "axes.formatter.use_mathtext": True,
}

UNITS = {"m3": "m³", "yd3": "yd³", "m": "m", "ft": "ft"}

SEAWALL_LINE = {"color": BLACK, "linewidth": 5.0, "solid_capstyle": "butt"}
GROIN_LINE = {"color": "#4D4D4D", "linewidth": 2.0, "solid_capstyle": "round"}
BREAKWATER_LINE = {"color": PURPLE, "linewidth": 4.0, "solid_capstyle": "butt"}
INLET_FILL = {"facecolor": INLET, "edgecolor": "#6C9DB8", "hatch": "////", "linewidth": 0.0, "alpha": 0.6}
LABELS = {"seawall": "Seawall", "groin": "Groin", "breakwater": "Detached breakwater", "inlet": "Inlet"}


def styled(function):
    """Draws with the style of these pictures, whatever the user's settings are."""

    def draw(*arguments, **named):
        with matplotlib.rc_context():
            matplotlib.rcdefaults()
            matplotlib.rcParams.update(STYLE)
            return function(*arguments, **named)

    draw.__name__, draw.__doc__ = function.__name__, function.__doc__
    return draw


def save(figure: Figure, path):
    """The format follows the name. Fonts and rasters are those of the style, so that it stands here too."""
    with matplotlib.rc_context():
        matplotlib.rcParams.update(STYLE)
        align_heading(figure)
        # No date in an SVG: the same run gives the same file.
        metadata = {"Date": None} if str(path).lower().endswith(".svg") else None
        figure.savefig(path, dpi=DOTS, metadata=metadata)


def new_figure(height: float, title: str, subtitle: str, rows: int = 1, ratios=None):
    """A figure of one column of axes that share the coast, with the run's title above."""
    figure = Figure(figsize=(WIDTH, height), constrained_layout=True)
    figure.get_layout_engine().set(h_pad=0.08, w_pad=0.08)
    axes = figure.subplots(rows, 1, squeeze=False, gridspec_kw={"height_ratios": ratios or [1] * rows})[:, 0]
    figure.suptitle(title, x=0.012, ha="left", fontsize=12, fontweight="bold")
    axes[0].set_title(subtitle, fontweight="normal", color="#333333", pad=8)
    return figure, list(axes)


def align_heading(figure: Figure):
    """The run's title begins where the axes begin."""
    figure.draw_without_rendering()
    if figure.texts and figure.axes:
        figure.texts[0].set_x(figure.axes[0].get_position().x0)


def unit_text(data, kind: str) -> str:
    """Unit of a length, a volume, a volume per length or a rate, as it stands on an axis."""
    length, volume = UNITS[data.attrs["length_unit"]], UNITS[data.attrs["volume_unit"]]
    return {
        "length": length,
        "volume": volume,
        "per_length": f"{volume} per {length}",
        "rate": f"{volume} per year",
    }[kind]


class Coast:
    """The alongshore axis: km for a long coast in metres, otherwise the run's own unit."""

    def __init__(self, data):
        unit = data.attrs["length_unit"]
        walls = data["x_wall"].values
        long = np.abs(walls).max() >= 10000
        self.factor, self.unit = (0.001, "km") if long and unit == "m" else (1.0, unit)
        self.walls = walls * self.factor
        self.centers = data["x_cell"].values * self.factor
        self.cells = self.centers.size

    @property
    def marker(self) -> dict:
        """Few cells are told apart by marks, many make a line."""
        return {"marker": "o", "markersize": 4} if self.cells <= 40 else {}

    def label(self, axis, cells_on_top: bool = False):
        axis.set_xlim(self.walls[0], self.walls[-1])
        axis.set_xlabel(f"Alongshore distance ({self.unit}), to the right looking seaward")
        axis.xaxis.set_major_formatter(plain_numbers())
        if cells_on_top:
            self._cell_axis(axis)

    def _cell_axis(self, axis):
        top = axis.secondary_xaxis("top")
        # Ticks stand in the middle of cells with round numbers.
        if self.cells <= 12:
            shown = np.arange(1, self.cells + 1)
        else:
            shown = MaxNLocator(10, steps=[1, 2, 5, 10], integer=True).tick_values(1, self.cells)
            shown = np.unique(np.clip(shown, 1, self.cells).astype(int))
            apart = np.diff(shown).max()
            keep = [n for n in shown if n % apart == 0]
            shown = np.array([1, *keep] if keep and keep[0] > 0.4 * apart else keep)
        top.set_xticks(self.centers[shown - 1], [str(n) for n in shown])
        top.set_xlabel("Cell", labelpad=3)
        top.tick_params(length=3, labelsize=8.5)



def plain_numbers():
    """1 234 567 rather than a power of ten; decimals only where they are needed."""

    def text(value, _place):
        if abs(value) < 1e-12:
            return "0"
        if abs(value) >= 1000:
            return f"{value:,.0f}".replace(",", "\u2009").replace("-", "\u2212")
        return f"{value:.6g}".replace("-", "\u2212")

    return FuncFormatter(text)


def plain_y(axis):
    axis.yaxis.set_major_formatter(plain_numbers())


def time_values(data, prefix: str = ""):
    """Times of the records for an axis, or their numbers where the dates cannot be turned into times."""
    times = data[f"{prefix}time"].values
    if times.size and np.isnat(times).any():
        return np.arange(1, times.size + 1, dtype=float), False
    return mdates.date2num(times), True


def label_time(axis, which, dated: bool):
    target = axis.xaxis if which == "x" else axis.yaxis
    if dated:
        low, high = sorted(target.get_view_interval())
        days = high - low
        # The locator takes the largest unit of which there are four.
        form = "%Y" if days >= 4 * 365 else "%Y-%m" if days >= 4 * 31 else "%Y-%m-%d" if days >= 4 else "%m-%d %H:%M"
        target.set_major_locator(mdates.AutoDateLocator(minticks=4, maxticks=9))
        target.set_major_formatter(mdates.DateFormatter(form))
        target.set_label_text("Date")
    else:
        target.set_major_locator(MaxNLocator(integer=True))
        target.set_label_text("Record")


def edges(values: np.ndarray, width_alone: float = 1.0) -> np.ndarray:
    """Borders half-way between values that never go backwards."""
    if values.size == 1:
        return np.array([values[0] - width_alone / 2, values[0] + width_alone / 2])
    middle = (values[:-1] + values[1:]) / 2
    return np.concatenate(([values[0]], middle, [values[-1]]))


def day_text(data, record: int) -> str:
    """The date of a record as a reader writes it."""
    date = int(data["date"].values[record])
    return f"{date // 10000:04d}-{date // 100 % 100:02d}-{date % 100:02d}"


def period_text(data) -> str:
    return f"{day_text(data, 0)} to {day_text(data, -1)}"


# Structures.


def draw_structures(axis, coast: Coast, structures: list[Structure], shore: np.ndarray):
    """Structures where they stand. `shore` is the most landward position of each cell: groins reach back to it."""
    seen = set()
    crowded = sum(one.kind == "groin" for one in structures) > 12

    def label(kind):
        first = kind not in seen
        seen.add(kind)
        return LABELS[kind] if first else "_" + kind

    for one in structures:
        x = one.x * coast.factor
        if one.kind == "inlet":
            axis.axvspan(x[0], x[-1], label=label("inlet"), zorder=0.8, **INLET_FILL)
            axis.annotate(
                one.name,
                ((x[0] + x[-1]) / 2, 1.0),
                xycoords=("data", "axes fraction"),
                xytext=(0, -3),
                textcoords="offset points",
                ha="center",
                va="top",
                fontsize=8.5,
                color="#1F4E69",
                bbox={"facecolor": "white", "alpha": 0.75, "edgecolor": "none", "pad": 1.0},
            )
        elif one.kind == "groin":
            beside = shore[max(0, one.first_wall - 2) : one.first_wall]
            base = min(np.nanmin(beside), one.y[0]) if np.isfinite(beside).any() else one.y[0]
            line = {**GROIN_LINE, "linewidth": 1.2} if crowded else GROIN_LINE
            mark = {"marker": "s", "markersize": 1 if crowded else 4, "markevery": [1]}
            axis.plot([x[0], x[0]], [base, one.y[0]], label=label("groin"), zorder=4, **line, **mark)
        else:
            line = SEAWALL_LINE if one.kind == "seawall" else BREAKWATER_LINE
            axis.plot(x, one.y, label=label(one.kind), zorder=4, **line)


def mark_structures(axis, coast: Coast, structures: list[Structure]):
    """Where structures stand along the coast, on axes that do not show positions across it; behind the data."""
    seen = set()
    across = axis.get_xaxis_transform()
    for one in structures:
        x = one.x * coast.factor
        name = LABELS[one.kind] if one.kind not in seen else "_" + one.kind
        seen.add(one.kind)
        if one.kind == "inlet":
            axis.axvspan(x[0], x[-1], label=name, zorder=0.8, **INLET_FILL)
        elif one.kind == "groin":
            axis.axvline(x[0], color=GROIN_LINE["color"], linewidth=0.9, linestyle=(0, (4, 2)), zorder=0.9, label=name)
        else:
            line = SEAWALL_LINE if one.kind == "seawall" else BREAKWATER_LINE
            height = 0.012 if one.kind == "seawall" else 0.988
            axis.plot(
                [x[0], x[-1]], [height] * 2, transform=across, zorder=4, label=name, **{**line, "linewidth": 5.0}
            )


def structure_strip(axis, coast: Coast, structures: list[Structure]):
    """A narrow strip below a time-distance picture: breakwaters at the sea's side, seawalls at the land's."""
    mark_structures(axis, coast, structures)
    for line in axis.lines:
        if line.get_label().strip("_") in (LABELS["groin"], "groin"):
            line.set(linestyle="-", linewidth=1.2)
        else:
            line.set_ydata([0.25 if line.get_color() == SEAWALL_LINE["color"] else 0.75] * 2)
    axis.set_ylim(0, 1)
    axis.set_yticks([])
    axis.set_facecolor("#F7F7F7")
    axis.grid(False)


def legend_below(axis, offset: float = -0.2):
    handles, labels = axis.get_legend_handles_labels()
    if not handles:
        return None
    lines = -(-len(handles) // 5)
    columns = -(-len(handles) // lines)
    return axis.legend(loc="upper center", bbox_to_anchor=(0.5, offset), ncol=columns, columnspacing=1.6)


def legend_above(axis, count: int):
    """The first entries beside the axes' title, where they hide nothing."""
    handles, labels = axis.get_legend_handles_labels()
    return axis.legend(
        handles[:count], labels[:count], loc="lower right", bbox_to_anchor=(1.0, 0.985), ncol=count, borderaxespad=0.2
    )


def fill_signed(axis, coast: Coast, values: np.ndarray, gained: str, lost: str):
    """Bars a cell wide, of one colour above zero and another below."""
    values = np.asarray(values, dtype=float)
    axis.stairs(np.where(values > 0, values, 0.0), coast.walls, fill=True, color=ADVANCE, label=gained, linewidth=0)
    axis.stairs(np.where(values < 0, values, 0.0), coast.walls, fill=True, color=RETREAT, label=lost, linewidth=0)
    axis.axhline(0, color=BLACK, linewidth=0.8)
    zero_in_view(axis, values)


def zero_in_view(axis, values: np.ndarray):
    finite = np.asarray(values, dtype=float)
    finite = finite[np.isfinite(finite)]
    low, high = (min(finite.min(), 0.0), max(finite.max(), 0.0)) if finite.size else (-1.0, 1.0)
    margin = 0.06 * (high - low) or 1.0
    axis.set_ylim(low - margin, high + margin)


def shoreline_limits(axis, arrays, structures):
    """Limits of positions across the shore, with what stands in the sea; never closer than a metre."""
    values = np.concatenate([np.ravel(array) for array in arrays] + [one.y for one in structures])
    values = values[np.isfinite(values)]
    low, high = (values.min(), values.max()) if values.size else (0.0, 1.0)
    margin = max(0.07 * (high - low), 0.5)
    axis.set_ylim(low - 1.6 * margin, high + 1.6 * margin)


def sea_and_land(axis):
    """Tells which way the sea lies."""
    for text, place, align in (("sea ↑", 0.985, "top"), ("land ↓", 0.015, "bottom")):
        axis.text(
            0.008, place, text, transform=axis.transAxes, ha="left", va=align,
            fontsize=8.5, style="italic", color="#666666", zorder=6,
        )  # fmt: skip


def close_plan(axis, coast):
    """What every plan of shorelines ends with, above a panel of their change."""
    coast.label(axis, cells_on_top=True)
    axis.set_xlabel("")
    axis.tick_params(labelbottom=False)
    sea_and_land(axis)
    legend_below(axis, -0.02)


def close_change(axis, coast, structures, label: str, title: str):
    """What every panel of change below a plan ends with: inlets and groins, labels, title, legend."""
    mark_structures(axis, coast, [one for one in structures if one.kind in ("inlet", "groin")])
    axis.set_ylabel(label)
    plain_y(axis)
    coast.label(axis)
    axis.set_title(title)
    legend_above(axis, 2)


def time_distance(data, structures, values: np.ndarray, title: str, subtitle: str, label: str, rows: int = 500):
    """Values of each cell through time, coloured about zero; where few cells hold far larger ones than all
    others, the colours leave those out. Below stands where the structures are."""
    coast = Coast(data)
    if structures:
        figure, (axis, strip) = new_figure(6.4, title, subtitle, 2, [1, 0.06])
    else:
        figure, (axis,) = new_figure(6.2, title, subtitle)
        strip = None
    moments, dated = time_values(data)
    kept = np.unique(np.linspace(0, moments.size - 1, min(rows, moments.size)).round().astype(int))
    values, moments = values[kept], moments[kept]
    sizes = np.abs(values[np.isfinite(values)])
    largest = sizes.max() if sizes.size else 0.0
    usual = np.quantile(sizes, 0.995) if sizes.size else 0.0
    limit = usual if largest > 1.5 * usual > 0 else largest
    limit = limit or 1.0
    mesh = axis.pcolormesh(
        coast.walls, edges(moments), np.ma.masked_invalid(values),
        cmap=DIFFERENCES, vmin=-limit, vmax=limit, shading="flat", rasterized=True,
    )  # fmt: skip
    axis.set_facecolor("#BBBBBB")
    axis.grid(False)
    bar = figure.colorbar(
        mesh, ax=axis, label=label, pad=0.015, aspect=30, extend="both" if largest > limit else "neither"
    )
    bar.ax.yaxis.labelpad = 8
    bar.ax.yaxis.set_major_formatter(plain_numbers())
    label_time(axis, "y", dated)
    coast.label(axis, cells_on_top=True)
    if strip is not None:
        axis.set_xlabel("")
        axis.tick_params(labelbottom=False)
        structure_strip(strip, coast, structures)
        coast.label(strip)
        legend_below(strip, -2.6)
    return figure
