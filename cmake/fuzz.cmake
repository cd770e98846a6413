# Fuzz targets, for clang: each reads bytes through one parser and holds it against its writer.
# `ninja fuzz` builds them all and nothing else.
add_custom_target(fuzz)
file(GLOB fuzzSources CONFIGURE_DEPENDS fuzz/fuzz_*.cpp)
foreach(source ${fuzzSources})
  get_filename_component(name ${source} NAME_WE)
  add_executable(${name} ${source})
  target_link_libraries(${name} PRIVATE zorvant_diagrams)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  add_dependencies(fuzz ${name})
endforeach()
# Designs are painted too, where the toolkit is there.
if(TARGET zorvant_qt)
  add_executable(fuzz_paint fuzz/qt/fuzz_paint.cpp)
  target_link_libraries(fuzz_paint PRIVATE zorvant_qt)
  target_link_options(fuzz_paint PRIVATE -fsanitize=fuzzer)
  add_dependencies(fuzz fuzz_paint)
endif()
