// What the files of the extension module share. It converts between Python's values and those of the C interface.
#pragma once

#define PY_SSIZE_T_CLEAN
#define Py_LIMITED_API 0x030a0000
#include <Python.h>

#include "bindings/c/include/vantro_c.h"

// texts.c

/// A Python text as an argument of the C interface. It is valid as long as the Python object.
typedef struct TextArgument {
    vantro_text text;
    PyObject* encoded;  ///< its UTF-16 form if it has none in UTF-8 (a surrogate alone); else null
} TextArgument;

/// Returns 0, or -1 with a Python exception set. `what` names the argument in the exception.
int text_argument(PyObject* object, const char* what, TextArgument* argument);
void text_argument_free(TextArgument* argument);

/// Several texts, as the functions that take a list expect them.
typedef struct TextArguments {
    PyObject* entries;  ///< a tuple that keeps the Python texts
    Py_ssize_t count;
    TextArgument* arguments;
    vantro_text* texts;
} TextArguments;

/// The same for the texts of a sequence.
int text_arguments(PyObject* sequence, const char* what, TextArguments* list);
void text_arguments_free(TextArguments* list);

int prepare_texts(PyObject* types);

/// New Python texts.
PyObject* python_text(vantro_view view);
PyObject* python_string(vantro_string* string);  ///< frees the string

/// Raises an error, a new reference that is taken over. Returns null.
PyObject* raise_error(PyObject* error);

/// Sets the last failure of this thread as a Python exception. Returns null.
PyObject* raise_last_failure(void);

/// A new VantroError with this number and this description, which is a new reference and is taken over.
PyObject* new_error(int32_t number, PyObject* description);

// values.c

/// The collection with the entries of a Python mapping; null for None. Returns 0, or -1 with a Python exception set.
int collection_from(PyObject* mapping, vantro_collection** collection);

/// A new dictionary with the entries of the collection in their order.
PyObject* dictionary_from(const vantro_collection* collection);

// profiles.c

int prepare_profiles(PyObject* types);

/// The Python object of a profile, which owns the profile.
PyObject* python_profile(vantro_profile* profile);

PyObject* core_elements(PyObject* module, PyObject* arguments);
PyObject* core_families(PyObject* module, PyObject* unused);

// displays.c and objects.c

PyObject* core_parse(PyObject* module, PyObject* display);
PyObject* core_parse_all(PyObject* module, PyObject* arguments);
extern PyMethodDef object_functions[];
