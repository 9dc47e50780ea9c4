# The JSON library's headers as RapidJSON::RapidJSON. Found by their file, so that a cross compiler finds them as well.
find_path(RAPIDJSON_INCLUDE_DIR rapidjson/reader.h)
mark_as_advanced(RAPIDJSON_INCLUDE_DIR)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(RapidJSON REQUIRED_VARS RAPIDJSON_INCLUDE_DIR)
if(RapidJSON_FOUND AND NOT TARGET RapidJSON::RapidJSON)
    add_library(RapidJSON::RapidJSON INTERFACE IMPORTED GLOBAL)
    target_include_directories(RapidJSON::RapidJSON INTERFACE ${RAPIDJSON_INCLUDE_DIR})
endif()
