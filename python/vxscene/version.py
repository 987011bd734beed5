"""The version of the package: that of the program which comes with it."""

from __future__ import annotations

import importlib.metadata

try:
    VERSION = importlib.metadata.version("vxscene")
except importlib.metadata.PackageNotFoundError:  # run from its sources
    VERSION = "unknown"
