// The Python objects of whole profiles.
#include "core.h"

// --- Objects of the package's dataclasses ---

/// A dataclass with slots, whose objects are frozen for Python: the slots are set directly.
typedef struct DataClass {
    const char* name;
    const char* fields[12];
    PyObject* type;
    PyObject* slots[12];
    descrsetfunc set;
} DataClass;

static DataClass profile_class = {"Profile",
                                  {"name", "record_locator", "office_identifier", "company_name", "pin", "psl",
                                   "sections", "shown_families", "notes", "problems", "elements"},
                                  NULL,
                                  {NULL},
                                  NULL};
static DataClass numbered_class = {"NumberedText", {"number", "text"}, NULL, {NULL}, NULL};
static DataClass elements_class = {"Elements", {"_handle", "_read"}, NULL, {NULL}, NULL};
static DataClass element_class = {
    "Element", {"number", "text", "kind", "code", "airline", "frequent_flyer_number", "free_text"}, NULL, {NULL}, NULL};
static DataClass note_class = {"Note", {"number", "qualifier", "text"}, NULL, {NULL}, NULL};
static DataClass problem_class = {"Problem", {"query", "number", "description"}, NULL, {NULL}, NULL};

static int prepare(DataClass* data_class, PyObject* types) {
    data_class->type = PyObject_GetAttrString(types, data_class->name);
    if (data_class->type == NULL) return -1;
    for (size_t index = 0; data_class->fields[index] != NULL; ++index) {
        data_class->slots[index] = PyObject_GetAttrString(data_class->type, data_class->fields[index]);
        if (data_class->slots[index] == NULL) return -1;
    }
    data_class->set = (descrsetfunc)PyType_GetSlot(Py_TYPE(data_class->slots[0]), Py_tp_descr_set);
    return data_class->set != NULL ? 0 : -1;
}

/// A new object with these values, one per field, which are new references and are taken over. A null among them is an
/// exception that is set.
static PyObject* make(const DataClass* data_class, PyObject* const* values) {
    PyObject* object = PyType_GenericAlloc((PyTypeObject*)data_class->type, 0);
    for (size_t index = 0; data_class->fields[index] != NULL; ++index) {
        PyObject* const value = values[index];
        if (object != NULL && (value == NULL || data_class->set(data_class->slots[index], object, value) != 0)) {
            Py_CLEAR(object);
        }
        Py_XDECREF(value);
    }
    return object;
}

// --- The words of the families and the titles of the sections, made once ---

static PyObject* family_words;    // a tuple
static PyObject* section_titles;  // a tuple
static PyObject* kinds[2];        // "S" and "A"

static PyObject* all_texts(int32_t count, vantro_view (*text)(int32_t number)) {
    PyObject* texts = PyTuple_New(count);
    for (int32_t number = 0; texts != NULL && number < count; ++number) {
        PyObject* made = python_text(text(number));
        if (made != NULL) PyUnicode_InternInPlace(&made);
        if (made == NULL || PyTuple_SetItem(texts, number, made) != 0) Py_CLEAR(texts);
    }
    return texts;
}

int prepare_profiles(PyObject* types) {
    DataClass* const classes[] = {&profile_class, &numbered_class, &elements_class,
                                  &element_class, &note_class,     &problem_class};
    for (size_t index = 0; index < sizeof classes / sizeof *classes; ++index) {
        if (prepare(classes[index], types) != 0) return -1;
    }
    family_words = all_texts(vantro_family_count(), vantro_family_word);
    section_titles = all_texts(vantro_section_count(), vantro_section_title);
    kinds[0] = PyUnicode_InternFromString("S");
    kinds[1] = PyUnicode_InternFromString("A");
    return family_words != NULL && section_titles != NULL && kinds[0] != NULL && kinds[1] != NULL ? 0 : -1;
}

PyObject* core_families(PyObject* module, PyObject* unused) {
    (void)module;
    (void)unused;
    PyObject* meanings = PyDict_New();
    for (int32_t family = 0; meanings != NULL && family < vantro_family_count(); ++family) {
        PyObject* meaning = python_text(vantro_family_meaning(family));
        if (meaning == NULL || PyDict_SetItem(meanings, PyTuple_GetItem(family_words, family), meaning) != 0) {
            Py_CLEAR(meanings);
        }
        Py_XDECREF(meaning);
    }
    return meanings;
}

// --- One profile ---

static const char handle_name[] = "vantro_profile";

static void free_profile(PyObject* capsule) { vantro_profile_free(PyCapsule_GetPointer(capsule, handle_name)); }

static PyObject* value_of(const vantro_profile* profile, vantro_value value) {
    return python_text(vantro_profile_value(profile, value));
}

static PyObject* numbered_value(const vantro_profile* profile, vantro_value number, vantro_value text) {
    if (!vantro_profile_has_value(profile, text)) return Py_NewRef(Py_None);
    PyObject* const has_number =
        vantro_profile_has_value(profile, number) ? value_of(profile, number) : Py_NewRef(Py_None);
    PyObject* const values[] = {has_number, value_of(profile, text)};
    return make(&numbered_class, values);
}

