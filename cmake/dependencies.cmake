# The dependencies of the tool and the tests; the library itself has none. A package of the system is
# used if there is one; otherwise it is downloaded. A folder that needs a package calls FetchContent_MakeAvailable.
include(FetchContent)
list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/modules)

# Of the header-only libraries only the headers are used: a folder without a CMakeLists.txt adds no targets.
FetchContent_Declare(CLI11
    URL https://github.com/CLIUtils/CLI11/archive/v2.1.2.tar.gz
    URL_HASH SHA256=26291377e892ba0e5b4972cdfd4a2ab3bf53af8dac1f4ea8fe0d1376b625c8cb
    SOURCE_SUBDIR include
    FIND_PACKAGE_ARGS MODULE)
FetchContent_Declare(RapidJSON
    URL https://github.com/Tencent/rapidjson/archive/8f4c021fa2f1e001d2376095928fc0532adf2ae6.zip
    URL_HASH SHA256=e6fc99c7df7f29995838a764dd68df87b71db360f7727ace467b21b82c85efda
    SOURCE_SUBDIR include
    FIND_PACKAGE_ARGS MODULE)
# Debian keeps the same archive as the makers; every build folder uses the one downloaded first.
FetchContent_Declare(simdjson
    URL https://github.com/simdjson/simdjson/archive/v3.0.1.tar.gz
        http://deb.debian.org/debian/pool/main/s/simdjson/simdjson_3.0.1.orig.tar.gz
    URL_HASH SHA256=156b1bc5eb0561b2bd166b46d191fd3d95a3e709cc63761477d3b7aec2b6e9ed
    DOWNLOAD_DIR ${PROJECT_SOURCE_DIR}/build/downloads
    DOWNLOAD_NAME simdjson-3.0.1.tar.gz
    SOURCE_SUBDIR singleheader/none
    FIND_PACKAGE_ARGS)
FetchContent_Declare(xxHash
    URL https://github.com/Cyan4973/xxHash/archive/v0.8.1.tar.gz
        http://deb.debian.org/debian/pool/main/x/xxhash/xxhash_0.8.1.orig.tar.gz
    URL_HASH SHA256=3bb6b7d6f30c591dd65aaaff1c8b7a5b94d81687998ca9400082c739a690436c
    DOWNLOAD_NAME xxhash-0.8.1.tar.gz
    SOURCE_SUBDIR none
    FIND_PACKAGE_ARGS MODULE)
FetchContent_Declare(googletest
    URL https://github.com/google/googletest/archive/refs/tags/release-1.12.1.tar.gz
    URL_HASH SHA256=81964fe578e9bd7c94dfdb09c8e4d6e6759e19967e397dbea48d1c10e45d0df2
    SYSTEM
    FIND_PACKAGE_ARGS NAMES GTest)
set(INSTALL_GTEST OFF)

# vantro_headers_of(<package> <target>): a header-only library as a target, found or downloaded.
function(vantro_headers_of package target)
    FetchContent_MakeAvailable(${package})
    if(NOT TARGET ${target})
        string(TOLOWER ${package} name)
        add_library(${target} INTERFACE IMPORTED GLOBAL)
        target_include_directories(${target} INTERFACE ${${name}_SOURCE_DIR} ${${name}_SOURCE_DIR}/include)
    endif()
endfunction()

if(VANTRO_BUILD_CLI)
    vantro_headers_of(CLI11 CLI11::CLI11)
    vantro_headers_of(xxHash xxHash::xxHash)
    FetchContent_MakeAvailable(simdjson)
    if(NOT TARGET simdjson::simdjson)
        add_library(simdjson STATIC ${simdjson_SOURCE_DIR}/singleheader/simdjson.cpp)
        target_include_directories(simdjson SYSTEM PUBLIC ${simdjson_SOURCE_DIR}/singleheader)
        target_compile_definitions(simdjson PUBLIC SIMDJSON_NO_PORTABILITY_WARNING)  # slower on 32-bit processors
        add_library(simdjson::simdjson ALIAS simdjson)
    endif()
endif()
# What compressed input needs; without a library the tool refuses input in its format.
if(VANTRO_BUILD_CLI)
    find_package(ZLIB)
    find_package(zstd MODULE)
endif()
# What an export to a database needs; without it the tool exports to a folder only.
if(VANTRO_BUILD_CLI)
    find_package(SQLite3)
endif()
if(VANTRO_BUILD_CLI OR VANTRO_BUILD_TESTS)
    vantro_headers_of(RapidJSON RapidJSON::RapidJSON)
endif()
