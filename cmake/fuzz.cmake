# Fuzz targets, for clang: each reads bytes through one parser and holds it against its writer.
file(GLOB fuzzSources CONFIGURE_DEPENDS fuzz/fuzz_*.cpp)
foreach(source ${fuzzSources})
  get_filename_component(name ${source} NAME_WE)
  add_executable(${name} ${source})
  target_link_libraries(${name} PRIVATE zorvant_diagrams)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endforeach()
