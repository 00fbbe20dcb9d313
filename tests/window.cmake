# The bridge, what is drawn and the real scene, one program that needs no display: it brings the offscreen platform.
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
file(GLOB window_tests CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/app/bridge/*.cpp"
     "${CMAKE_CURRENT_SOURCE_DIR}/app/drawing/*.cpp")
file(GLOB support CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/support/fake_*.cpp")
list(FILTER support EXCLUDE REGEX "_test\\.cpp$")
add_executable(tarvolt_window_tests ${window_tests} ${support})
target_link_libraries(tarvolt_window_tests PRIVATE tarvolt_window tarvolt_windowplugin GTest::gmock Qt6::Test)
gtest_discover_tests(tarvolt_window_tests DISCOVERY_TIMEOUT 60
                     PROPERTIES TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
# The scale of a display is settled when a program starts. At a whole one the renderer finds the pixels by itself.
add_test(NAME SnappedItemTest.HoldsAtAScaleOfOneAndAQuarter
         COMMAND tarvolt_window_tests --gtest_filter=SnappedItemTest.*:*WholePixels*:*LargerThanItIs)
set_tests_properties(SnappedItemTest.HoldsAtAScaleOfOneAndAQuarter PROPERTIES ENVIRONMENT QT_SCALE_FACTOR=1.25)
add_test(NAME ToolkitPanelLookTest.HoldsAtAScaleOfOneAndAHalf
         COMMAND tarvolt_window_tests --gtest_filter=ToolkitPanelLookTest.*:*WhereverTheListStands)
set_tests_properties(ToolkitPanelLookTest.HoldsAtAScaleOfOneAndAHalf PROPERTIES ENVIRONMENT QT_SCALE_FACTOR=1.5)

add_subdirectory(window)

# The template of the texts says what the program says.
get_directory_property(lupdate DIRECTORY "${PROJECT_SOURCE_DIR}/app" DEFINITION TARVOLT_LUPDATE)
set(template "${PROJECT_SOURCE_DIR}/app/translations/tarvolt_en.ts")
set(texts "${CMAKE_CURRENT_BINARY_DIR}/tarvolt_en.ts")
add_test(NAME texts.Copy COMMAND "${CMAKE_COMMAND}" -E copy "${template}" "${texts}")
add_test(NAME texts.Update COMMAND ${lupdate} "${texts}")
add_test(NAME texts.TheTemplateIsUpToDate
         COMMAND "${CMAKE_COMMAND}" -E compare_files "${texts}" "${template}")
set_tests_properties(texts.Copy PROPERTIES FIXTURES_SETUP texts_copied)
set_tests_properties(texts.Update PROPERTIES FIXTURES_SETUP texts_updated FIXTURES_REQUIRED texts_copied)
set_tests_properties(texts.TheTemplateIsUpToDate PROPERTIES FIXTURES_REQUIRED texts_updated)
