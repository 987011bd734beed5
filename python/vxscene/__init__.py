"""The render jobs of Houdini scene files, without Houdini.

    import vxscene

    scene = vxscene.load("shot010.hip")
    for job in scene.jobs:
        print(job.driver, job.frames, job.output)

The work is done by the program vxscene, which this package runs and talks to: a scene that is broken never takes the
interpreter along. All functions may be used from several threads.
"""

from .differences import Diff, diff
from .errors import FormatError, ProgramError, ProgramNotFound, SceneError, VxsceneError, VxsceneWarning
from .exporting import export
from .program import program_path
from .scanning import scan
from .scene import Explanation, Job, Scene, load
from .version import VERSION as __version__

__all__ = [
    "Diff",
    "Explanation",
    "FormatError",
    "Job",
    "ProgramError",
    "ProgramNotFound",
    "Scene",
    "SceneError",
    "VxsceneError",
    "VxsceneWarning",
    "__version__",
    "diff",
    "export",
    "load",
    "program_path",
    "scan",
]
