// The classes. A handle is a capsule that contains the object. The interpreter's lock is kept during a call, so that
// two threads never use an object at the same time.
#include "core.h"

static const char object_name[] = "vantro_object";

static void free_object(PyObject* capsule) { vantro_object_free(PyCapsule_GetPointer(capsule, object_name)); }

static vantro_object* object_of(PyObject* capsule) { return PyCapsule_GetPointer(capsule, object_name); }

static PyObject* class_names(PyObject* module, PyObject* unused) {
    (void)module;
    (void)unused;
    PyObject* names = PyTuple_New((Py_ssize_t)vantro_class_count());
    for (size_t index = 0; names != NULL && index < vantro_class_count(); ++index) {
        PyObject* name = python_text(vantro_class_name(index));
        if (name == NULL || PyTuple_SetItem(names, (Py_ssize_t)index, name) != 0) Py_CLEAR(names);
    }
    return names;
}

static PyObject* new_object(PyObject* module, PyObject* name) {
    (void)module;
    TextArgument text;
    if (text_argument(name, "the name of the class", &text) != 0) return NULL;
    vantro_object* object = NULL;
    const int32_t number = vantro_object_new(text.text, &object);
    text_argument_free(&text);
    if (number != 0) return raise_last_failure();
    PyObject* capsule = PyCapsule_New(object, object_name, free_object);
    if (capsule == NULL) vantro_object_free(object);
    return capsule;
}

/// The screen in a Python text, which may consist of lines; null with a Python exception set.
static vantro_string* screen_of(PyObject* lines) {
    TextArgument text;
    if (text_argument(lines, "the screen", &text) != 0) return NULL;
    vantro_string* screen = NULL;
    if (vantro_screen(text.text, &screen) != 0) raise_last_failure();
    text_argument_free(&text);
    return screen;
}

static vantro_text view_of(const vantro_string* screen) { return vantro_utf16(vantro_string_view(screen)); }

static PyObject* create_command(PyObject* module, PyObject* arguments) {
    (void)module;
    PyObject* capsule = NULL;
    PyObject* mapping = NULL;
    vantro_collection* parameters = NULL;
    if (!PyArg_ParseTuple(arguments, "OO", &capsule, &mapping)) return NULL;
    vantro_object* object = object_of(capsule);
    if (object == NULL || collection_from(mapping, &parameters) != 0) return NULL;
    vantro_string* command = NULL;
    const int32_t number = vantro_create_command(object, parameters, &command);
    vantro_collection_free(parameters);
    return number == 0 ? python_string(command) : raise_last_failure();
}

static PyObject* verify_response(PyObject* module, PyObject* arguments) {
    (void)module;
    PyObject* capsule = NULL;
    PyObject* lines = NULL;
    PyObject* mapping = NULL;
    if (!PyArg_ParseTuple(arguments, "OOO", &capsule, &lines, &mapping)) return NULL;
    vantro_object* object = object_of(capsule);
    vantro_string* screen = object != NULL ? screen_of(lines) : NULL;
    if (screen == NULL) return NULL;
    PyObject* answer = NULL;
    vantro_collection* state = NULL;
    vantro_collection* results = NULL;
    if (collection_from(mapping, &state) != 0) {
        answer = NULL;
    } else if (vantro_verify_response(object, view_of(screen), state, &results) != 0) {
        answer = raise_last_failure();
    } else if (results == NULL) {
        answer = Py_NewRef(Py_None);
    } else {
        answer = dictionary_from(results);
    }
    vantro_collection_free(results);
    vantro_collection_free(state);
    vantro_string_free(screen);
    return answer;
}

static PyObject* elements_of(vantro_object* object, vantro_text display, PyObject* mapping, vantro_text qualifier,
                             const TextArguments* selection) {
    vantro_collection* request = NULL;
    if (collection_from(mapping, &request) != 0) return NULL;
    int32_t is_known = 0;
    PyObject* answer = NULL;
    if (vantro_profile_elements(object, display, request, selection->texts, (size_t)selection->count, qualifier,
                                &is_known) != 0) {
        answer = raise_last_failure();
    } else {
        answer = is_known ? dictionary_from(request) : Py_NewRef(Py_None);
    }
    vantro_collection_free(request);
    return answer;
}

