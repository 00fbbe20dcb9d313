# The window: the bridge between the view state and the toolkit, the drawing, the QML that uses both, and the program.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core DBus Gui Qml Quick Svg Widgets LinguistTools)
qt_standard_project_setup()

# The code that asks a Wayland compositor to keep another program's window over ours.
enable_language(C)
find_library(WAYLAND_CLIENT wayland-client REQUIRED)
find_program(WAYLAND_SCANNER wayland-scanner REQUIRED)
find_file(XDG_FOREIGN wayland-protocols/unstable/xdg-foreign/xdg-foreign-unstable-v2.xml PATHS /usr/share REQUIRED)
set(wayland_sources "${CMAKE_CURRENT_BINARY_DIR}/wayland")
set(xdg_foreign "${wayland_sources}/xdg-foreign-unstable-v2")
file(MAKE_DIRECTORY "${wayland_sources}")
add_custom_command(
  OUTPUT "${xdg_foreign}.c" "${xdg_foreign}-client-protocol.h"
  COMMAND "${WAYLAND_SCANNER}" private-code "${XDG_FOREIGN}" "${xdg_foreign}.c"
  COMMAND "${WAYLAND_SCANNER}" client-header "${XDG_FOREIGN}" "${xdg_foreign}-client-protocol.h"
  DEPENDS "${XDG_FOREIGN}"
  VERBATIM)
add_library(tarvolt_xdg_foreign STATIC "${xdg_foreign}.c" "${xdg_foreign}-client-protocol.h")
set_target_properties(tarvolt_xdg_foreign PROPERTIES AUTOMOC OFF)
target_include_directories(tarvolt_xdg_foreign SYSTEM INTERFACE "${wayland_sources}")
target_link_libraries(tarvolt_xdg_foreign PUBLIC "${WAYLAND_CLIENT}")

file(GLOB window_sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/bridge/*.cpp"
     "${CMAKE_CURRENT_SOURCE_DIR}/drawing/*.cpp")
file(GLOB window_headers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/bridge/*.h"
     "${CMAKE_CURRENT_SOURCE_DIR}/drawing/*.h")
file(GLOB_RECURSE qml_files RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" CONFIGURE_DEPENDS
     "${CMAKE_CURRENT_SOURCE_DIR}/*.qml")
file(GLOB pictures RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" CONFIGURE_DEPENDS
     "${CMAKE_CURRENT_SOURCE_DIR}/symbols/*.svg" "${CMAKE_CURRENT_SOURCE_DIR}/shadows/*.png")
set_source_files_properties(drawing/snapped_items.cpp PROPERTIES COMPILE_DEFINITIONS
                                                                   TARVOLT_SMALL_ICON=${TARVOLT_SMALL_ICON})
set_source_files_properties(Theme.qml controls/Speech.qml PROPERTIES QT_QML_SINGLETON_TYPE TRUE)

# moc 6.4 stumbles over libstdc++'s <concepts>. With their include guards set, it skips these headers.
set(CMAKE_AUTOMOC_MOC_OPTIONS -D_GLIBCXX_CONCEPTS -D_GLIBCXX_COMPARE)

add_library(tarvolt_window STATIC ${window_sources} tarvolt_app.cpp)
target_link_libraries(tarvolt_window PRIVATE Qt6::GuiPrivate Qt6::Svg tarvolt_xdg_foreign)
target_sources(tarvolt_window PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${window_headers}
                                                                                              tarvolt_app.h)
set_target_properties(tarvolt_window PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
qt_add_qml_module(
  tarvolt_window
  URI Tarvolt
  VERSION 1.0
  DEPENDENCIES QtQuick
  RESOURCE_PREFIX /qt/qml
  OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/qml/Tarvolt"
  QML_FILES ${qml_files}
  RESOURCES ${pictures})
# Bytecode starts as quickly as machine code here, and builds in a fraction of the time.
set_target_properties(tarvolt_window PROPERTIES QT_QMLCACHEGEN_ARGUMENTS --only-bytecode)
target_link_libraries(tarvolt_window PUBLIC tarvolt_view Qt6::Core Qt6::DBus Qt6::Gui Qt6::Qml Qt6::Quick Qt6::Widgets)
# The registration that the toolkit generates names the headers of the QML types without their folder.
target_include_directories(tarvolt_window PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/bridge"
                                                  "${CMAKE_CURRENT_SOURCE_DIR}/drawing")

# The texts of the window. tarvolt_en.ts is the template for other languages: the target tarvolt_texts brings it up to
# date, and a test tells when that has been forgotten. Each tarvolt_<language>.ts beside it is built in.
file(GLOB text_sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp"
     "${CMAKE_CURRENT_SOURCE_DIR}/bridge/toolkit_panel.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/sections/*.cpp"
     "${PROJECT_SOURCE_DIR}/model/*.cpp")
list(TRANSFORM qml_files PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/" OUTPUT_VARIABLE text_qml)
set(TARVOLT_LUPDATE
    Qt6::lupdate -silent -no-obsolete -locations none -source-language en -tr-function-alias translate+=localized
    ${text_sources} ${text_qml} -ts)
add_custom_target(tarvolt_texts COMMAND ${TARVOLT_LUPDATE} "${CMAKE_CURRENT_SOURCE_DIR}/translations/tarvolt_en.ts")

file(GLOB translations CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/translations/tarvolt_*.ts")
qt_add_lrelease(tarvolt_window TS_FILES ${translations} QM_FILES_OUTPUT_VARIABLE compiled_translations)
qt_add_resources(tarvolt_window tarvolt_translations PREFIX /i18n BASE "${CMAKE_CURRENT_BINARY_DIR}"
                 FILES ${compiled_translations})

# The sources that the toolkit generates do not compile without warnings. They are known once the folder has been read.
function(tarvolt_quiet_generated_sources)
  foreach(target IN ITEMS tarvolt_window tarvolt_windowplugin tarvolt_windowplugin_init tarvolt_window_qmlcache)
    if(TARGET ${target})
      get_target_property(sources ${target} SOURCES)
      list(FILTER sources INCLUDE REGEX "^${PROJECT_BINARY_DIR}/.*\\.cpp$")
      set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS -w)
    endif()
  endforeach()
endfunction()
cmake_language(DEFER CALL tarvolt_quiet_generated_sources)

add_executable(tarvolt main.cpp)
target_link_libraries(tarvolt PRIVATE tarvolt_window tarvolt_windowplugin)
target_compile_definitions(tarvolt PRIVATE TARVOLT_VERSION="${PROJECT_VERSION}")
