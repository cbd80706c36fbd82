# Compiler options shared by every target.

# Optimised, but with every assertion compiled in: a wrong invariant should stop the editor before it writes a file.
set(CMAKE_CXX_FLAGS_RELEASE "-O2")
set(CMAKE_C_FLAGS_RELEASE "-O2")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  # Assembler sources are left out: ccache does not track what `.incbin` reads.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
  set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_library(tesselor_options INTERFACE)
# No contraction of multiplications and additions: layout and pixels are then the same for every optimisation level.
target_compile_options(tesselor_options INTERFACE
  $<$<COMPILE_LANGUAGE:C,CXX>:-Wall;-Wextra;-Wno-unused-parameter;-ffp-contract=off>)
if(TESSELOR_WARNINGS_AS_ERRORS)
  target_compile_options(tesselor_options INTERFACE $<$<COMPILE_LANGUAGE:C,CXX>:-Werror>)
endif()
if(TESSELOR_SANITIZE)
  target_compile_options(tesselor_options INTERFACE
    $<$<COMPILE_LANGUAGE:C,CXX>:-fsanitize=address,undefined;-fno-sanitize-recover=undefined;-fno-omit-frame-pointer>)
  target_link_options(tesselor_options INTERFACE -fsanitize=address,undefined)
endif()
if(TESSELOR_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "Fuzz targets need clang: configure with the preset 'fuzz'.")
  endif()
  # The libraries are instrumented as well, else the fuzzer would be blind to the code under test.
  target_compile_options(tesselor_options INTERFACE $<$<COMPILE_LANGUAGE:C,CXX>:-fsanitize=fuzzer-no-link>)
  target_link_options(tesselor_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