static PyObject* profile_elements(PyObject* module, PyObject* arguments) {
    (void)module;
    PyObject *capsule, *lines, *mapping, *sequence, *qualifier_text;
    if (!PyArg_ParseTuple(arguments, "OOOOO", &capsule, &lines, &mapping, &sequence, &qualifier_text)) return NULL;
    vantro_object* object = object_of(capsule);
    vantro_string* screen = object != NULL ? screen_of(lines) : NULL;
    if (screen == NULL) return NULL;
    PyObject* answer = NULL;
    TextArgument qualifier;
    if (text_argument(qualifier_text, "the qualifier", &qualifier) == 0) {
        TextArguments selection;
        if (text_arguments(sequence, "an entry of the selection", &selection) == 0) {
            answer = elements_of(object, view_of(screen), mapping, qualifier.text, &selection);
            text_arguments_free(&selection);
        }
        text_argument_free(&qualifier);
    }
    vantro_string_free(screen);
    return answer;
}

static PyObject* count(PyObject* module, PyObject* arguments) {
    (void)module;
    PyObject *capsule, *lines, *others;
    if (!PyArg_ParseTuple(arguments, "OOO", &capsule, &lines, &others)) return NULL;
    vantro_object* object = object_of(capsule);
    vantro_string* screen = object != NULL ? screen_of(lines) : NULL;
    if (screen == NULL) return NULL;
    PyObject* answer = NULL;
    TextArguments texts;  // the name, the search string and the qualifier
    if (text_arguments(others, "an argument", &texts) == 0) {
        int16_t number = 0;
        if (vantro_count(object, texts.texts[0], view_of(screen), texts.texts[1], texts.texts[2], &number) != 0) {
            answer = raise_last_failure();
        } else {
            answer = PyLong_FromLong(number);
        }
        text_arguments_free(&texts);
    }
    vantro_string_free(screen);
    return answer;
}

static PyObject* list_of(PyObject* module, PyObject* arguments) {
    (void)module;
    PyObject *capsule, *name_text;
    if (!PyArg_ParseTuple(arguments, "OO", &capsule, &name_text)) return NULL;
    const vantro_object* object = object_of(capsule);
    TextArgument name;
    if (object == NULL || text_argument(name_text, "the name of the list", &name) != 0) return NULL;
    const size_t size = vantro_list_size(object, name.text);
    PyObject* list = PyList_New((Py_ssize_t)size);
    for (size_t index = 0; list != NULL && index < size; ++index) {
        PyObject* text = python_text(vantro_list_entry(object, name.text, index));
        if (text == NULL || PyList_SetItem(list, (Py_ssize_t)index, text) != 0) Py_CLEAR(list);
    }
    text_argument_free(&name);
    return list;
}

static PyObject* reported(PyObject* module, PyObject* capsule) {
    (void)module;
    const vantro_object* object = object_of(capsule);
    if (object == NULL) return NULL;
    const size_t size = vantro_reported_count(object);
    PyObject* errors = PyTuple_New((Py_ssize_t)size);
    for (size_t index = 0; errors != NULL && index < size; ++index) {
        PyObject* error =
            new_error(vantro_reported_number(object, index), python_text(vantro_reported_description(object, index)));
        if (error == NULL || PyTuple_SetItem(errors, (Py_ssize_t)index, error) != 0) Py_CLEAR(errors);
    }
    return errors;
}

PyMethodDef object_functions[] = {
    {"class_names", class_names, METH_NOARGS, NULL},
    {"new_object", new_object, METH_O, NULL},
    {"create_command", create_command, METH_VARARGS, NULL},
    {"verify_response", verify_response, METH_VARARGS, NULL},
    {"profile_elements", profile_elements, METH_VARARGS, NULL},
    {"count", count, METH_VARARGS, NULL},
    {"list_of", list_of, METH_VARARGS, NULL},
    {"reported", reported, METH_O, NULL},
    {NULL, NULL, 0, NULL},
};
