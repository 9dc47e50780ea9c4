/* The C interface of VantroProfileUtils: whole profiles, and the classes for every host transaction.
 *
 * - Every function that can fail returns 0, or the number of the error (see vantro_error_number). No C++ exception
 * leaves a function. After a failure the results that the function would have returned are null or 0.
 * - Objects that a function creates are freed with the function for their type. Freeing null does nothing.
 * - Pointers to objects and to results must not be null unless a function says so.
 * - A text that is passed in is UTF-8 or UTF-16 (vantro_text). A text that comes out is a view in UTF-16 (vantro_view);
 *   vantro_to_utf8 copies it into a buffer of the caller.
 * - An object must not be used by two threads at the same time. Different objects need no lock.
 * - Lines of a screen count from 0, columns and elements from 1, indexes of arguments from 0 unless it says otherwise.
 */
#ifndef VANTRO_C_H
#define VANTRO_C_H

#include <stddef.h>
#include <stdint.h>
#include <string.h>

#if defined(_WIN32) && defined(VANTRO_C_BUILDING)
#define VANTRO_C_EXPORT __declspec(dllexport)
#elif defined(_WIN32)
#define VANTRO_C_EXPORT __declspec(dllimport)
#elif defined(__GNUC__)
#define VANTRO_C_EXPORT __attribute__((visibility("default")))
#else
#define VANTRO_C_EXPORT
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The version of this interface. It grows when functions are added; none is changed or removed while the name of the
 * library stays the same. */
#define VANTRO_C_VERSION 1

/* The version of the interface in the library that is loaded, and the library's own version ("0.1.0"). */
VANTRO_C_EXPORT int32_t vantro_c_version(void);
VANTRO_C_EXPORT const char* vantro_library_version(void);

/* --- Errors ------------------------------------------------------------------------------------------------------ */

/* The error of the last function that failed in this thread: its number and its description in UTF-8. The number is the
 * one that the library's operation raises (5, 6, 9, 13, 91, 429 or an operation's own); 7 is no memory, 51 any other
 * failure. The description is valid until the next failure in this thread. */
VANTRO_C_EXPORT int32_t vantro_error_number(void);
VANTRO_C_EXPORT const char* vantro_error_description(void);

/* --- Texts ------------------------------------------------------------------------------------------------------- */

typedef enum vantro_encoding { VANTRO_UTF8 = 0, VANTRO_UTF16 = 1 } vantro_encoding;

/* A text that is passed in; it is read during the call only. Bytes that are not UTF-8 count as U+FFFD. */
typedef struct vantro_text {
    const void* data;
    size_t size; /* bytes in UTF-8, 16-bit units in UTF-16 */
    vantro_encoding encoding;
} vantro_text;

/* A text that comes out: 16-bit units, without a zero at the end, valid as long as the object that it is from and until
 * that object changes. */
typedef struct vantro_view {
    const uint16_t* data;
    size_t size;
} vantro_view;

/* A text as an argument: a zero-terminated one in UTF-8 (null counts as empty), or a view. */
static inline vantro_text vantro_utf8(const char* text) {
    const vantro_text result = {text, text != NULL ? strlen(text) : 0, VANTRO_UTF8};
    return result;
}
static inline vantro_text vantro_utf16(vantro_view text) {
    const vantro_text result = {text.data, text.size, VANTRO_UTF16};
    return result;
}

/* Copies a text as UTF-8 with a zero at the end and returns its length in bytes without the zero. If the buffer is too
 * small, as many whole characters as fit are copied, and the length that is returned is at least the capacity. With a
 * capacity of 0 the buffer may be null. */
VANTRO_C_EXPORT size_t vantro_to_utf8(vantro_view text, char* buffer, size_t capacity);

/* A text that the library returns. The view is valid until the text is freed; null has an empty view. */
typedef struct vantro_string vantro_string;
VANTRO_C_EXPORT vantro_view vantro_string_view(const vantro_string* string);
VANTRO_C_EXPORT void vantro_string_free(vantro_string* string);

/* The screen in a text of lines, as a file has them: each line is padded to 80 characters, line ends are removed. A
 * text without a line end is a screen already. A line of more than 80 characters is error 5. */
VANTRO_C_EXPORT int32_t vantro_screen(vantro_text lines, vantro_string** screen);

/* --- Whole profiles ---------------------------------------------------------------------------------------------- */

typedef struct vantro_profile vantro_profile;

/* Reads a complete display (see vantro_screen). No content of the display is an error: a query that fails is one of the
 * profile's problems. */
VANTRO_C_EXPORT int32_t vantro_profile_parse(vantro_text display, vantro_profile** profile);
VANTRO_C_EXPORT void vantro_profile_free(vantro_profile* profile);

