# The connection to the toolkit and the program.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets PrintSupport Svg)
find_package(QCustomPlotQt6 REQUIRED)

file(GLOB qtSources CONFIGURE_DEPENDS shell/qt/*.cpp shell/qt/*.h shell/qt/forms/*.ui
  shell/qt/*.qrc)
zorvant_library(zorvant_qt ${qtSources})
set_target_properties(zorvant_qt PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON
  AUTOGEN_ORIGIN_DEPENDS OFF # what is generated needs no other library
  AUTOUIC_SEARCH_PATHS ${CMAKE_SOURCE_DIR}/shell/qt/forms)
target_compile_definitions(zorvant_qt PUBLIC QT_NO_CAST_TO_ASCII QT_USE_QSTRINGBUILDER
  QCUSTOMPLOT_USE_LIBRARY)
target_compile_definitions(zorvant_qt PRIVATE ZORVANT_HELP_DIR="${CMAKE_SOURCE_DIR}/help")
target_precompile_headers(zorvant_qt PRIVATE <QtWidgets>)
target_link_libraries(zorvant_qt PUBLIC zorvant_shell Qt6::Widgets Qt6::PrintSupport Qt6::Svg
  QCustomPlotQt6::QCustomPlotQt6)

add_executable(zorvant shell/main.cpp)
target_compile_definitions(zorvant PRIVATE ZORVANT_VERSION="${PROJECT_VERSION}")
target_link_libraries(zorvant PRIVATE zorvant_qt)

add_executable(zorvant_tour EXCLUDE_FROM_ALL tools/tour/tour.cpp)
target_link_libraries(zorvant_tour PRIVATE zorvant_qt)
