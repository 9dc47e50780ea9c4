// Reading displays: without the interpreter's lock, which is needed for the Python objects alone.
#include "core.h"

#include <stdatomic.h>
#include <stdlib.h>
#include <string.h>

/// A display and what reading it returned: a profile, or the number and the description of an error.
typedef struct Reading {
    vantro_profile* profile;
    int32_t number;
    char* description;
} Reading;

/// Whether the text may consist of lines. Without a line end it is a screen already, which saves a copy.
static int may_have_lines(vantro_text text) {
    return text.encoding != VANTRO_UTF8 || memchr(text.data, '\n', text.size) != NULL;
}

/// Needs no lock: it sees no Python object.
static void read_display(vantro_text display, Reading* reading) {
    vantro_string* screen = NULL;
    vantro_text unbroken = display;
    if (may_have_lines(display)) {
        reading->number = vantro_screen(display, &screen);
        unbroken = vantro_utf16(vantro_string_view(screen));
    }
    if (reading->number == 0) reading->number = vantro_profile_parse(unbroken, &reading->profile);
    vantro_string_free(screen);
    if (reading->number != 0) {
        // The description is valid until the thread's next failure.
        const char* const description = vantro_error_description();
        reading->description = malloc(strlen(description) + 1);
        if (reading->description != NULL) strcpy(reading->description, description);
    }
}

/// The profile, or the error as an object that is not raised. Frees the reading.
static PyObject* answer_of(Reading* reading) {
    PyObject* answer = NULL;
    if (reading->number == 0) {
        answer = python_profile(reading->profile);
    } else {
        answer = new_error(reading->number, PyUnicode_FromString(reading->description ? reading->description : ""));
    }
    free(reading->description);
    *reading = (Reading){NULL, 0, NULL};
    return answer;
}

// Threads of their own, and no threads of Python: those would wait for the interpreter's lock with each result.

/// Displays that several threads read; each takes the next one.
typedef struct Batch {
    const vantro_text* texts;
    Reading* readings;
    size_t count;
    atomic_size_t next;
} Batch;

static void read_batch(Batch* batch) {
    for (size_t index; (index = atomic_fetch_add(&batch->next, 1)) < batch->count;) {
        read_display(batch->texts[index], &batch->readings[index]);
    }
}

typedef struct Helper {
    Batch* batch;
    PyThread_type_lock finished;  ///< locked while the thread runs; null if there is none
} Helper;

static void run_helper(void* helper_address) {
    Helper* const helper = helper_address;
    read_batch(helper->batch);
    PyThread_release_lock(helper->finished);
}

static const unsigned long no_thread = (unsigned long)-1;  // the name of this value is not in the limited interface

/// Without memory for a thread, the others do its work.
static void start_helper(Helper* helper, Batch* batch) {
    helper->batch = batch;
    helper->finished = PyThread_allocate_lock();
    if (helper->finished == NULL) return;
    PyThread_acquire_lock(helper->finished, WAIT_LOCK);
    if (PyThread_start_new_thread(run_helper, helper) == no_thread) {
        PyThread_release_lock(helper->finished);
    }
}

static void wait_for(Helper* helper) {
    if (helper->finished == NULL) return;
    PyThread_acquire_lock(helper->finished, WAIT_LOCK);
    PyThread_release_lock(helper->finished);
    PyThread_free_lock(helper->finished);
}

/// Reads the displays of the list in this thread and in the helpers.
static void read_all(const TextArguments* list, Reading* readings, Helper* helpers, int helper_count) {
    Batch batch = {list->texts, readings, (size_t)list->count, 0};
    Py_BEGIN_ALLOW_THREADS;
    for (int index = 0; index < helper_count; ++index) start_helper(&helpers[index], &batch);
    read_batch(&batch);
    for (int index = 0; index < helper_count; ++index) wait_for(&helpers[index]);
    Py_END_ALLOW_THREADS;
}

/// The list of the answers. Frees all readings, also after a failure.
static PyObject* answers_of(Reading* readings, Py_ssize_t count) {
    PyObject* answers = PyList_New(count);
    for (Py_ssize_t index = 0; index < count; ++index) {
        PyObject* const answer = answer_of(&readings[index]);
        if (answers == NULL) {
            Py_XDECREF(answer);
        } else if (answer == NULL || PyList_SetItem(answers, index, answer) != 0) {
            Py_CLEAR(answers);
        }
    }
    return answers;
}

PyObject* core_parse_all(PyObject* module, PyObject* arguments) {
    (void)module;
    PyObject* displays = NULL;
    int threads = 1;
    if (!PyArg_ParseTuple(arguments, "O!i", &PyTuple_Type, &displays, &threads)) return NULL;
    TextArguments list;
    if (text_arguments(displays, "a display", &list) != 0) return NULL;
    PyObject* answers = NULL;
    Reading* const readings = PyMem_Calloc((size_t)list.count + 1, sizeof *readings);
    Helper* const helpers = PyMem_Calloc((size_t)threads, sizeof *helpers);
    if (readings == NULL || helpers == NULL) {
        PyErr_NoMemory();
    } else {
        read_all(&list, readings, helpers, threads - 1);
        answers = answers_of(readings, list.count);
    }
    PyMem_Free(helpers);
    PyMem_Free(readings);
    text_arguments_free(&list);
    return answers;
}

PyObject* core_parse(PyObject* module, PyObject* display) {
    (void)module;
    TextArgument text;
    if (text_argument(display, "the display", &text) != 0) return NULL;
    Reading reading = {NULL, 0, NULL};
    Py_BEGIN_ALLOW_THREADS;
    read_display(text.text, &reading);
    Py_END_ALLOW_THREADS;
    text_argument_free(&text);
    return reading.number == 0 ? python_profile(reading.profile) : raise_error(answer_of(&reading));
}
