# A folder is a target: these functions make one from the sources that lie in the calling folder.

# zel_precompiled(name HEADERS header... [LINKS target...] [EXECUTABLE])
# Headers that the targets named after PRECOMPILED below have before their first line: parsed once, not once a source.
# What goes into programs is compiled another way than what goes into libraries, so that each needs its own.
function(zel_precompiled name)
    cmake_parse_arguments(ARG "EXECUTABLE" "" "HEADERS;LINKS" ${ARGN})
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp CONTENT "int main() {}\n")
    if(ARG_EXECUTABLE)
        add_executable(${name} EXCLUDE_FROM_ALL ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    else()
        add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    endif()
    target_link_libraries(${name} PRIVATE ${ARG_LINKS})
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
    target_compile_options(${name} PRIVATE -fpch-preprocess)
endfunction()

# What zel_precompiled made, for a target. ccache looks into them by this flag.
function(zel_use_precompiled target precompiled)
    target_precompile_headers(${target} REUSE_FROM ${precompiled})
    target_compile_options(${target} PRIVATE -fpch-preprocess)
endfunction()

# zel_folder(name [LINKS target...] [USES target...] [PRECOMPILED target])
# An object library of all *.cpp here, with this folder as include directory for whoever links it.
# LINKS are seen through this folder's headers, USES by its sources only.
function(zel_folder name)
    cmake_parse_arguments(ARG "" "PRECOMPILED" "LINKS;USES" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    if(NOT sources) # a folder that waits for its first file
        file(TOUCH ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp)
        set(sources ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp)
    endif()
    add_library(${name} OBJECT ${sources})
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_USES})
    if(ARG_PRECOMPILED)
        zel_use_precompiled(${name} ${ARG_PRECOMPILED})
    endif()
endfunction()

# zel_library(name INCLUDE dir FOLDERS target... [LINKS target...])
# A shared library of the objects of FOLDERS; its users see INCLUDE and LINKS only.
function(zel_library name)
    cmake_parse_arguments(ARG "" "INCLUDE" "FOLDERS;LINKS" ${ARGN})
    set(objects)
    foreach(folder IN LISTS ARG_FOLDERS)
        list(APPEND objects $<TARGET_OBJECTS:${folder}>)
    endforeach()
    add_library(${name} SHARED ${objects})
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_include_directories(${name} PUBLIC ${ARG_INCLUDE})
    target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_FOLDERS})
endfunction()

# zel_test(target [LINKS target...] [FOLDERS target...] [PRECOMPILED target])
# One GoogleTest program of all *.cpp here. FOLDERS gives access to the headers of library-internal folders
# whose objects come from the shared library in LINKS.
function(zel_test name)
    cmake_parse_arguments(ARG "" "PRECOMPILED" "LINKS;FOLDERS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE ${ARG_LINKS} GTest::gtest GTest::gmock GTest::gtest_main)
    foreach(folder IN LISTS ARG_FOLDERS)
        target_include_directories(${name} PRIVATE $<TARGET_PROPERTY:${folder},INTERFACE_INCLUDE_DIRECTORIES>)
    endforeach()
    set_property(SOURCE ${sources} APPEND PROPERTY COMPILE_DEFINITIONS
        ZEL_SOURCE_DIR="${CMAKE_SOURCE_DIR}" ZEL_BINARY_DIR="${CMAKE_BINARY_DIR}")
    if(ARG_PRECOMPILED)
        zel_use_precompiled(${name} ${ARG_PRECOMPILED})
    endif()
    # What a test reads is kept in a cache of the build, not of whoever runs it.
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300
        ENVIRONMENT "XDG_CACHE_HOME=${CMAKE_BINARY_DIR}/cache")
endfunction()
