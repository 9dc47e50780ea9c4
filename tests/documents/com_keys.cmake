# Compares docs/com-keys.md with what the tool (TOOL) says about every class. With -DWRITE=ON it writes the page:
#   cmake -DROOT=. -DTOOL=<vantro-profile> -DWRITE=ON -P tests/documents/com_keys.cmake
set(page "# Keys

What each class reads from the collections that it is passed, and adds to them or to a new one. The types are those of
the stored values: text is VT_BSTR, boolean VT_BOOL, integer VT_I2, a list of texts an array of VT_BSTR. This page is
made from the classes themselves; `vantro-profile describe CLASS` also says which commands a class builds and which
marks it searches for.

| | |
|---|---|
| command | `CreateCommand` reads it |
| response | `VerifyResponse` reads it from the passed collection |
| result | `VerifyResponse` adds it |
| request | `ProfileElements` reads it |
| element | `ProfileElements` adds it |
")

set(passed_ignored "`VerifyResponse` ignores the passed collection and returns a new one.")
set(passed_optional "`VerifyResponse` reads the passed collection if there is one, and returns a new one.")
set(passed_required "`VerifyResponse` needs a collection, and returns a new one.")
set(passed_returned "`VerifyResponse` needs a collection, adds the results to it and returns it.")

function(describe result)
    execute_process(COMMAND ${TOOL} describe --json ${ARGN} OUTPUT_VARIABLE json RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "${TOOL} describe ${ARGN} ended with ${status}")
    endif()
    set(${result} "${json}" PARENT_SCOPE)
endfunction()

# Appends the rows of an array of keys.
function(append_keys json array use)
    string(JSON count ERROR_VARIABLE missing LENGTH "${json}" ${array})
    if(missing OR count EQUAL 0)
        return()
    endif()
    math(EXPR last "${count} - 1")
    foreach(index RANGE ${last})
        string(JSON key GET "${json}" ${array} ${index} key)
        string(JSON kind GET "${json}" ${array} ${index} kind)
        string(JSON meaning GET "${json}" ${array} ${index} meaning)
        string(JSON need ERROR_VARIABLE no_need GET "${json}" ${array} ${index} need)
        string(JSON when ERROR_VARIABLE no_when GET "${json}" ${array} ${index} when)
        if(no_when)
            set(when "")
        endif()
        if(need STREQUAL "required")
            string(PREPEND when "needed")
        elseif(need STREQUAL "conditional")
            string(PREPEND when "needed ")
        endif()
        if(NOT when STREQUAL "")
            string(APPEND meaning " (${when})")
        endif()
        string(APPEND page "| ${use} | `${key}` | ${kind} | ${meaning} |\n")
    endforeach()
    set(page "${page}" PARENT_SCOPE)
endfunction()

describe(classes)
string(JSON classCount LENGTH "${classes}")
math(EXPR lastClass "${classCount} - 1")
foreach(number RANGE ${lastClass})
    string(JSON class GET "${classes}" ${number} class)
    describe(description ${class})
    string(JSON purpose GET "${description}" purpose)
    string(APPEND page "\n## ${class}\n\n${purpose}\n\n")
    set(before "${page}")
    string(APPEND page "| | Key | Type | Meaning |\n|---|---|---|---|\n")
    set(heading "${page}")
    append_keys("${description}" parameters "command")
    append_keys("${description}" state "response")
    append_keys("${description}" results "result")
    append_keys("${description}" request "request")
    append_keys("${description}" elements "element")
    if(page STREQUAL heading)
        set(page "${before}It reads and adds no keys.\n")
    endif()
    string(JSON passed ERROR_VARIABLE no_passed GET "${description}" passedCollection)
    if(NOT no_passed AND NOT page STREQUAL "${before}It reads and adds no keys.\n")
        string(APPEND page "\n${passed_${passed}}\n")
    endif()
endforeach()

if(WRITE)
    file(WRITE ${ROOT}/docs/com-keys.md "${page}")
    return()
endif()
file(READ ${ROOT}/docs/com-keys.md shown)
if(NOT shown STREQUAL page)
    message(FATAL_ERROR "docs/com-keys.md is not what the classes say; tests/documents/com_keys.cmake writes it anew")
endif()
