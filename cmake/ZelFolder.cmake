# A folder is a target: these functions make one from the sources that lie in the calling folder.

# zel_folder(name [LINKS target...] [USES target...])
# An object library of all *.cpp here, with this folder as include directory for whoever links it.
# LINKS are seen through this folder's headers, USES by its sources only.
function(zel_folder name)
    cmake_parse_arguments(ARG "" "" "LINKS;USES" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    if(NOT sources) # a folder that waits for its first file
        file(TOUCH ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp)
        set(sources ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp)
    endif()
    add_library(${name} OBJECT ${sources})
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_USES})
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

# zel_test(target [LINKS target...] [FOLDERS target...])
# One GoogleTest program of all *.cpp here. FOLDERS gives access to the headers of library-internal folders
# whose objects come from the shared library in LINKS.
function(zel_test name)
    cmake_parse_arguments(ARG "" "" "LINKS;FOLDERS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE ${ARG_LINKS} GTest::gtest GTest::gmock GTest::gtest_main)
    foreach(folder IN LISTS ARG_FOLDERS)
        target_include_directories(${name} PRIVATE $<TARGET_PROPERTY:${folder},INTERFACE_INCLUDE_DIRECTORIES>)
    endforeach()
    target_compile_definitions(${name} PRIVATE
        ZEL_SOURCE_DIR="${CMAKE_SOURCE_DIR}" ZEL_BINARY_DIR="${CMAKE_BINARY_DIR}")
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
endfunction()
