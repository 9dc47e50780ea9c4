# Writes a C++ source with the style and the script of an explanation's page. They are arrays of numbers, because
# compilers limit the length of string literals.
#
# cmake -DFOLDER=<with explain.css and explain.js> -DSOURCE=<file> -P embed.cmake
cmake_minimum_required(VERSION 3.25)
set(text "#include \"cli/explain/page_files.h\"\n\nnamespace vantro {\n\nnamespace {\n\n")

foreach(kind IN ITEMS css js)
    file(READ ${FOLDER}/explain.${kind} bytes HEX)
    if(bytes MATCHES "^(..)*[89a-f].(..)*$")
        message(FATAL_ERROR "explain.${kind} contains a character that is not ASCII")
    endif()
    string(REGEX REPLACE "(................................)" "\\1\n" bytes "${bytes}")
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
    string(APPEND text "constexpr char ${kind}[]{\n${bytes}\n};\n\n")
endforeach()

string(APPEND text "}  // namespace\n\n"
    "std::string_view pageStyle() { return {css, sizeof(css)}; }\n"
    "std::string_view pageScript() { return {js, sizeof(js)}; }\n\n"
    "}  // namespace vantro\n")
file(WRITE ${SOURCE} "${text}")
