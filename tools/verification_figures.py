"""The pictures of docs/verification.md, from the curves that the verification tests leave in a folder:
verification_figures.py CURVES PICTURES. scripts/figures calls it."""

from __future__ import annotations

import sys
from pathlib import Path

import pandas as pd

from kelptools import drawing as d

MARKS = {100: ("o", d.VERMILLION), 50: ("s", d.ORANGE), 25: (".", d.BLUE)}

# Published criteria for the response behind a detached breakwater: author, and the range of length over distance of
# minimal response, of a salient and of a tombolo; None is left open. The end of the axis stands for no upper limit.
END = 2.8
CRITERIA = [
    ("Inman and Frautschy 1966", (0, 0.33), None, None),
    ("Noble 1978", (0, 0.17), None, None),
    ("Gourlay 1981", None, (0.4, 0.5), (0.67, END)),
    ("Nir 1982", (0, 0.5), None, None),
    ("Shore Protection Manual 1984", None, (0, 1.0), (2.0, END)),
    ("Dally and Pope 1986", (0, 0.125), (0.5, 0.67), (1.5, END)),
    ("Suh and Dalrymple 1987", None, (0, 1.0), (1.0, END)),
    ("Ahrens and Cox 1990", (0, 0.27), (0.8, 1.5), (2.5, END)),
]
RESPONSES = [("Minimal or none", d.GREY), ("Salient", d.SKY), ("Tombolo", d.ORANGE)]


@d.styled
def groin_accretion(curves: Path):
    data = pd.read_csv(curves / "groin_accretion.csv")
    figure, (plan, error) = d.new_figure(
        7.0,
        "Accretion at a long groin: the model and the exact solution",
        "Updrift side after 180 days, the wave breaks at 2.4 degrees, contour held straight",
        2,
        [1.5, 1],
    )
    finest = data[data.DX == data.DX.min()]
    front = finest.exact.iloc[0]
    plan.plot(finest.x, finest.exact, color=d.BLACK, linewidth=1.6, label="Exact (Pelnard-Considère 1956)", zorder=2)
    for DX, part in sorted(data.groupby("DX"), reverse=True):
        mark, color = MARKS[int(DX)]
        style = {"marker": mark, "markersize": 5 if mark != "." else 4, "color": color, "linewidth": 0.8}
        plan.plot(part.x, part.model, label=f"Model, cells of {DX:.0f} m", zorder=3, **style)
        error.plot(part.x, 100 * (part.model - part.exact) / front, **style)
    plan.set_ylabel("Advance (m)")
    plan.tick_params(labelbottom=False)
    plan.legend()
    error.axhline(0, color=d.BLACK, linewidth=0.8)
    error.set_ylabel("Model less exact\n(% of the advance at the groin)")
    error.set_xlabel("Distance from the groin (m)")
    for axis in (plan, error):
        axis.set_xlim(0, 2000)
    return figure


@d.styled
def salients(curves: Path):
    curve = pd.read_csv(curves / "salients.csv")
    shapes = pd.read_csv(curves / "salient_shapes.csv")
    figure, (plan, response, published) = d.new_figure(
        10.0,
        "Response behind a detached breakwater of length L at the distance S",
        "Shorelines after eight years of 1 m waves from 15 to 45 degrees on either side",
        3,
        [1.1, 1, 1],
    )
    colors = [d.BLACK, d.BLUE, d.GREEN, d.ORANGE, d.VERMILLION, d.PURPLE]
    for color, (ratio, part) in zip(colors, shapes.groupby("ratio"), strict=True):
        plan.plot(part.x, part.advance, color=color, linewidth=1.4, label=f"L/S {ratio:.2g}")
        plan.plot([-ratio / 2, ratio / 2], [1.03 + 0.025 * len(plan.lines)] * 2, color=color, linewidth=3)
    plan.set_xlabel("Distance along the coast over S")
    plan.set_ylabel("Advance over S")
    plan.legend(loc="center left")
    response.plot(curve.ratio, curve.salient, "o-", color=d.BLUE, linewidth=1.6, label="Model")
    response.axhline(1, color=d.PURPLE, linewidth=1, linestyle=(0, (4, 2)), label="The structure")
    response.set_ylabel("Largest advance over S")
    response.set_ylim(0, 1.1)
    response.tick_params(labelbottom=False)
    response.legend(loc="lower right")
    for row, (author, *ranges) in enumerate(reversed(CRITERIA)):
        for one, (_, color) in zip(ranges, RESPONSES, strict=True):
            if one:
                published.barh(row, one[1] - one[0], left=one[0], color=color, height=0.6)
    for name, color in RESPONSES:
        published.barh(0, 0, color=color, label=name)
    published.set_yticks(range(len(CRITERIA)), [author for author, *_ in reversed(CRITERIA)])
    published.set_title("Published criteria")
    published.set_xlabel("L/S")
    published.grid(axis="y", visible=False)
    d.legend_below(published, -0.25)
    for axis in (response, published):
        axis.set_xlim(0, END)
    return figure


def main() -> int:
    curves, pictures = Path(sys.argv[1]), Path(sys.argv[2])
    for draw in (groin_accretion, salients):
        path = pictures / f"{draw.__name__}.png"
        d.save(draw(curves), path)
        print(path)
    return 0


if __name__ == "__main__":
    sys.exit(main())
