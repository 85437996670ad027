// NumPy's headers, and the tables of the generalized ufuncs that are made with them.
#ifndef ZELM_PYTHON_NUMPY_HPP
#define ZELM_PYTHON_NUMPY_HPP

#define PY_SSIZE_T_CLEAN
#include <Python.h>

#define NPY_NO_DEPRECATED_API NPY_1_22_API_VERSION
#define PY_ARRAY_UNIQUE_SYMBOL zelm_python_array_api
#define PY_UFUNC_UNIQUE_SYMBOL zelm_python_ufunc_api
#ifndef ZELM_PYTHON_IMPORTS_NUMPY
#define NO_IMPORT_ARRAY
#define NO_IMPORT_UFUNC
#endif
#include <numpy/arrayobject.h>
#include <numpy/ufuncobject.h>

namespace zelm_python {

// A generalized ufunc for float and double. `operands` has a letter for each: t for the element
// type, c for complex numbers of it, i for int.
struct Function {
    const char *name, *signature, *operands;
    int inputs;
    PyUFuncGenericFunction loops[2];
};

struct Functions {
    Function *first;
    int count;
};
Functions solvers();
Functions products();

} // namespace zelm_python

#endif
