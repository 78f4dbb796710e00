# Windows targets, cross-compiled with mingw-w64: the program, its tests and the stand-in.
add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0A00
                        WINVER=0x0A00)
add_link_options(-static)

add_library(marlune_edges STATIC ${EDGES_WIN})
as_one(marlune_edges)
target_link_libraries(
  marlune_edges PUBLIC marlune_logic ole32 oleaut32 uuid user32 gdi32 shell32 comctl32 d2d1 dwrite
                       shlwapi winmm ws2_32 gdiplus uxtheme dwmapi comdlg32 bcrypt iphlpapi)

enable_language(RC)
add_executable(marlune WIN32 src/main_win.cpp src/resources/marlune.rc)
set_source_files_properties(src/resources/marlune.rc PROPERTIES OBJECT_DEPENDS
                            ${CMAKE_SOURCE_DIR}/src/remote/page.html)
# What nothing calls is left out; with -ffunction-sections the padding costs more than that saves.
# Addresses are drawn anew at each start, from all of the 64-bit space, and data is not executable.
# Control Flow Guard would need checks that GCC does not generate.
target_link_options(
  marlune PRIVATE -municode -Wl,--gc-sections -Wl,--dynamicbase -Wl,--high-entropy-va
                  -Wl,--nxcompat -Wl,--no-insert-timestamp)
target_link_libraries(marlune PRIVATE marlune_edges)

# GoogleTest has no package for Windows; the distribution ships its source.
set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
add_subdirectory(/usr/src/googletest googletest EXCLUDE_FROM_ALL)

add_executable(marlune_tests ${TESTS_WIN})
target_link_libraries(marlune_tests PRIVATE marlune_fakes marlune_edges gtest_main oleacc)
tests(marlune_tests)
set_target_properties(marlune_tests PROPERTIES RULE_LAUNCH_LINK ${CMAKE_SOURCE_DIR}/cmake/link_tests.sh)

file(GLOB STANDIN CONFIGURE_DEPENDS tests/standin/*.cpp)
list(FILTER STANDIN EXCLUDE REGEX "_test\\.cpp$")
add_library(standin OBJECT ${STANDIN})
target_include_directories(standin PRIVATE tests)
set_target_properties(standin PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
# A window's program is told by the name of its image, so the one stand-in is linked under two.
foreach(image powerpnt wpp)
  add_executable(${image} WIN32)
  target_link_options(${image} PRIVATE -municode)
  target_link_libraries(${image} PRIVATE standin ole32 oleaut32 oleacc uuid user32 gdi32 shell32)
endforeach()

add_executable(netsh tests/netsh/netsh.cpp)

file(GLOB SYSTEM_TESTS CONFIGURE_DEPENDS tests/windows/*.cpp)
add_executable(marlune_system_tests ${SYSTEM_TESTS})
target_include_directories(marlune_system_tests PRIVATE tests)
target_link_libraries(marlune_system_tests PRIVATE marlune_edges gtest ntdll oleacc usp10 version)
set_target_properties(
  marlune_system_tests PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 24
                                  RULE_LAUNCH_LINK ${CMAKE_SOURCE_DIR}/cmake/link_tests.sh)

# The firewall of the tests for a program that is not one of theirs.
add_library(firewall SHARED tests/firewall/firewall_dll.cpp tests/windows/firewall_class.cpp)
target_include_directories(firewall PRIVATE tests)
target_link_options(firewall PRIVATE -Wl,--kill-at)
target_link_libraries(firewall PRIVATE marlune_edges)
set_target_properties(firewall PROPERTIES PREFIX "")

add_executable(marlune_paint_bench benchmarks/clock_paint_bench_win.cpp)
target_link_libraries(marlune_paint_bench PRIVATE marlune_edges)

add_executable(marlune_settings_bench benchmarks/settings_window_bench_win.cpp
                                      benchmarks/bare_settings_win.cpp
                                      tests/windows/host_program.cpp tests/windows/program.cpp
                                      tests/windows/standin_client.cpp tests/windows/start_process.cpp
                                      tests/windows/top_windows.cpp)
target_include_directories(marlune_settings_bench PRIVATE tests)
target_link_libraries(marlune_settings_bench PRIVATE marlune_edges gtest)
set_target_properties(marlune_settings_bench PROPERTIES UNITY_BUILD ON)

# What waiting costs: built and run by tests/idle/measure.
add_executable(marlune_idle_bare WIN32 EXCLUDE_FROM_ALL tests/idle/bare_win.cpp)
add_executable(marlune_idle_parts WIN32 EXCLUDE_FROM_ALL tests/idle/parts_win.cpp
                                                         src/resources/marlune.rc)
add_executable(marlune_idle_hand EXCLUDE_FROM_ALL tests/idle/hand_win.cpp)
foreach(target bare parts hand)
  target_link_options(marlune_idle_${target} PRIVATE -municode)
endforeach()
target_link_libraries(marlune_idle_parts PRIVATE marlune_edges)
target_link_libraries(marlune_idle_hand PRIVATE marlune_edges)

# Takes as long as one likes, so ./soak alone builds and runs it.
file(GLOB SOAK CONFIGURE_DEPENDS tests/soak/*.cpp)
set(SOAK_SHARED ${SYSTEM_TESTS})
list(FILTER SOAK_SHARED EXCLUDE REGEX "_test\\.cpp$")
add_executable(marlune_soak EXCLUDE_FROM_ALL ${SOAK} ${SOAK_SHARED})
target_include_directories(marlune_soak PRIVATE tests)
target_link_libraries(marlune_soak PRIVATE marlune_edges gtest ntdll oleacc usp10 version)
set_target_properties(
  marlune_soak PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0
                          RULE_LAUNCH_LINK ${CMAKE_SOURCE_DIR}/cmake/link_tests.sh)
