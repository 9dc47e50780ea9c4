// Python's dictionaries and the library's collections.
#include "core.h"

static int raise_unless_stored(int32_t number) {
    if (number == 0) return 0;
    raise_last_failure();
    return -1;
}

static int set_integer(vantro_collection* collection, vantro_text key, PyObject* value) {
    const long number = PyLong_AsLong(value);
    if (number == -1 && PyErr_Occurred()) return -1;
    if (number < INT16_MIN || number > INT16_MAX) {
        PyErr_Format(PyExc_OverflowError, "%ld does not fit in 16 bits", number);
        return -1;
    }
    return raise_unless_stored(vantro_collection_set_integer(collection, key, (int16_t)number));
}

static int set_text(vantro_collection* collection, vantro_text key, PyObject* value) {
    TextArgument text;
    if (text_argument(value, "the value", &text) != 0) return -1;
    const int status = raise_unless_stored(vantro_collection_set_text(collection, key, text.text));
    text_argument_free(&text);
    return status;
}

static int set_list(vantro_collection* collection, vantro_text key, PyObject* value) {
    TextArguments list;
    if (text_arguments(value, "an entry of the list", &list) != 0) return -1;
    const int status = raise_unless_stored(vantro_collection_set_list(collection, key, list.texts, (size_t)list.count));
    text_arguments_free(&list);
    return status;
}

static int set_value(vantro_collection* collection, vantro_text key, PyObject* value) {
    // A bool is an int, too.
    if (PyBool_Check(value))
        return raise_unless_stored(vantro_collection_set_boolean(collection, key, value == Py_True));
    if (PyLong_Check(value)) return set_integer(collection, key, value);
    if (PyUnicode_Check(value)) return set_text(collection, key, value);
    if (PyList_Check(value) || PyTuple_Check(value)) return set_list(collection, key, value);
    PyErr_SetString(PyExc_TypeError, "a value is a bool, an int, a str, or a list of str");
    return -1;
}

static int set_item(vantro_collection* collection, PyObject* item) {
    if (!PyTuple_Check(item) || PyTuple_Size(item) != 2) {
        PyErr_SetString(PyExc_TypeError, "an item of the mapping is no pair of a key and a value");
        return -1;
    }
    TextArgument key;
    if (text_argument(PyTuple_GetItem(item, 0), "the key", &key) != 0) return -1;
    const int status = set_value(collection, key.text, PyTuple_GetItem(item, 1));
    text_argument_free(&key);
    return status;
}

int collection_from(PyObject* mapping, vantro_collection** collection) {
    *collection = NULL;
    if (mapping == Py_None) return 0;
    PyObject* items = PyMapping_Items(mapping);
    if (items == NULL) return -1;
    int status = raise_unless_stored(vantro_collection_new(collection));
    const Py_ssize_t count = PyList_Size(items);
    for (Py_ssize_t index = 0; status == 0 && index < count; ++index) {
        status = set_item(*collection, PyList_GetItem(items, index));
    }
    Py_DECREF(items);
    if (status != 0) {
        vantro_collection_free(*collection);
        *collection = NULL;
    }
    return status;
}

static PyObject* list_at(const vantro_collection* collection, size_t entry) {
    const size_t size = vantro_collection_list_size(collection, entry);
    PyObject* list = PyList_New((Py_ssize_t)size);
    for (size_t index = 0; list != NULL && index < size; ++index) {
        PyObject* text = python_text(vantro_collection_list_entry(collection, entry, index));
        if (text == NULL || PyList_SetItem(list, (Py_ssize_t)index, text) != 0) Py_CLEAR(list);
    }
    return list;
}

static PyObject* value_at(const vantro_collection* collection, size_t entry) {
    switch (vantro_collection_kind(collection, entry)) {
        case VANTRO_KIND_BOOLEAN: return PyBool_FromLong(vantro_collection_boolean(collection, entry));
        case VANTRO_KIND_INTEGER: return PyLong_FromLong(vantro_collection_integer(collection, entry));
        case VANTRO_KIND_TEXT: return python_text(vantro_collection_text(collection, entry));
        case VANTRO_KIND_LIST: return list_at(collection, entry);
        default: return PyErr_Format(PyExc_SystemError, "a value of an unknown kind");
    }
}

PyObject* dictionary_from(const vantro_collection* collection) {
    PyObject* dictionary = PyDict_New();
    const size_t size = vantro_collection_size(collection);
    for (size_t entry = 0; dictionary != NULL && entry < size; ++entry) {
        PyObject* key = python_text(vantro_collection_key(collection, entry));
        PyObject* value = value_at(collection, entry);
        if (key == NULL || value == NULL || PyDict_SetItem(dictionary, key, value) != 0) Py_CLEAR(dictionary);
        Py_XDECREF(key);
        Py_XDECREF(value);
    }
    return dictionary;
}