/// Those of the texts for which the function is true, as a tuple.
static PyObject* shown_texts(const vantro_profile* profile, PyObject* texts,
                             int32_t (*is_shown)(const vantro_profile* profile, int32_t number)) {
    PyObject* const shown = PyList_New(0);
    if (shown == NULL) return NULL;
    int status = 0;
    for (int32_t number = 0; status == 0 && number < PyTuple_Size(texts); ++number) {
        if (is_shown(profile, number)) status = PyList_Append(shown, PyTuple_GetItem(texts, number));
    }
    PyObject* const tuple = status == 0 ? PyList_AsTuple(shown) : NULL;
    Py_DECREF(shown);
    return tuple;
}

static PyObject* notes_of(const vantro_profile* profile) {
    const size_t count = vantro_note_count(profile);
    PyObject* notes = PyTuple_New((Py_ssize_t)count);
    for (size_t note = 1; notes != NULL && note <= count; ++note) {
        PyObject* const values[] = {PyLong_FromLong(vantro_note_number(profile, note)),
                                    python_text(vantro_note_qualifier(profile, note)),
                                    python_text(vantro_note_text(profile, note))};
        PyObject* const made = make(&note_class, values);
        if (made == NULL || PyTuple_SetItem(notes, (Py_ssize_t)note - 1, made) != 0) Py_CLEAR(notes);
    }
    return notes;
}

static PyObject* problems_of(const vantro_profile* profile) {
    const size_t count = vantro_problem_count(profile);
    PyObject* problems = PyTuple_New((Py_ssize_t)count);
    for (size_t problem = 1; problems != NULL && problem <= count; ++problem) {
        PyObject* const values[] = {python_text(vantro_problem_query(profile, problem)),
                                    PyLong_FromLong(vantro_problem_number(profile, problem)),
                                    python_text(vantro_problem_description(profile, problem))};
        PyObject* const made = make(&problem_class, values);
        if (made == NULL || PyTuple_SetItem(problems, (Py_ssize_t)problem - 1, made) != 0) Py_CLEAR(problems);
    }
    return problems;
}

PyObject* python_profile(vantro_profile* profile) {
    PyObject* const handle = PyCapsule_New(profile, handle_name, free_profile);
    if (handle == NULL) {
        vantro_profile_free(profile);
        return NULL;
    }
    PyObject* values[] = {
        value_of(profile, VANTRO_NAME),
        value_of(profile, VANTRO_RECORD_LOCATOR),
        value_of(profile, VANTRO_OFFICE_IDENTIFIER),
        numbered_value(profile, VANTRO_COMPANY_NUMBER, VANTRO_COMPANY_NAME),
        numbered_value(profile, VANTRO_PIN_NUMBER, VANTRO_PIN),
        numbered_value(profile, VANTRO_PSL_NUMBER, VANTRO_PSL),
        shown_texts(profile, section_titles, vantro_section_is_shown),
        shown_texts(profile, family_words, vantro_family_is_shown),
        notes_of(profile),
        problems_of(profile),
        NULL,
    };
    // The last one: if it fails, the profile is freed.
    PyObject* const elements[] = {handle, PyDict_New()};
    values[10] = make(&elements_class, elements);
    return make(&profile_class, values);
}

static PyObject* kind_of(const vantro_profile* profile, int32_t family, size_t element) {
    switch (vantro_element_kind(profile, family, element)) {
        case 'S': return Py_NewRef(kinds[0]);
        case 'A': return Py_NewRef(kinds[1]);
        default: return python_text((vantro_view){NULL, 0});
    }
}

PyObject* core_elements(PyObject* module, PyObject* arguments) {
    (void)module;
    PyObject* capsule = NULL;
    int family = 0;
    if (!PyArg_ParseTuple(arguments, "Oi", &capsule, &family)) return NULL;
    const vantro_profile* const profile = PyCapsule_GetPointer(capsule, handle_name);
    if (profile == NULL) return NULL;
    const size_t count = vantro_element_count(profile, family);
    PyObject* elements = PyTuple_New((Py_ssize_t)count);
    for (size_t element = 1; elements != NULL && element <= count; ++element) {
#define PART(part) python_text(vantro_element_part(profile, family, element, part))
        PyObject* const values[] = {PART(VANTRO_NUMBER),   PART(VANTRO_TEXT),    kind_of(profile, family, element),
                                    PART(VANTRO_CODE),     PART(VANTRO_AIRLINE), PART(VANTRO_FREQUENT_FLYER_NUMBER),
                                    PART(VANTRO_FREE_TEXT)};
#undef PART
        PyObject* const made = make(&element_class, values);
        if (made == NULL || PyTuple_SetItem(elements, (Py_ssize_t)element - 1, made) != 0) Py_CLEAR(elements);
    }
    return elements;
}