/* Values that a profile has once. */
typedef enum vantro_value {
    VANTRO_NAME = 0,
    VANTRO_RECORD_LOCATOR = 1,
    VANTRO_OFFICE_IDENTIFIER = 2,
    VANTRO_COMPANY_NAME = 3,
    VANTRO_COMPANY_NUMBER = 4,
    VANTRO_PIN = 5,
    VANTRO_PIN_NUMBER = 6,
    VANTRO_PSL = 7,
    VANTRO_PSL_NUMBER = 8
} vantro_value;

/* A value; empty when the display does not show it. */
VANTRO_C_EXPORT vantro_view vantro_profile_value(const vantro_profile* profile, vantro_value value);

/* Whether there is such a value, be it empty: 0 for the company's number when its line has none, and for the PSL and
 * its number when the display has no PSL. The other values are always there. */
VANTRO_C_EXPORT int32_t vantro_profile_has_value(const vantro_profile* profile, vantro_value value);

/* The sections of a display, in the order in which the host prints them: their number, the title of one ("PRIORITY"),
 * and whether its header is in the display. Sections are numbered from 0; numbers are never reused. */
VANTRO_C_EXPORT int32_t vantro_section_count(void);
VANTRO_C_EXPORT vantro_view vantro_section_title(int32_t section);
VANTRO_C_EXPORT int32_t vantro_section_is_shown(const vantro_profile* profile, int32_t section);

/* The families of elements: their number, the word of a family ("PHI"), what it means, and the family with a word, or
 * -1. Families are numbered from 0; numbers are never reused. */
VANTRO_C_EXPORT int32_t vantro_family_count(void);
VANTRO_C_EXPORT vantro_view vantro_family_word(int32_t family);
VANTRO_C_EXPORT vantro_view vantro_family_meaning(int32_t family);
VANTRO_C_EXPORT int32_t vantro_family_find(vantro_text word);

/* The parts of an element. Those that its family does not have are empty. */
typedef enum vantro_part {
    VANTRO_TEXT = 0,
    VANTRO_NUMBER = 1,
    VANTRO_CODE = 2,
    VANTRO_AIRLINE = 3,
    VANTRO_FREQUENT_FLYER_NUMBER = 4,
    VANTRO_FREE_TEXT = 5
} vantro_part;

/* The elements of a family; `element` counts from 1. The kind is 'S' or 'A' for an element of the transferable section,
 * else 0. Beyond the elements, texts are empty. */
VANTRO_C_EXPORT size_t vantro_element_count(const vantro_profile* profile, int32_t family);
VANTRO_C_EXPORT vantro_view vantro_element_part(const vantro_profile* profile, int32_t family, size_t element,
                                                vantro_part part);
VANTRO_C_EXPORT char vantro_element_kind(const vantro_profile* profile, int32_t family, size_t element);

/* Whether the display shows the section of a family, or an element of it elsewhere. If not, nothing is known about its
 * elements. */
VANTRO_C_EXPORT int32_t vantro_family_is_shown(const vantro_profile* profile, int32_t family);

/* The notes; `note` counts from 1. The number is the note's position in the notes section, from 1. */
VANTRO_C_EXPORT size_t vantro_note_count(const vantro_profile* profile);
VANTRO_C_EXPORT int32_t vantro_note_number(const vantro_profile* profile, size_t note);
VANTRO_C_EXPORT vantro_view vantro_note_qualifier(const vantro_profile* profile, size_t note);
VANTRO_C_EXPORT vantro_view vantro_note_text(const vantro_profile* profile, size_t note);

/* The queries that failed; `problem` counts from 1: the query's word, its error number and description. */
VANTRO_C_EXPORT size_t vantro_problem_count(const vantro_profile* profile);
VANTRO_C_EXPORT vantro_view vantro_problem_query(const vantro_profile* profile, size_t problem);
VANTRO_C_EXPORT int32_t vantro_problem_number(const vantro_profile* profile, size_t problem);
VANTRO_C_EXPORT vantro_view vantro_problem_description(const vantro_profile* profile, size_t problem);

/* --- Collections ------------------------------------------------------------------------------------------------- */

/* Keys and values: parameters and state go in, results come out. */
typedef struct vantro_collection vantro_collection;

VANTRO_C_EXPORT int32_t vantro_collection_new(vantro_collection** collection);
VANTRO_C_EXPORT void vantro_collection_free(vantro_collection* collection);

