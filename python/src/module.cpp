// The module zelm._zelm: the generalized ufuncs, and what the package asks of the libraries.

#define ZELM_PYTHON_IMPORTS_NUMPY
#include "numpy.hpp"

#include <zelcore.h>
#include <zelmsafe.h>

#include <initializer_list>
#include <limits.h>

namespace zelm_python {
namespace {

// NumPy keeps pointers to these.
constexpr int most_operands = 5, most_functions = 32;
char types[most_functions][2 * most_operands];

char type_number(char letter, bool is_double) {
    switch (letter) {
    case 't':
        return is_double ? NPY_DOUBLE : NPY_FLOAT;
    case 'c':
        return is_double ? NPY_CDOUBLE : NPY_CFLOAT;
    default:
        return NPY_INT;
    }
}

bool add_functions(PyObject *module, const Functions &functions, int &made) {
    static void *no_data[2] = {};
    for (int f = 0; f < functions.count; ++f, ++made) {
        Function &function = functions.first[f];
        int operands = 0;
        for (const char *letter = function.operands; *letter; ++letter)
            ++operands;
        if (made == most_functions || operands > most_operands) {
            PyErr_SetString(PyExc_SystemError, "the tables of types are too small");
            return false;
        }
        for (int i = 0; i < 2 * operands; ++i)
            types[made][i] = type_number(function.operands[i % operands], i >= operands);
        PyObject *ufunc = PyUFunc_FromFuncAndDataAndSignature(
            function.loops, no_data, types[made], 2, function.inputs, operands - function.inputs,
            PyUFunc_None, function.name, nullptr, 0, function.signature);
        if (!ufunc || PyModule_AddObject(module, function.name, ufunc) < 0) {
            Py_XDECREF(ufunc);
            return false;
        }
    }
    return true;
}

// first_failure(status, ignored): the number, in C order, of the first status that is neither Ok
// nor `ignored`, and -1 if there is none.
PyObject *first_failure(PyObject *, PyObject *const *args, Py_ssize_t count) {
    if (count != 2) {
        PyErr_SetString(PyExc_TypeError, "first_failure takes 2 arguments");
        return nullptr;
    }
    const long ignored = PyLong_AsLong(args[1]);
    if (ignored == -1 && PyErr_Occurred())
        return nullptr;
    if (!PyArray_Check(args[0])) { // the status of a single object
        const long status = PyLong_AsLong(args[0]);
        if (status == -1 && PyErr_Occurred())
            return nullptr;
        return PyLong_FromLong(status != zelStatusOk && status != ignored ? 0 : -1);
    }
    PyObject *array = PyArray_FROMANY(args[0], NPY_INT, 0, 0, NPY_ARRAY_CARRAY_RO);
    if (!array)
        return nullptr;
    const int *status = static_cast<int *>(PyArray_DATA(reinterpret_cast<PyArrayObject *>(array)));
    const npy_intp size = PyArray_SIZE(reinterpret_cast<PyArrayObject *>(array));
    npy_intp n = 0;
    while (n < size && (status[n] == zelStatusOk || status[n] == ignored))
        ++n;
    Py_DECREF(array);
    return PyLong_FromSsize_t(n < size ? n : -1);
}

// What direct() returns. A call with two arrays of float or double is one of the ufunc, every other
// call is one of the Python function: Python's own calls would cost a fifth of such a product.
bool is_real_array(PyObject *x) {
    if (!PyArray_CheckExact(x))
        return false;
    const int type = PyArray_TYPE(reinterpret_cast<PyArrayObject *>(x));
    return type == NPY_FLOAT || type == NPY_DOUBLE;
}
constexpr int most_direct = 3;
struct Direct {
    PyObject *ufunc, *function;
    PyMethodDef method;
} directs[most_direct];
template <int i>
PyObject *call_directly(PyObject *, PyObject *const *args, Py_ssize_t count, PyObject *names) {
    const bool plain = count == 2 && (!names || PyTuple_GET_SIZE(names) == 0) &&
                       is_real_array(args[0]) && is_real_array(args[1]);
    return PyObject_Vectorcall(plain ? directs[i].ufunc : directs[i].function, args,
                               static_cast<size_t>(count), names);
}
constexpr _PyCFunctionFastWithKeywords call_direct[most_direct] = {
    call_directly<0>, call_directly<1>, call_directly<2>};

// direct(number, ufunc, function, name, text, module): a function of this name and description.
PyObject *direct(PyObject *self, PyObject *args) {
    int i;
    PyObject *ufunc, *function, *name, *text, *module;
    if (!PyArg_ParseTuple(args, "iOOUUU:direct", &i, &ufunc, &function, &name, &text, &module))
        return nullptr;
    if (i < 0 || i >= most_direct || directs[i].ufunc) {
        PyErr_SetString(PyExc_ValueError, "direct: no such number, or taken");
        return nullptr;
    }
    const char *const name_bytes = PyUnicode_AsUTF8(name), *const text_bytes =
                                                               PyUnicode_AsUTF8(text);
    if (!name_bytes || !text_bytes)
        return nullptr;
    for (PyObject *kept : {ufunc, function, name, text}) // as long as the process
        Py_INCREF(kept);
    directs[i] = {ufunc,
                  function,
                  {name_bytes,
                   reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(call_direct[i])),
                   METH_FASTCALL | METH_KEYWORDS, text_bytes}};
    return PyCFunction_NewEx(&directs[i].method, self, module);
}

PyObject *set_num_threads(PyObject *, PyObject *n) {
    const long number = PyLong_AsLong(n); // TypeError, OverflowError
    if (number == -1 && PyErr_Occurred())
        return nullptr;
    if (number > INT_MAX || number < 0 || zelSetNumThreads(static_cast<int>(number)) != 0) {
        PyErr_Format(PyExc_ValueError, "the number of threads must be from 0 to %d, not %ld",
                     INT_MAX, number);
        return nullptr;
    }
    Py_RETURN_NONE;
}

PyObject *get_num_threads(PyObject *, PyObject *) { return PyLong_FromLong(ownGetNumThreads()); }

PyMethodDef methods[] = {
    {"first_failure", reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(first_failure)),
     METH_FASTCALL, nullptr},
    {"direct", direct, METH_VARARGS, nullptr},
    {"set_num_threads", set_num_threads, METH_O,
     "set_num_threads($module, n, /)\n--\n\n"
     "Set the number of threads that a call may use, for the whole process.\n\n"
     "0 withdraws an earlier setting: then it is that of the environment variable\n"
     "ZEL_NUM_THREADS, else that of the OpenMP runtime. Small calls use one thread\n"
     "whatever is set here. Results do not depend on the number."},
    {"get_num_threads", get_num_threads, METH_NOARGS,
     "get_num_threads($module, /)\n--\n\n"
     "The number of threads that a call may use. In a forked child it is 1."},
    {}};

