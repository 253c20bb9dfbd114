"""Builds the core with CMake, of the tree that this folder is part of, so that `pip install .` needs
no more than the packages of packages.txt."""

import pathlib
import subprocess

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

TREE = pathlib.Path(__file__).resolve().parents[1]
LIBRARIES = ("libdesignspec.so.1", "libroadcheck.so.1")


class BuildCore(build_ext):
    """The libraries stand beside the module, which finds them there."""

    def build_extension(self, ext: Extension) -> None:
        target = pathlib.Path(self.get_ext_fullpath(ext.name)).resolve()
        # As deep as the other build folders: the compiler cache knows files by their way from there.
        build = TREE / "build" / "pip"
        options = ["-DCMAKE_BUILD_TYPE=Release", "-DDESIGNSPEC_GUI=OFF", "-DDESIGNSPEC_TESTS=OFF"]
        options.append("-DDESIGNSPEC_BENCH=OFF")
        subprocess.run(["cmake", "-G", "Ninja", "-S", TREE, "-B", build, *options], check=True)
        subprocess.run(["cmake", "--build", build, "--target", "designspec_python"], check=True)
        target.parent.mkdir(parents=True, exist_ok=True)
        (made,) = (build / "python" / "designspec").glob("_designspec*.so")
        self.copy_file(str(made), str(target))
        for library in LIBRARIES:
            self.copy_file(str((build / "bin" / library).resolve()), str(target.parent / library))


setup(ext_modules=[Extension("designspec._designspec", sources=[])], cmdclass={"build_ext": BuildCore})
