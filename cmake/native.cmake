# Native targets: the logic's tests, benchmarks and fuzzers over the POSIX edges.
find_package(GTest REQUIRED)

add_library(marlune_edges STATIC ${EDGES_POSIX})
as_one(marlune_edges)
target_link_libraries(marlune_edges PUBLIC marlune_logic)

file(GLOB ENDURANCE_TESTS CONFIGURE_DEPENDS tests/endurance/*.cpp)
add_executable(marlune_tests ${TESTS} ${ENDURANCE_TESTS})
target_link_libraries(marlune_tests PRIVATE marlune_fakes marlune_edges GTest::gtest_main)
tests(marlune_tests)
include(GoogleTest)
gtest_discover_tests(marlune_tests DISCOVERY_TIMEOUT 60)

set_source_files_properties(src/remote/page_posix_test.cpp PROPERTIES COMPILE_DEFINITIONS
                            MARLUNE_PAGE="${CMAKE_SOURCE_DIR}/src/remote/page.html")

# The tests of all that has a second thread, for the thread sanitizer.
file(GLOB REMOTE_TESTS CONFIGURE_DEPENDS src/http/*_test.cpp src/remote/*_test.cpp)
list(FILTER REMOTE_TESTS EXCLUDE REGEX "_win_test\\.cpp$")
add_executable(marlune_remote_tests EXCLUDE_FROM_ALL ${REMOTE_TESTS})
target_link_libraries(marlune_remote_tests PRIVATE marlune_fakes marlune_edges GTest::gtest_main)
tests(marlune_remote_tests)

# What takes long: run under the thread and the address sanitizer only.
file(GLOB LOAD_TESTS CONFIGURE_DEPENDS tests/load/*.cpp)
add_executable(marlune_load_tests EXCLUDE_FROM_ALL ${LOAD_TESTS})
target_link_libraries(marlune_load_tests PRIVATE marlune_fakes marlune_edges GTest::gtest_main)
set_target_properties(marlune_load_tests PROPERTIES UNITY_BUILD ON)

add_executable(marlune_headless tests/headless/main.cpp tests/headless/headless.cpp)
target_include_directories(marlune_headless PRIVATE tests)
target_link_libraries(marlune_headless PRIVATE marlune_fakes marlune_edges)

find_package(benchmark REQUIRED)
file(GLOB BENCHMARKS CONFIGURE_DEPENDS benchmarks/*_bench.cpp)
add_executable(marlune_bench ${BENCHMARKS})
target_link_libraries(marlune_bench PRIVATE marlune_fakes marlune_edges benchmark::benchmark_main)
set_target_properties(marlune_bench PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)

add_executable(marlune_remote_bench benchmarks/remote_bench_posix.cpp)
target_link_libraries(marlune_remote_bench PRIVATE marlune_fakes marlune_edges GTest::gtest
                                                   cpp-httplib microhttpd)

if(MARLUNE_FUZZ)
  foreach(target marlune_logic marlune_edges marlune_fakes)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endforeach()
  file(GLOB FUZZERS CONFIGURE_DEPENDS src/*/*_fuzz.cpp)
  foreach(source ${FUZZERS})
    get_filename_component(name ${source} NAME_WE)
    add_executable(${name} EXCLUDE_FROM_ALL ${source})
    target_link_libraries(${name} PRIVATE marlune_fakes marlune_edges -fsanitize=fuzzer)
  endforeach()
endif()
