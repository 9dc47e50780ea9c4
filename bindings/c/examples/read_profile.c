/* Reads the priority lines of a displayed profile from a text file with one screen line per line, then builds the
 * command that searches for a traveller. */
#include "vantro_c.h"

#include <stdio.h>
#include <stdlib.h>

static int fail(const char *what) {
    fprintf(stderr, "read_profile: %s: error %d: %s\n", what, (int)vantro_error_number(), vantro_error_description());
    return 1;
}

/* The whole file, zero-terminated; null when it cannot be read. */
static char *read_file(const char *name) {
    FILE *file = fopen(name, "rb");
    if (file == NULL) return NULL;
    size_t size = 0;
    size_t capacity = 4096;
    char *text = malloc(capacity);
    while (text != NULL) {
        size += fread(text + size, 1, capacity - size - 1, file);
        if (size + 1 < capacity) break;
        char *larger = realloc(text, capacity *= 2);
        if (larger == NULL) free(text);
        text = larger;
    }
    if (text != NULL) text[size] = '\0';
    fclose(file);
    return text;
}

static void print_view(vantro_view text) {
    char buffer[512];
    vantro_to_utf8(text, buffer, sizeof buffer);
    fputs(buffer, stdout);
}

static int print_profile(const char *name) {
    char *lines = read_file(name);
    if (lines == NULL) {
        fprintf(stderr, "read_profile: cannot read %s\n", name);
        return 1;
    }
    vantro_string *screen = NULL;
    vantro_profile *profile = NULL;
    const int status = vantro_screen(vantro_utf8(lines), &screen) != 0 ||
                       vantro_profile_parse(vantro_utf16(vantro_string_view(screen)), &profile) != 0;
    free(lines);
    vantro_string_free(screen);
    if (status != 0) return fail(name);

    const int32_t family = vantro_family_find(vantro_utf8("PPR"));
    const size_t count = vantro_element_count(profile, family);
    for (size_t element = 1; element <= count; ++element) {
        print_view(vantro_element_part(profile, family, element, VANTRO_NUMBER));
        fputs(": ", stdout);
        print_view(vantro_element_part(profile, family, element, VANTRO_TEXT));
        fputs("\n", stdout);
    }
    vantro_profile_free(profile);
    return 0;
}

static int print_command(void) {
    vantro_object *search = NULL;
    vantro_collection *parameters = NULL;
    vantro_string *command = NULL;
    int status = vantro_object_new(vantro_utf8("CPDNTrans"), &search) != 0 ||
                 vantro_collection_new(&parameters) != 0 ||
                 vantro_collection_set_text(parameters, vantro_utf8("strKeyName"), vantro_utf8("SMITH/ANNA")) != 0 ||
                 vantro_collection_set_boolean(parameters, vantro_utf8("blnKeyExactMatch"), 1) != 0 ||
                 vantro_create_command(search, parameters, &command) != 0;
    if (status != 0) {
        status = fail("CPDNTrans");
    } else {
        fputs("send: ", stdout);
        print_view(vantro_string_view(command));
        fputs("\n", stdout);
    }
    vantro_string_free(command);
    vantro_collection_free(parameters);
    vantro_object_free(search);
    return status;
}

int main(int argc, char **argv) {
    const int status = print_profile(argc > 1 ? argv[1] : "samples/profiles/traveller.txt");
    return status != 0 ? status : print_command();
}
