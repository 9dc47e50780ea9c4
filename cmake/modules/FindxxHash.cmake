# The hash function's headers as xxHash::xxHash. Found by their file, so that a cross compiler finds them as well.
find_path(XXHASH_INCLUDE_DIR xxhash.h)
mark_as_advanced(XXHASH_INCLUDE_DIR)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(xxHash REQUIRED_VARS XXHASH_INCLUDE_DIR)
if(xxHash_FOUND AND NOT TARGET xxHash::xxHash)
    add_library(xxHash::xxHash INTERFACE IMPORTED GLOBAL)
    target_include_directories(xxHash::xxHash INTERFACE ${XXHASH_INCLUDE_DIR})
endif()
