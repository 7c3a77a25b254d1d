"""`python3 -m kelptools` is the command `kelp`."""

import sys

from .cli import main

sys.exit(main())
