# The compiler settings of every target in this project.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# Without the check, CMake compiles position-independent code but does not ask the linker for such a program.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# The installed program takes its libraries from the system only.
set(CMAKE_SKIP_INSTALL_RPATH ON)

option(TARVOLT_COVERAGE "Count how often each branch is taken (needs Clang)" OFF)
set(TARVOLT_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize= takes them")

# When it optimises, GCC 12 mistakes a string concatenation for an overlapping copy; GCC 13 no longer does.
set(gcc12 "$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>")

add_library(tarvolt_options INTERFACE)
target_include_directories(tarvolt_options INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_options(
  tarvolt_options
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wsign-conversion
            -Wold-style-cast
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Wnull-dereference
            -Wimplicit-fallthrough
            $<${gcc12}:-Wno-restrict>)
if(NOT TARVOLT_SANITIZE AND NOT TARVOLT_COVERAGE)
  # The tests get what people run. The sanitizers have checks of their own, and fortified calls need optimisation.
  target_compile_options(tarvolt_options INTERFACE -fstack-protector-strong -fstack-clash-protection
                                                   "$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
  target_link_options(tarvolt_options INTERFACE LINKER:-z,relro,-z,now)
endif()
if(TARVOLT_SANITIZE)
  # The check of an object's type (vptr) probes memory by writing to a pipe. Tests that intercept system calls would take
  # that for a write by the program.
  target_compile_options(tarvolt_options INTERFACE -fsanitize=${TARVOLT_SANITIZE} -fno-sanitize=vptr
                                                   -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tarvolt_options INTERFACE -fsanitize=${TARVOLT_SANITIZE})
endif()
if(TARVOLT_COVERAGE)
  # With relocation the counters live in their file, so they survive a process that ends itself.
  target_compile_options(tarvolt_options INTERFACE -fprofile-instr-generate -fcoverage-mapping
                                                   "SHELL:-mllvm -runtime-counter-relocation")
  target_link_options(tarvolt_options INTERFACE -fprofile-instr-generate)
endif()

# Defines a layer: a library of the sources in this folder and the subfolders given. Its headers are also compiled on
# their own. The program's entry is in no layer.
function(tarvolt_layer name)
  list(TRANSFORM ARGN PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/" OUTPUT_VARIABLE folders)
  list(PREPEND folders "${CMAKE_CURRENT_SOURCE_DIR}")
  list(TRANSFORM folders APPEND "/*.cpp" OUTPUT_VARIABLE source_patterns)
  list(TRANSFORM folders APPEND "/*.h" OUTPUT_VARIABLE header_patterns)
  file(GLOB sources CONFIGURE_DEPENDS ${source_patterns})
  file(GLOB headers CONFIGURE_DEPENDS ${header_patterns})
  list(FILTER sources EXCLUDE REGEX "/(main|tarvolt_app)\\.cpp$")
  list(FILTER headers EXCLUDE REGEX "/tarvolt_app\\.h$")
  add_library(${name} STATIC ${sources})
  target_sources(
    ${name}
    PUBLIC FILE_SET
           HEADERS
           BASE_DIRS
           "${PROJECT_SOURCE_DIR}"
           FILES
           ${headers})
  set_target_properties(${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
  target_link_libraries(${name} PUBLIC tarvolt_options)
endfunction()