/* Stores a value under a key. A key that exists keeps its position. */
VANTRO_C_EXPORT int32_t vantro_collection_set_text(vantro_collection* collection, vantro_text key, vantro_text value);
VANTRO_C_EXPORT int32_t vantro_collection_set_boolean(vantro_collection* collection, vantro_text key, int32_t value);
VANTRO_C_EXPORT int32_t vantro_collection_set_integer(vantro_collection* collection, vantro_text key, int16_t value);
VANTRO_C_EXPORT int32_t vantro_collection_set_list(vantro_collection* collection, vantro_text key,
                                                   const vantro_text* entries, size_t count);

typedef enum vantro_kind {
    VANTRO_KIND_NONE = 0, /* no such entry */
    VANTRO_KIND_BOOLEAN = 1,
    VANTRO_KIND_INTEGER = 2,
    VANTRO_KIND_TEXT = 3,
    VANTRO_KIND_LIST = 4
} vantro_kind;

/* The entries in the order in which their keys were first added; `entry` counts from 0. vantro_collection_find returns
 * the entry with a key, or -1. A value that is read as another kind is 0 or empty. Entry 0 of a list is empty in lists
 * that count from 1. */
VANTRO_C_EXPORT size_t vantro_collection_size(const vantro_collection* collection);
VANTRO_C_EXPORT ptrdiff_t vantro_collection_find(const vantro_collection* collection, vantro_text key);
VANTRO_C_EXPORT vantro_view vantro_collection_key(const vantro_collection* collection, size_t entry);
VANTRO_C_EXPORT vantro_kind vantro_collection_kind(const vantro_collection* collection, size_t entry);
VANTRO_C_EXPORT vantro_view vantro_collection_text(const vantro_collection* collection, size_t entry);
VANTRO_C_EXPORT int32_t vantro_collection_boolean(const vantro_collection* collection, size_t entry);
VANTRO_C_EXPORT int16_t vantro_collection_integer(const vantro_collection* collection, size_t entry);
VANTRO_C_EXPORT size_t vantro_collection_list_size(const vantro_collection* collection, size_t entry);
VANTRO_C_EXPORT vantro_view vantro_collection_list_entry(const vantro_collection* collection, size_t entry,
                                                         size_t index);

/* --- Classes ----------------------------------------------------------------------------------------------------- */

/* The names of all classes: "CPDNTrans". */
VANTRO_C_EXPORT size_t vantro_class_count(void);
VANTRO_C_EXPORT vantro_view vantro_class_name(size_t index);

/* An object of a class. An unknown class is error 429. */
typedef struct vantro_object vantro_object;
VANTRO_C_EXPORT int32_t vantro_object_new(vantro_text class_name, vantro_object** object);
VANTRO_C_EXPORT void vantro_object_free(vantro_object* object);

/* The command for these parameters, exactly as it must be sent. It is empty when nothing may be sent. The parameters
 * may be null. A class without the operation is error 438. */
VANTRO_C_EXPORT int32_t vantro_create_command(vantro_object* object, const vantro_collection* parameters,
                                              vantro_string** command);

/* Reads the host's screen (see vantro_screen). The state may be null. The results are a new collection, or null for an
 * empty screen. The classes that add their results to the state do so, and the results are another handle of the same
 * collection; it is freed like any other. */
VANTRO_C_EXPORT int32_t vantro_verify_response(vantro_object* object, vantro_text screen, vantro_collection* state,
                                               vantro_collection** results);

/* Adds the elements that the request names under "strKeyPrefix" to the request. `is_known` (may be null) is set to 0
 * for a prefix that the class does not know. The selection and the qualifier are for the prefix "ALL" only. */
VANTRO_C_EXPORT int32_t vantro_profile_elements(vantro_object* object, vantro_text display, vantro_collection* request,
                                                const vantro_text* selection, size_t selection_count,
                                                vantro_text qualifier, int32_t* is_known);

/* Calls the count property with this name ("PHIElementsCount"), which refills its lists. The search string and the
 * qualifier are for the notes only. An unknown name is error 438. */
VANTRO_C_EXPORT int32_t vantro_count(vantro_object* object, vantro_text name, vantro_text display,
                                     vantro_text search_string, vantro_text qualifier, int16_t* count);

/* The list with this name ("strPHIText") as the last count filled it: its size, and an entry, by an index from 0. A
 * list that the class does not have is empty. */
VANTRO_C_EXPORT size_t vantro_list_size(const vantro_object* object, vantro_text name);
VANTRO_C_EXPORT vantro_view vantro_list_entry(const vantro_object* object, vantro_text name, size_t index);

/* The errors that the last operation of the object reported and did not raise; `index` from 0. */
VANTRO_C_EXPORT size_t vantro_reported_count(const vantro_object* object);
VANTRO_C_EXPORT int32_t vantro_reported_number(const vantro_object* object, size_t index);
VANTRO_C_EXPORT vantro_view vantro_reported_description(const vantro_object* object, size_t index);

#ifdef __cplusplus
}
#endif

#endif
