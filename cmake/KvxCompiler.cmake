# Compiler settings that every target of ours shares: warnings, sanitizers, ccache, clang-tidy.
add_library(kvx_warnings INTERFACE)
target_compile_options(kvx_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual
    -Wformat=2 -Wnull-dereference -Wno-error=null-dereference)

# GCC 12 takes  "text" + std::to_string(n)  for an overlapping copy once it is inlined; GCC 13 does not.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(kvx_warnings INTERFACE -Wno-restrict)
endif()

if(KVX_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

find_program(KVX_CCACHE ccache)
if(KVX_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${KVX_CCACHE}")
endif()

if(KVX_TIDY)
    find_program(KVX_CLANG_TIDY clang-tidy REQUIRED)
    set(CMAKE_CXX_CLANG_TIDY "${KVX_CLANG_TIDY};--quiet")
endif()
