// The extension module vantro_profile._core. The types that it makes are in vantro_profile/_types.py.
#include "core.h"

static PyMethodDef profile_functions[] = {
    {"parse", core_parse, METH_O, NULL},
    {"parse_all", core_parse_all, METH_VARARGS, NULL},
    {"elements", core_elements, METH_VARARGS, NULL},
    {"families", core_families, METH_NOARGS, NULL},
    {NULL, NULL, 0, NULL},
};

static struct PyModuleDef definition = {
    PyModuleDef_HEAD_INIT, "vantro_profile._core", NULL, -1, profile_functions, NULL, NULL, NULL, NULL,
};

PyMODINIT_FUNC PyInit__core(void);
PyMODINIT_FUNC PyInit__core(void) {
    PyObject* const types = PyImport_ImportModule("vantro_profile._types");
    if (types == NULL) return NULL;
    const int status = prepare_texts(types) == 0 ? prepare_profiles(types) : -1;
    Py_DECREF(types);
    PyObject* const module = status == 0 ? PyModule_Create(&definition) : NULL;
    if (module == NULL) return NULL;
    if (PyModule_AddFunctions(module, object_functions) != 0 ||
        PyModule_AddStringConstant(module, "library_version", vantro_library_version()) != 0) {
        Py_DECREF(module);
        return NULL;
    }
    return module;
}
