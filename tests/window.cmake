# The bridge and the real scene, one program that needs no display: it brings the offscreen platform.
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
file(GLOB bridge_tests CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/app/bridge/*.cpp")
file(GLOB support CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/support/fake_*.cpp")
add_executable(tarvolt_window_tests ${bridge_tests} ${support})
target_link_libraries(tarvolt_window_tests PRIVATE tarvolt_window tarvolt_windowplugin GTest::gmock Qt6::Test)
gtest_discover_tests(tarvolt_window_tests DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")

add_subdirectory(window)
