"""What `pip install .` does: CMake builds the package and installs it into the wheel."""

import os
import re
import subprocess
import sys
from pathlib import Path

import numpy
from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

root = Path(__file__).resolve().parent
version = re.search(r"^    VERSION (\S+)$", (root / "CMakeLists.txt").read_text(), re.M).group(1)


class CMakeBuild(build_ext):
    def run(self):
        options = {
            "CMAKE_BUILD_TYPE": "Release",
            "Python3_EXECUTABLE": sys.executable,
            "Python3_NumPy_INCLUDE_DIR": numpy.get_include(),
            "ZELM_BUILD_EXAMPLES": "OFF",
            "ZELM_BUILD_PYTHON": "ON",
            "ZELM_BUILD_TESTS": "OFF",
            "ZELM_PYTHON_WHEEL": "ON",
        }
        definitions = [f"-D{name}={value}" for name, value in options.items()]
        prefix = Path(self.build_lib).resolve()
        for command in (
            ["-S", root, "-B", self.build_temp, *definitions],
            ["--build", self.build_temp, "--parallel", str(os.cpu_count())],
            ["--install", self.build_temp, "--component", "python", "--prefix", prefix],
        ):
            subprocess.run(["cmake", *command], check=True)


(root / "build").mkdir(exist_ok=True)
setup(
    version=version,
    # A module that is compiled with NumPy 1 does not load with NumPy 2.
    install_requires=["numpy>=1.23" + (",<2" if numpy.__version__.startswith("1.") else "")],
    packages=[],
    ext_modules=[Extension("zelm._zelm", [])],  # the wheel is not pure
    cmdclass={"build_ext": CMakeBuild},
    options={"egg_info": {"egg_base": "build"}},
)
