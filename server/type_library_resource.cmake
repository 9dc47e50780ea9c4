# Writes a type library as a resource script:
#   cmake -DTYPES=<file.tlb> -DOUT=<file.rc> -P type_library_resource.cmake
# widl writes the time of its run into the library, as a text and as a number. Both are removed here, so that the same
# sources always produce the same bytes.
file(READ ${TYPES} bytes HEX)

# "Created by WIDL version 7.0 at Sun Nov 22 02:18:53 2026", a line feed, filling bytes, and the number after the
# mark of its kind (0x13).
string(FIND "${bytes}" "43726561746564206279205749444c" note)
if(note GREATER -1)
    string(SUBSTRING "${bytes}" ${note} -1 rest)
    if(rest MATCHES "^([0-9a-f]*)20617420")
        string(FIND "${rest}" "20617420" at)
        math(EXPR time "${note} + ${at} + 8")
        math(EXPR afterTime "${time} + 48")
        string(SUBSTRING "${bytes}" 0 ${time} head)
        string(SUBSTRING "${bytes}" ${afterTime} -1 tail)
        string(REPEAT "20" 24 blanks)
        string(REGEX REPLACE "^(0a(57)*1300)........" "\\100000000" tail "${tail}")
        set(bytes "${head}${blanks}${tail}")
    endif()
endif()

string(LENGTH "${bytes}" length)
math(EXPR odd "${length} % 4")
if(odd)
    string(APPEND bytes "00")
endif()
# Numbers of 16 bits, low byte first.
string(REGEX REPLACE "(..)(..)" "0x\\2\\1,\n" words "${bytes}")
string(REGEX REPLACE ",\n$" "\n" words "${words}")
file(WRITE ${OUT} "1 TYPELIB\nBEGIN\n${words}END\n")
