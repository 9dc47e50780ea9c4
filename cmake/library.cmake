# The library: no dependency beyond the standard library.
add_library(vantro_profile_utils)
add_library(VantroProfileUtils::VantroProfileUtils ALIAS vantro_profile_utils)

set(public_headers
    vantro/built_in_terminal.h
    vantro/class_description.h
    vantro/collection.h
    vantro/error.h
    vantro/explanation.h
    vantro/export.h
    vantro/families.h
    vantro/interfaces.h
    vantro/list_rows.h
    vantro/lists.h
    vantro/observer.h
    vantro/profile.h
    vantro/profile_object.h
    vantro/registry.h
    vantro/screen_lines.h
    vantro/terminal.h
    vantro/text.h
)

target_sources(vantro_profile_utils PRIVATE
    src/display/display.cpp
    src/display/display_line.cpp
    src/display/joiner.cpp
    src/display/known_text.cpp
    src/explain/explanation.cpp
    src/explain/lines.cpp
    src/explain/look_alikes.cpp
    src/explain/meanings.cpp
    src/explain/sentences.cpp
    src/explain/text.cpp
    src/explain/words.cpp
    src/framework/access.cpp
    src/framework/error.cpp
    src/framework/int16.cpp
    src/framework/interfaces.cpp
    src/framework/joined_text.cpp
    src/framework/observation.cpp
    src/framework/screen.cpp
    src/framework/screen_lines.cpp
    src/framework/source_map.cpp
    src/framework/text_ops.cpp
    src/list_rows.cpp
    src/profile/element_lists.cpp
    src/profile/element_parser.cpp
    src/profile/element_query.cpp
    src/profile/element_steps.cpp
    src/profile/facts.cpp
    src/profile/notes_parser.cpp
    src/profile/notes_transaction.cpp
    src/profile/whole_profile.cpp
    src/readers/document_extractor.cpp
    src/readers/element_split.cpp
    src/readers/forward_pass.cpp
    src/readers/header_readers.cpp
    src/readers/known_display.cpp
    src/readers/note_scanner.cpp
    src/readers/prefixed_extractor.cpp
    src/readers/transferable_extractor.cpp
    src/readers/transferable_scanner.cpp
    src/reading_rules.cpp
    src/registry.cpp
    src/terminal/built_in_terminal.cpp
    src/transactions/maintenance/pb.cpp
    src/transactions/maintenance/pt.cpp
    src/transactions/maintenance/px.cpp
    src/transactions/maintenance/rlp.cpp
    src/transactions/mode/profile_mode.cpp
    src/transactions/search/list_reader.cpp
    src/transactions/search/list_walk.cpp
    src/transactions/search/pd.cpp
    src/transactions/search/pda.cpp
    src/transactions/search/pdn.cpp
    src/transactions/search/pdr.cpp
    src/transactions/search/ph.cpp
    src/transactions/search/plc.cpp
    src/transactions/search/plt.cpp
)
list(TRANSFORM public_headers PREPEND ${PROJECT_SOURCE_DIR}/include/ OUTPUT_VARIABLE public_header_files)
target_sources(vantro_profile_utils PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/include
               FILES ${public_header_files})

target_include_directories(vantro_profile_utils PRIVATE ${PROJECT_SOURCE_DIR}/src)
target_compile_features(vantro_profile_utils PUBLIC cxx_std_20)
vantro_compile_options(vantro_profile_utils)
vantro_precompile(vantro_profile_utils)
vantro_count_coverage(vantro_profile_utils)
set_target_properties(vantro_profile_utils PROPERTIES
    OUTPUT_NAME VantroProfileUtils
    EXPORT_NAME VantroProfileUtils
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    POSITION_INDEPENDENT_CODE ON
)

# A shared build exports only what the public headers mark, unless the caller sets another visibility.
if(NOT DEFINED CMAKE_CXX_VISIBILITY_PRESET)
    set_target_properties(vantro_profile_utils PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endif()
get_target_property(library_type vantro_profile_utils TYPE)
if(library_type STREQUAL "SHARED_LIBRARY")
    target_compile_definitions(vantro_profile_utils PUBLIC VANTRO_SHARED PRIVATE VANTRO_BUILDING_SHARED)
    if(MSVC)
        # Exported classes with members of the standard library: the library and its user share one runtime.
        target_compile_options(vantro_profile_utils PUBLIC /wd4251 /wd4275)
    endif()
endif()

# The tests link vantro_internals. They use what a shared build hides, so it is an archive of the same objects there.
get_target_property(visibility vantro_profile_utils CXX_VISIBILITY_PRESET)
if(library_type STREQUAL "SHARED_LIBRARY" AND visibility STREQUAL "hidden")
    add_library(vantro_internals STATIC EXCLUDE_FROM_ALL $<TARGET_OBJECTS:vantro_profile_utils>)
    set_target_properties(vantro_internals PROPERTIES LINKER_LANGUAGE CXX)
    target_include_directories(vantro_internals PUBLIC ${PROJECT_SOURCE_DIR}/include)
    target_compile_features(vantro_internals PUBLIC cxx_std_20)
else()
    add_library(vantro_internals ALIAS vantro_profile_utils)
endif()

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
install(TARGETS vantro_profile_utils EXPORT VantroProfileUtilsTargets FILE_SET HEADERS)
install(EXPORT VantroProfileUtilsTargets NAMESPACE VantroProfileUtils::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VantroProfileUtils)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VantroProfileUtilsConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES cmake/VantroProfileUtilsConfig.cmake ${PROJECT_BINARY_DIR}/VantroProfileUtilsConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VantroProfileUtils)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/licenses/VantroProfileUtils)

set(definitions "")
if(library_type STREQUAL "SHARED_LIBRARY")
    set(definitions -DVANTRO_SHARED)
endif()
vantro_install_pkg_config(vantro-profile-utils.pc LIBRARY VantroProfileUtils NAME VantroProfileUtils
                          DESCRIPTION "${PROJECT_DESCRIPTION}" DEFINITIONS ${definitions})
