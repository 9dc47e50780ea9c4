# For a cross compiler: the header-only libraries of the build machine. Its complete include folder must not be visible
# to a cross compiler, so this creates a folder of links to these libraries only.
set(VANTRO_HOST_HEADERS ${CMAKE_BINARY_DIR}/host-headers)
file(MAKE_DIRECTORY ${VANTRO_HOST_HEADERS}/include)
foreach(library CLI rapidjson xxhash.h xxh3.h)
    if(EXISTS /usr/include/${library})
        file(CREATE_LINK /usr/include/${library} ${VANTRO_HOST_HEADERS}/include/${library} SYMBOLIC)
    endif()
endforeach()
