# Every third-party library comes from the system's packages.
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
pkg_check_modules(CJSON REQUIRED IMPORTED_TARGET libcjson)
pkg_check_modules(SDL2 REQUIRED IMPORTED_TARGET sdl2)
pkg_check_modules(FREETYPE REQUIRED IMPORTED_TARGET freetype2)
pkg_check_modules(HARFBUZZ REQUIRED IMPORTED_TARGET harfbuzz)
pkg_check_modules(FONTCONFIG REQUIRED IMPORTED_TARGET fontconfig)
pkg_check_modules(PUGIXML REQUIRED IMPORTED_TARGET pugixml)
pkg_check_modules(PNG REQUIRED IMPORTED_TARGET libpng)
pkg_check_modules(UUID REQUIRED IMPORTED_TARGET uuid)
pkg_check_modules(FRIBIDI REQUIRED IMPORTED_TARGET fribidi)
find_library(UNIBREAK_LIBRARY unibreak REQUIRED)

add_library(toolkit_dependencies INTERFACE)
target_link_libraries(toolkit_dependencies INTERFACE PkgConfig::SDL2 PkgConfig::FREETYPE PkgConfig::HARFBUZZ
  PkgConfig::FONTCONFIG PkgConfig::PUGIXML PkgConfig::PNG PkgConfig::FRIBIDI ${UNIBREAK_LIBRARY} Threads::Threads)
add_library(tesselor_dependencies INTERFACE)
target_link_libraries(tesselor_dependencies INTERFACE PkgConfig::CJSON PkgConfig::UUID Threads::Threads ${CMAKE_DL_LIBS})

# Hundreds of thousands of small objects live in a large document. This allocator makes them in half the time, and
# takes memory in huge pages. The sanitizers bring an allocator of their own.
if(NOT TESSELOR_SANITIZE AND NOT TESSELOR_FUZZ)
  pkg_check_modules(JEMALLOC REQUIRED IMPORTED_TARGET jemalloc)
endif()