struct Status {
    const char *name;
    int value;
    const char *text;
};
const Status statuses[] = {
    {"OK", zelStatusOk, "Success"},
    {"SINGULAR", zelStatusSingular, "Singular matrix"},
    {"NOT_POSITIVE_DEFINITE", zelStatusNotPositiveDefinite, "Matrix is not positive definite"},
    {"NOT_CONVERGED", zelStatusNotConverged, "Eigenvalues did not converge"},
    {"NOT_FINITE", zelmSafeNotFinite, "Array must not contain infs or NaNs"},
    {"OUT_OF_RANGE", zelmSafeOutOfRange, "Result does not fit the type"},
    {"SIZE_MISMATCH", zelStatusSizeMismatch, "Matrix has fewer rows than columns"},
    {"BAD_SIZE", zelStatusBadSize, "Array is too large"},
    {"NO_MEMORY", zelmSafeNoMemory, "No memory for scratch"},
};

// statuses: name -> (number, text)
bool add_statuses(PyObject *module) {
    PyObject *all = PyDict_New();
    for (const Status &status : statuses) {
        PyObject *entry = all ? Py_BuildValue("(is)", status.value, status.text) : nullptr;
        const bool added = entry && PyDict_SetItemString(all, status.name, entry) == 0;
        Py_XDECREF(entry);
        if (!added) {
            Py_XDECREF(all);
            return false;
        }
    }
    if (PyModule_AddObject(module, "statuses", all) == 0)
        return true;
    Py_DECREF(all);
    return false;
}

PyModuleDef definition = {
    PyModuleDef_HEAD_INIT, "_zelm", nullptr, -1, methods, nullptr, nullptr, nullptr, nullptr};

} // namespace
} // namespace zelm_python

PyMODINIT_FUNC PyInit__zelm() {
    import_array();
    import_umath();
    PyObject *module = PyModule_Create(&zelm_python::definition);
    int made = 0;
    if (module && zelm_python::add_functions(module, zelm_python::solvers(), made) &&
        zelm_python::add_functions(module, zelm_python::products(), made) &&
        zelm_python::add_statuses(module))
        return module;
    Py_XDECREF(module);
    return nullptr;
}
