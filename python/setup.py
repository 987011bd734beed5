"""Puts what only scripts/package knows into the package: the version, and the program in a wheel that brings it along."""

import os
import pathlib
import re
import shutil

from setuptools import setup
from setuptools.command.build_py import build_py
from wheel.bdist_wheel import bdist_wheel

# The folder with the installed program, as `bin` and `lib`, and the platform that it runs on; neither: Python alone.
PROGRAM, PLATFORM = os.environ.get("VXSCENE_PREFIX"), os.environ.get("VXSCENE_PLATFORM", "any")


def version():
    described = pathlib.Path(__file__).resolve().parent.parent / "CMakeLists.txt"
    return re.search(r"project\(\S+ VERSION ([\d.]+)", described.read_text())[1]


class BuildWithProgram(build_py):
    def run(self):
        super().run()
        if PROGRAM:
            shutil.copytree(PROGRAM, pathlib.Path(self.build_lib, "vxscene/program"), symlinks=False)


class WheelForEveryPython(bdist_wheel):
    def get_tag(self):
        return "py3", "none", PLATFORM


setup(version=version(), cmdclass={"build_py": BuildWithProgram, "bdist_wheel": WheelForEveryPython})
