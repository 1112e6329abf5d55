# How every target of the project is built: language level, warnings, floating-point rules, tests.

if(PROJECT_IS_TOP_LEVEL)
    set(CMAKE_CXX_EXTENSIONS OFF)
    set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
    set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
    if(NOT CMAKE_BUILD_TYPE)
        set(CMAKE_BUILD_TYPE Release)
    endif()
endif()

find_package(PkgConfig REQUIRED)
set(THREADS_PREFER_PTHREAD_FLAG ON)
find_package(Threads REQUIRED)

# What a program is built with against attackers: it lies at an address of chance, its tables of functions are read only
# once it runs, returns and calls are guarded, and so are copies into arrays whose size the compiler knows. It changes no
# number. tests/tools/hardening_test.py looks at the built programs.
option(ZOREL_HARDENING "Build programs that are hard to take over" ${PROJECT_IS_TOP_LEVEL})
add_library(zorel_hardening INTERFACE)
if(ZOREL_HARDENING)
    include(CheckCXXCompilerFlag)
    include(CheckPIESupported)
    check_pie_supported(LANGUAGES CXX)
    check_cxx_compiler_flag(-fcf-protection=full ZOREL_HAS_CF_PROTECTION) # x86 only
    check_cxx_compiler_flag(-fstack-clash-protection ZOREL_HAS_STACK_CLASH_PROTECTION)
    set_target_properties(zorel_hardening PROPERTIES INTERFACE_POSITION_INDEPENDENT_CODE ON)
    target_compile_options(zorel_hardening INTERFACE
        -fstack-protector-strong
        $<$<BOOL:${ZOREL_HAS_CF_PROTECTION}>:-fcf-protection=full>
        $<$<BOOL:${ZOREL_HAS_STACK_CLASH_PROTECTION}>:-fstack-clash-protection>)
    target_link_options(zorel_hardening INTERFACE LINKER:-z,relro,-z,now,-z,noexecstack)
    # The C library's guards of copies need an optimising compiler, and keep the sanitizers from seeing those copies.
    string(TOUPPER "CMAKE_CXX_FLAGS_${CMAKE_BUILD_TYPE}" zorel_flags_of_build)
    set(zorel_flags "${CMAKE_CXX_FLAGS} ${${zorel_flags_of_build}}")
    if(zorel_flags MATCHES "-O[123s]" AND NOT zorel_flags MATCHES "-O0|-fsanitize")
        set(ZOREL_FORTIFIED ON)
        target_compile_options(zorel_hardening INTERFACE
            $<$<NOT:$<BOOL:$<TARGET_PROPERTY:ZOREL_UNOPTIMISED>>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>)
    endif()
endif()

option(ZOREL_WERROR "Let every warning be an error (our own presets do)" OFF)
add_library(zorel_options INTERFACE)
target_compile_features(zorel_options INTERFACE cxx_std_20)
target_compile_options(zorel_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion $<$<BOOL:${ZOREL_WERROR}>:-Werror>
    # The same bits from every compiler and at every optimisation level.
    -ffp-contract=off)
