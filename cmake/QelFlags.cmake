# The flags of our own code, in one place. Linked PRIVATE, so that no host inherits them.
set(QEL_SANITIZE "" CACHE STRING "Sanitizers to build with, e.g. address,undefined")
option(QEL_COVERAGE "Record coverage" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

find_program(QEL_CCACHE ccache)
if(QEL_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${QEL_CCACHE})
endif()

add_library(qel_flags INTERFACE)
target_compile_options(qel_flags INTERFACE
  -Wall -Wextra -Werror -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
  -Wno-non-virtual-dtor        # values and the context have no virtual destructor: their slot order is ABI
  -ffp-contract=off            # number entry promises plain double arithmetic on every processor
  $<$<CONFIG:Debug>:-O1>)
if(QEL_SANITIZE)
  # Their reports name functions and lines, and variables take a third of the compiler's time.
  target_compile_options(qel_flags INTERFACE -g1
    -fsanitize=${QEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(qel_flags INTERFACE -fsanitize=${QEL_SANITIZE})
endif()
if(QEL_COVERAGE)
  target_compile_options(qel_flags INTERFACE --coverage -O0)
  target_link_options(qel_flags INTERFACE --coverage)
endif()
if(QEL_FUZZ)
  target_compile_options(qel_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
