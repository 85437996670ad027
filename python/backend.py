"""setuptools as a build backend that asks nothing of the network.

pip builds in an environment that hides what is installed. Here setuptools, wheel and NumPy are
taken from outside of it wherever they are; pip downloads only those that are not.
"""

import importlib.util
import os
import subprocess
import sys

_needed = ("setuptools", "wheel", "numpy")


def _outside():
    environment = {k: v for k, v in os.environ.items() if k != "PYTHONPATH"}
    paths = subprocess.run(
        [sys.executable, "-c", "import sys; print(*sys.path, sep='\\n')"],
        env=environment, check=True, capture_output=True, text=True,
    ).stdout.splitlines()
    return [path for path in paths if path and path not in sys.path]


sys.path += _outside()


def get_requires_for_build_wheel(config_settings=None):
    return [name for name in _needed if importlib.util.find_spec(name) is None]


def prepare_metadata_for_build_wheel(directory, config_settings=None):
    from setuptools import build_meta

    return build_meta.prepare_metadata_for_build_wheel(directory, config_settings)


def build_wheel(directory, config_settings=None, metadata_directory=None):
    from setuptools import build_meta

    return build_meta.build_wheel(directory, config_settings, metadata_directory)


get_requires_for_build_sdist = get_requires_for_build_wheel


def build_sdist(directory, config_settings=None):
    from setuptools import build_meta

    return build_meta.build_sdist(directory, config_settings)
