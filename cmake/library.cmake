# The library: no dependency beyond the standard library.
add_library(vantro_profile_utils)
add_library(VantroProfileUtils::VantroProfileUtils ALIAS vantro_profile_utils)

set(public_headers
    vantro/built_in_terminal.h
    vantro/collection.h
    vantro/error.h
    vantro/interfaces.h
    vantro/lists.h
    vantro/profile.h
    vantro/registry.h
    vantro/terminal.h
    vantro/text.h
)

target_sources(vantro_profile_utils PRIVATE
    framework/access.cpp
    framework/error.cpp
    framework/int16.cpp
    framework/interfaces.cpp
    framework/profile_mode.cpp
    framework/registry.cpp
    framework/screen.cpp
    framework/text_ops.cpp
    notes/note_scanner.cpp
    notes/notes_parser.cpp
    notes/notes_transaction.cpp
    profile/codes.cpp
    profile/counts.cpp
    profile/display.cpp
    profile/display_line.cpp
    profile/document_extractor.cpp
    profile/element_lists.cpp
    profile/header_readers.cpp
    profile/line_marks.cpp
    profile/prefixed_extractor.cpp
    profile/prefixes.cpp
    profile/profile.cpp
    profile/query.cpp
    profile/transferable_extractor.cpp
    profile/transferable_scanner.cpp
    profile/whole_profile.cpp
    terminal/built_in_terminal.cpp
    transactions/maintenance/pb.cpp
    transactions/maintenance/pt.cpp
    transactions/maintenance/px.cpp
    transactions/maintenance/rlp.cpp
    transactions/search/pd.cpp
    transactions/search/pda.cpp
    transactions/search/pdn.cpp
    transactions/search/pdr.cpp
    transactions/search/ph.cpp
    transactions/search/plc.cpp
    transactions/search/plt.cpp
)
list(TRANSFORM public_headers PREPEND ${PROJECT_SOURCE_DIR}/include/ OUTPUT_VARIABLE public_header_files)
target_sources(vantro_profile_utils PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/include
               FILES ${public_header_files})

target_include_directories(vantro_profile_utils PRIVATE ${PROJECT_SOURCE_DIR})
target_compile_features(vantro_profile_utils PUBLIC cxx_std_20)
vantro_compile_options(vantro_profile_utils)
set_target_properties(vantro_profile_utils PROPERTIES
    OUTPUT_NAME VantroProfileUtils
    EXPORT_NAME VantroProfileUtils
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    WINDOWS_EXPORT_ALL_SYMBOLS ON
    POSITION_INDEPENDENT_CODE ON
)

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
install(TARGETS vantro_profile_utils EXPORT VantroProfileUtilsTargets FILE_SET HEADERS)
install(EXPORT VantroProfileUtilsTargets NAMESPACE VantroProfileUtils::
        FILE VantroProfileUtilsConfig.cmake DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VantroProfileUtils)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VantroProfileUtilsConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VantroProfileUtilsConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VantroProfileUtils)
