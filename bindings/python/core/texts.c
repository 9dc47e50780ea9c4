// Texts and errors.
#include "core.h"

int text_argument(PyObject* object, const char* what, TextArgument* argument) {
    argument->encoded = NULL;
    argument->text = vantro_utf8(NULL);
    if (!PyUnicode_Check(object)) {
        PyErr_Format(PyExc_TypeError, "%s is no str", what);
        return -1;
    }
    Py_ssize_t size = 0;
    const char* data = PyUnicode_AsUTF8AndSize(object, &size);
    argument->text.encoding = VANTRO_UTF8;
    if (data == NULL) {
        // With a surrogate alone, a text has no form in UTF-8.
        if (!PyErr_ExceptionMatches(PyExc_UnicodeEncodeError)) return -1;
        PyErr_Clear();
        argument->encoded =
            PyUnicode_AsEncodedString(object, PY_LITTLE_ENDIAN ? "utf-16-le" : "utf-16-be", "surrogatepass");
        if (argument->encoded == NULL) return -1;
        data = PyBytes_AsString(argument->encoded);
        size = PyBytes_Size(argument->encoded) / 2;
        argument->text.encoding = VANTRO_UTF16;
    }
    argument->text.data = data;
    argument->text.size = (size_t)size;
    return 0;
}

void text_argument_free(TextArgument* argument) { Py_CLEAR(argument->encoded); }

int text_arguments(PyObject* sequence, const char* what, TextArguments* list) {
    list->entries = PySequence_Tuple(sequence);
    if (list->entries == NULL) return -1;
    list->count = PyTuple_Size(list->entries);
    list->arguments = PyMem_Calloc((size_t)list->count + 1, sizeof *list->arguments);
    list->texts = PyMem_Calloc((size_t)list->count + 1, sizeof *list->texts);
    int status = list->arguments != NULL && list->texts != NULL ? 0 : -1;
    if (status != 0) PyErr_NoMemory();
    for (Py_ssize_t index = 0; status == 0 && index < list->count; ++index) {
        status = text_argument(PyTuple_GetItem(list->entries, index), what, &list->arguments[index]);
        list->texts[index] = list->arguments[index].text;
    }
    if (status != 0) text_arguments_free(list);
    return status;
}

void text_arguments_free(TextArguments* list) {
    for (Py_ssize_t index = 0; list->arguments != NULL && index < list->count; ++index) {
        text_argument_free(&list->arguments[index]);
    }
    PyMem_Free(list->arguments);
    PyMem_Free(list->texts);
    Py_CLEAR(list->entries);
}

static PyObject* empty_text;
static PyObject* error_type;

int prepare_texts(PyObject* types) {
    empty_text = PyUnicode_FromStringAndSize("", 0);
    error_type = PyObject_GetAttrString(types, "VantroError");
    return empty_text != NULL && error_type != NULL ? 0 : -1;
}

PyObject* python_text(vantro_view view) {
    if (view.size == 0) return Py_NewRef(empty_text);
    // Nearly all texts are short and ASCII; the general decoder takes several times as long for them.
    char ascii[128];
    if (view.size <= sizeof ascii) {
        uint16_t bits = 0;
        for (size_t index = 0; index < view.size; ++index) {
            bits |= view.data[index];
            ascii[index] = (char)view.data[index];
        }
        if (bits < 0x80) return PyUnicode_FromStringAndSize(ascii, (Py_ssize_t)view.size);
    }
    int byte_order = PY_LITTLE_ENDIAN ? -1 : 1;
    return PyUnicode_DecodeUTF16((const char*)view.data, (Py_ssize_t)(view.size * 2), "surrogatepass", &byte_order);
}

PyObject* python_string(vantro_string* string) {
    PyObject* text = python_text(vantro_string_view(string));
    vantro_string_free(string);
    return text;
}

PyObject* new_error(int32_t number, PyObject* description) {
    if (description == NULL) return NULL;
    PyObject* error = PyObject_CallFunction(error_type, "iO", (int)number, description);
    Py_DECREF(description);
    return error;
}

PyObject* raise_error(PyObject* error) {
    if (error != NULL) {
        PyErr_SetObject(error_type, error);
        Py_DECREF(error);
    }
    return NULL;
}

PyObject* raise_last_failure(void) {
    enum { no_memory = 7 };
    if (vantro_error_number() == no_memory) return PyErr_NoMemory();
    return raise_error(new_error(vantro_error_number(), PyUnicode_FromString(vantro_error_description())));
}
