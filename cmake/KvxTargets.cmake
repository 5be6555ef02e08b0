# kvx_layer(name SOURCES a.cpp ... LINKS kvx_basic ... [PRIVATE_LINKS SQLite::SQLite3 ...])
# One folder of the library. Includes are written from the include root: "ui/TextBox.h", "adapters/sqlite/Driver.h".
function(kvx_layer name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PUBLIC
        "$<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/src>" "$<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}>")
    target_link_libraries(${name} PUBLIC ${arg_LINKS} PRIVATE $<BUILD_INTERFACE:kvx_warnings> ${arg_PRIVATE_LINKS})
endfunction()

# kvx_add_test(name SOURCES a_test.cpp ... LINKS kvx_ui ...)
# One test program, tests/<folder>; every TEST in it is a CTest of its own.
function(kvx_add_test name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINKS;ENVIRONMENT" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
    target_link_libraries(${name} PRIVATE ${arg_LINKS} GTest::gtest_main kvx_warnings)
    target_compile_definitions(${name} PRIVATE KVX_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
        PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;${arg_ENVIRONMENT}")
endfunction()