target_include_directories(zorel_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(zorel_options INTERFACE zorel_hardening)

function(zorel_add_folders)
    foreach(folder IN LISTS ARGN)
        add_subdirectory(${PROJECT_SOURCE_DIR}/${folder})
    endforeach()
endfunction()

# zorel_public_headers(folder header ...) hands headers of src/<folder> to other programs: copies that include one another
# as <zorel/folder/Header.h>, in the build folder for those that take the project in and in the installation.
function(zorel_public_headers folder)
    foreach(header IN LISTS ARGN)
        set(source ${PROJECT_SOURCE_DIR}/src/${folder}/${header})
        set(copy ${PROJECT_BINARY_DIR}/include/zorel/${folder}/${header})
        file(READ ${source} text)
        string(REGEX REPLACE "#include \"([a-z]+/[A-Za-z0-9]+\\.h)\"" "#include <zorel/\\1>" text "${text}")
        file(CONFIGURE OUTPUT ${copy} CONTENT "${text}" @ONLY NEWLINE_STYLE UNIX)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
        install(FILES ${copy} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zorel/${folder} COMPONENT dev)
    endforeach()
endfunction()

# zorel_library(name SOURCES a.cpp ... [HEADERS a.h ...] [PUBLIC libs ...] [PRIVATE libs ...]) makes the static library
# zorel_<name>, which other programs know as Zorel::<name>; HEADERS are those that they may include.
function(zorel_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;PUBLIC;PRIVATE" ${ARGN})
    add_library(zorel_${name} STATIC ${ARG_SOURCES})
    add_library(Zorel::${name} ALIAS zorel_${name})
    set_target_properties(zorel_${name} PROPERTIES
        POSITION_INDEPENDENT_CODE ON CXX_EXTENSIONS OFF EXPORT_NAME ${name})
    target_compile_features(zorel_${name} PUBLIC cxx_std_20)
    target_include_directories(zorel_${name} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src> $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    target_link_libraries(zorel_${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE} $<BUILD_INTERFACE:zorel_options>)
    file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR}/src ${CMAKE_CURRENT_SOURCE_DIR})
    zorel_public_headers(${folder} ${ARG_HEADERS})
endfunction()

# What nearly every test includes, read once for all of them. Tests themselves are not optimised: compiling them is most
# of the time that ./test takes, and what they call is optimised.
function(zorel_test_main)
    if(TARGET zorel_test_main)
        return()
    endif()
    # Everything that the tests labelled quick run; the sanitizer build makes nothing else.
    add_custom_target(quick_tests)
    find_package(GTest REQUIRED)
    add_library(zorel_test_options INTERFACE)
    target_compile_options(zorel_test_options INTERFACE -O0)
    target_include_directories(zorel_test_options INTERFACE ${PROJECT_SOURCE_DIR})
    target_compile_definitions(zorel_test_options INTERFACE
        ZOREL_SOURCE_DIR="${PROJECT_SOURCE_DIR}" ZOREL_BINARY_DIR="${PROJECT_BINARY_DIR}")
    target_link_libraries(zorel_test_options INTERFACE zorel_options GTest::gtest GTest::gmock)
    add_library(zorel_test_main OBJECT ${PROJECT_SOURCE_DIR}/tests/main.cpp)
    set_target_properties(zorel_test_main PROPERTIES ZOREL_UNOPTIMISED ON)
    if(ZOREL_HARDENING)
        # As the programs of tests are compiled, whose headers these are; what is no program would get -fPIC.
        target_compile_options(zorel_test_main PRIVATE -fPIE)
    endif()
    target_link_libraries(zorel_test_main PRIVATE zorel_test_options)
    target_precompile_headers(zorel_test_main PRIVATE
        <gtest/gtest.h> <gmock/gmock.h> <algorithm> <array> <cmath> <filesystem> <fstream> <functional> <map> <memory>
        <optional> <random> <regex> <set> <sstream> <stdexcept> <string> <string_view> <utility> <vector>)
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
    zorel_test_main()
    add_executable(${name}_test ${ARG_SOURCES})
    set_target_properties(${name}_test PROPERTIES ZOREL_UNOPTIMISED ON)
    target_link_libraries(${name}_test PRIVATE ${ARG_LIBS} zorel_test_options)
    if(ARG_MAIN)
        target_sources(${name}_test PRIVATE ${ARG_MAIN})
    else()
        target_sources(${name}_test PRIVATE $<TARGET_OBJECTS:zorel_test_main>)
        target_precompile_headers(${name}_test REUSE_FROM zorel_test_main)
    endif()
    add_test(NAME ${name} COMMAND ${name}_test --gtest_brief=1)
    if("quick" IN_LIST ARG_LABELS)
        add_dependencies(quick_tests ${name}_test)
    endif()
    set_tests_properties(${name} PROPERTIES
        LABELS "${ARG_LABELS}" TIMEOUT ${ARG_TIMEOUT} ENVIRONMENT "LC_ALL=C.UTF-8;TZ=Asia/Kolkata")
    if(NOT ARG_NO_TURKISH)
        add_test(NAME ${name}_turkish COMMAND ${name}_test --gtest_brief=1)
        set_tests_properties(${name}_turkish PROPERTIES
            LABELS turkish TIMEOUT ${ARG_TIMEOUT}
            ENVIRONMENT "LC_ALL=tr_TR.UTF-8;LOCPATH=${PROJECT_BINARY_DIR}/locale;TZ=Europe/Istanbul")
    endif()
endfunction()
