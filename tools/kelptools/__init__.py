"""Companion tools of KelpRun: read a run, picture it, compare it, hand it on.

    import kelptools
    run = kelptools.open_run("run.prt")     # an xarray.Dataset
"""

from .configuration import Configuration, read_configuration
from .errors import KelpError, KelpWarning
from .run import open_run

__version__ = "1.0"
__all__ = ["Configuration", "KelpError", "KelpWarning", "open_run", "read_configuration"]
