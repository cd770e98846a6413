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
# Designs are painted too, where the toolkit is there: with the sources of the painting alone.
if(TARGET zorvant_qt)
  file(GLOB paintSources CONFIGURE_DEPENDS shell/qt/plot_*.cpp shell/qt/plot_view.h
    shell/qt/meta*.cpp shell/qt/symbol_stamps.cpp shell/qt/qt_text.cpp)
  list(FILTER paintSources EXCLUDE REGEX "/plot_output\\.cpp$")
  add_executable(fuzz_paint fuzz/qt/fuzz_paint.cpp ${paintSources})
  set_target_properties(fuzz_paint PROPERTIES AUTOMOC ON)
  target_compile_definitions(fuzz_paint PRIVATE QT_NO_CAST_TO_ASCII QT_USE_QSTRINGBUILDER
    QCUSTOMPLOT_USE_LIBRARY)
  target_precompile_headers(fuzz_paint PRIVATE <QtWidgets> <algorithm> <array> <cmath>)
  target_link_libraries(fuzz_paint PRIVATE zorvant_diagrams Qt6::Widgets Qt6::Svg
    QCustomPlotQt6::QCustomPlotQt6)
  target_link_options(fuzz_paint PRIVATE -fsanitize=fuzzer)
  add_dependencies(fuzz fuzz_paint)
endif()
