# Warnings, sanitizers and the compiler cache, the same for every target.
add_library(quorvel_options INTERFACE)
target_compile_options(quorvel_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # False alarms of g++ 12 about "text" + std::string in optimised builds (GCC bug 105651).
  target_compile_options(quorvel_options INTERFACE -Wno-restrict -Wno-stringop-overflow -Wno-array-bounds
                         -Wno-stringop-overread)
endif()
if(QUORVEL_STRICT)
  target_compile_options(quorvel_options INTERFACE -Werror)
endif()
if(QUORVEL_SANITIZE)
  add_compile_options(-fsanitize=${QUORVEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${QUORVEL_SANITIZE})
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
find_program(LLD_PROGRAM ld.lld)
if(LLD_PROGRAM)
  add_link_options(-fuse-ld=lld)
endif()
