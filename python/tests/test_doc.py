"""What help() shows, and what type checkers are told."""

import ast
import doctest
import inspect
import pathlib
import pickle
import unittest

import numpy
import zelm


class Descriptions(unittest.TestCase):
    def test_examples(self):
        failed, tried = doctest.testmod(zelm, extraglobs={"zelm": zelm, "numpy": numpy})
        self.assertEqual(failed, 0)
        self.assertGreater(tried, 20)

    def test_everything_is_described(self):
        for name in zelm.__all__:
            self.assertTrue(inspect.getdoc(getattr(zelm, name)), name)
        self.assertEqual(str(inspect.signature(zelm.matmul)), "(x1, x2, /, out=None, **keywords)")
        self.assertNotIn("<options>", zelm.inv.__doc__)
        self.assertIs(pickle.loads(pickle.dumps(zelm.matmul)), zelm.matmul)

    def test_stubs_name_what_there_is(self):
        folder = pathlib.Path(zelm.__file__).parent
        self.assertTrue((folder / "py.typed").exists())
        for module, file in ((zelm, "__init__.pyi"), (zelm._zelm, "_zelm.pyi")):
            functions, others = {}, set()
            for node in ast.parse((folder / file).read_text()).body:
                if isinstance(node, ast.FunctionDef):
                    functions[node.name] = node.args
                elif isinstance(node, ast.ClassDef):
                    others.add(node.name)
                elif isinstance(node, ast.AnnAssign) and not node.target.id.startswith("_"):
                    others.add(node.target.id)
            public = {name for name in dir(module) if not name.startswith("_")}
            if module is zelm:
                public = set(zelm.__all__) - {"LinAlgError", "set_num_threads", "get_num_threads"}
            self.assertEqual(others | set(functions), public)
            for name, told in functions.items() if module is zelm else ():
                names = {x.arg for x in told.posonlyargs + told.args + told.kwonlyargs}
                for parameter in inspect.signature(getattr(module, name)).parameters.values():
                    if parameter.kind != parameter.VAR_KEYWORD:
                        self.assertIn(parameter.name, names, name)


if __name__ == "__main__":
    unittest.main()
