"""Frames of the shoreline in motion."""

from __future__ import annotations

import numpy as np
from PIL import Image

from . import drawing as d
from .pictures import extremes, need, unfinished

DOTS = 100
LAST_FRAME_SECONDS = 2.0


class Scene:
    """A figure whose `show` moves the shoreline to that of a record."""

    @d.styled
    def __init__(self, data, structures):
        need(data, "slo")
        self.data, self.coast = data, d.Coast(data)
        shore = data["slo"].values
        landward, seaward = extremes(shore)
        self.figure, (axis,) = d.new_figure(4.6, data.attrs["title"], "Shoreline")
        self.axis = axis
        axis.set_facecolor(d.WATER)
        axis.grid(False)
        (self.first,) = axis.plot(
            self.coast.centers, shore[0], color=d.GREY, linewidth=1.4, linestyle=(0, (4, 2)), label="Initial", zorder=3
        )
        (self.line,) = axis.plot(self.coast.centers, shore[0], color=d.BLUE, linewidth=1.8, label="Shoreline", zorder=5)
        d.draw_structures(axis, self.coast, structures, landward)
        d.shoreline_limits(axis, [landward, seaward], structures)
        self.bottom = axis.get_ylim()[0]
        self.land = None
        axis.set_ylabel(f"Position from the baseline ({d.unit_text(data, 'length')})")
        d.plain_y(axis)
        self.coast.label(axis)
        d.sea_and_land(axis)
        d.legend_below(axis, -0.16)
        self.show(0)
        # The layout of the first frame is that of all.
        d.align_heading(self.figure)
        self.figure.set_layout_engine("none")

    def show(self, record: int):
        shore = self.data["slo"].values[record]
        self.line.set_ydata(shore)
        if self.land is not None:
            self.land.remove()
        with np.errstate(invalid="ignore"):
            # The land reaches to the outer walls of the first and the last cell.
            along = np.concatenate((self.coast.walls[:1], self.coast.centers, self.coast.walls[-1:]))
            across = np.concatenate((shore[:1], shore, shore[-1:]))
            self.land = self.axis.fill_between(along, self.bottom, across, color=d.SAND, linewidth=0, zorder=0.5)
        last = self.data.sizes["record"] - 1
        end = unfinished(self.data) if record == last else ""
        self.axis.set_title(
            f"Shoreline, {d.day_text(self.data, record)}{end}", loc="left", fontweight="normal", color="#333333", pad=8
        )


def frame_records(records: int, frames: int) -> np.ndarray:
    """First and last record, and as many between them as there may be."""
    return np.unique(np.linspace(0, records - 1, min(frames, records)).round().astype(int))


def write_animation(data, structures, path, fps: float, frames: int):
    scene = Scene(data, structures)
    images = []
    for record in frame_records(data.sizes["record"], frames):
        scene.show(int(record))
        images.append(_image(scene.figure))
    # All frames share the colours of one that has them all, so that nothing flickers.
    palette = images[-1].quantize(colors=128, method=Image.Quantize.MEDIANCUT)
    images = [image.quantize(palette=palette, dither=Image.Dither.NONE) for image in images]
    durations = [round(1000 / fps)] * len(images)
    durations[-1] = max(durations[-1], round(1000 * LAST_FRAME_SECONDS))
    images[0].save(path, save_all=True, append_images=images[1:], duration=durations, loop=0, optimize=False)


@d.styled
def _image(figure) -> Image.Image:
    from matplotlib.backends.backend_agg import FigureCanvasAgg

    figure.set_dpi(DOTS)
    canvas = FigureCanvasAgg(figure)
    canvas.draw()
    return Image.fromarray(np.asarray(canvas.buffer_rgba())[:, :, :3].copy())
