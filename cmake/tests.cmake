# One test program per folder of tests/; ctest runs every test of it by name.
find_package(GTest REQUIRED)
include(GoogleTest)

add_test(NAME layers COMMAND python3 ${CMAKE_SOURCE_DIR}/tools/check_layers.py ${CMAKE_SOURCE_DIR})

function(zorvant_tests folder library)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${folder}/*.cpp)
  if(NOT sources) # a folder may hold nothing but data of other tests
    return()
  endif()
  add_executable(test_${folder} ${sources})
  target_link_libraries(test_${folder} PRIVATE ${library} GTest::gmock GTest::gtest_main)
  target_precompile_headers(test_${folder} PRIVATE <gtest/gtest.h>)
  target_compile_definitions(test_${folder} PRIVATE SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  gtest_discover_tests(test_${folder} TEST_PREFIX "${folder}: " DISCOVERY_TIMEOUT 60 ${ARGN})
endfunction()

zorvant_tests(platform zorvant_platform)
zorvant_tests(engine zorvant_engine)
target_sources(test_engine PRIVATE # the course is held against its plain form
  ${CMAKE_SOURCE_DIR}/bench/reference/course_reference.cpp
  ${CMAKE_SOURCE_DIR}/bench/reference/rate_laws_reference.cpp)
zorvant_tests(data zorvant_data)
zorvant_tests(reactors zorvant_reactors)
target_sources(test_reactors PRIVATE # searches and curves likewise
  ${CMAKE_SOURCE_DIR}/bench/reference/rate_laws_reference.cpp
  ${CMAKE_SOURCE_DIR}/bench/reference/reactors_reference.cpp)
zorvant_tests(residence zorvant_residence)
zorvant_tests(evaluation zorvant_evaluation)
target_sources(test_evaluation PRIVATE # the fits likewise
  ${CMAKE_SOURCE_DIR}/bench/reference/course_reference.cpp
  ${CMAKE_SOURCE_DIR}/bench/reference/rate_laws_reference.cpp
  ${CMAKE_SOURCE_DIR}/bench/reference/fit_reference.cpp)
# The table of agreeing digits in docs/numerics.md.
add_executable(certify_fits EXCLUDE_FROM_ALL ${CMAKE_SOURCE_DIR}/tools/certify_fits.cpp)
target_link_libraries(certify_fits PRIVATE zorvant_evaluation)
target_compile_definitions(certify_fits PRIVATE SOURCE_DIR="${CMAKE_SOURCE_DIR}")
zorvant_tests(simulations zorvant_simulations)
zorvant_tests(diagrams zorvant_diagrams)
zorvant_tests(dialogs "${dialogs}")
zorvant_tests(shell zorvant_shell)
if(ZORVANT_GUI)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Test) # key presses as the window system sends them
  # What the system's libraries keep until the end is not the program's leak.
  set(leaks "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tools/lsan.supp:print_suppressions=0")
  zorvant_tests(qt zorvant_qt
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;${leaks}")
  target_link_libraries(test_qt PRIVATE Qt6::Test)
  target_compile_definitions(test_qt PRIVATE ZORVANT_PROGRAM="$<TARGET_FILE:zorvant>")
  add_dependencies(test_qt zorvant)
endif()

# What fuzzing found stays found: each target's corpus runs through it in every build.
file(GLOB fuzzSources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/fuzz/fuzz_*.cpp)
foreach(source ${fuzzSources})
  get_filename_component(name ${source} NAME_WE)
  add_executable(replay_${name} ${source} ${CMAKE_SOURCE_DIR}/fuzz/replay_main.cpp)
  target_link_libraries(replay_${name} PRIVATE zorvant_diagrams)
  add_test(NAME "fuzz corpus: ${name}"
    COMMAND replay_${name} ${CMAKE_SOURCE_DIR}/fuzz/corpus/${name})
endforeach()
if(TARGET zorvant_qt) # each design in each format of pictures
  add_executable(replay_fuzz_paint ${CMAKE_SOURCE_DIR}/fuzz/qt/fuzz_paint.cpp
    ${CMAKE_SOURCE_DIR}/fuzz/replay_main.cpp)
  target_link_libraries(replay_fuzz_paint PRIVATE zorvant_qt)
  add_test(NAME "fuzz corpus: fuzz_paint"
    COMMAND replay_fuzz_paint ${CMAKE_SOURCE_DIR}/fuzz/corpus/fuzz_oc2)
  set_tests_properties("fuzz corpus: fuzz_paint" PROPERTIES
    ENVIRONMENT "LC_ALL=C.UTF-8;${leaks}")
endif()
