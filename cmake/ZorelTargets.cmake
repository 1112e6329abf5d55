# How every target of the project is built: language level, warnings, floating-point rules, tests.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release)
endif()

find_package(PkgConfig REQUIRED)
set(THREADS_PREFER_PTHREAD_FLAG ON)
find_package(Threads REQUIRED)

add_library(zorel_options INTERFACE)
target_compile_options(zorel_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Werror
    # The same bits from every compiler and at every optimisation level.
    -ffp-contract=off)
target_include_directories(zorel_options INTERFACE ${PROJECT_SOURCE_DIR}/src)

function(zorel_add_folders)
    foreach(folder IN LISTS ARGN)
        add_subdirectory(${PROJECT_SOURCE_DIR}/${folder})
    endforeach()
endfunction()

# zorel_library(name SOURCES a.cpp ... [PUBLIC libs ...] [PRIVATE libs ...]) makes the static library zorel_<name>.
function(zorel_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(zorel_${name} STATIC ${ARG_SOURCES})
    target_include_directories(zorel_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(zorel_${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE} $<BUILD_INTERFACE:zorel_options>)
endfunction()

# zorel_test(name SOURCES a.cpp ... LIBS libs ... [LABELS quick ...]) makes <name>_test and registers it with ctest,
# once in the plain environment and once under a Turkish locale whose decimal point is a comma.
function(zorel_test name)
    cmake_parse_arguments(ARG "NO_TURKISH" "TIMEOUT;MAIN" "SOURCES;LIBS;LABELS" ${ARGN})
    if(NOT ARG_LABELS)
        set(ARG_LABELS quick)
    endif()
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 300)
    endif()
    if(NOT ARG_MAIN)
        set(ARG_MAIN ${PROJECT_SOURCE_DIR}/tests/main.cpp)
    endif()
    find_package(GTest REQUIRED)
    add_executable(${name}_test ${ARG_SOURCES} ${ARG_MAIN})
    target_include_directories(${name}_test PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name}_test PRIVATE ${ARG_LIBS} GTest::gtest GTest::gmock zorel_options)
    target_compile_definitions(${name}_test PRIVATE
        ZOREL_SOURCE_DIR="${PROJECT_SOURCE_DIR}" ZOREL_BINARY_DIR="${PROJECT_BINARY_DIR}")
    add_test(NAME ${name} COMMAND ${name}_test --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES
        LABELS "${ARG_LABELS}" TIMEOUT ${ARG_TIMEOUT} ENVIRONMENT "LC_ALL=C.UTF-8;TZ=Asia/Kolkata")
    if(NOT ARG_NO_TURKISH)
        add_test(NAME ${name}_turkish COMMAND ${name}_test --gtest_brief=1)
        set_tests_properties(${name}_turkish PROPERTIES
            LABELS turkish TIMEOUT ${ARG_TIMEOUT}
            ENVIRONMENT "LC_ALL=tr_TR.UTF-8;LOCPATH=${PROJECT_BINARY_DIR}/locale;TZ=Europe/Istanbul")
    endif()
endfunction()
