# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
# What every target of this project is compiled and linked with.
include(CheckCXXCompilerFlag)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

# Where a loop is worth more than -O2, its file says so. For all of the program -O3 makes GCC 12 report plain
# container operations of the standard library as overflows (https://gcc.gnu.org/bugzilla/show_bug.cgi?id=105329).
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

# ccache keeps what was compiled with precompiled headers only if it may trust the compiler's check of their macros.
find_program(MARVO_CCACHE ccache)
if(MARVO_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros ${MARVO_CCACHE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        add_compile_options(-fpch-preprocess)
    endif()
endif()

# Sixty test programs are linked with the windows: mold takes a tenth of the time that ld needs.
find_program(MARVO_MOLD mold)
if(MARVO_MOLD AND NOT MARVO_SANITIZE)
    add_link_options(-fuse-ld=mold)
endif()

if(MARVO_SANITIZE STREQUAL leak)
    # It takes the place of malloc and looks at the end what nobody points to; nothing is compiled differently, so
    # that all but the linking comes out of the compiler's cache.
    add_link_options(-fsanitize=leak)
elseif(MARVO_SANITIZE)
    add_compile_options(-fsanitize=${MARVO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${MARVO_SANITIZE})
endif()

# The programs read files from strangers: what is shipped ends at once where memory would be overwritten.
# tests/hardening.sh looks for it in the programs.
if(NOT MARVO_SANITIZE OR MARVO_SANITIZE STREQUAL leak)
    add_compile_options("$<$<CONFIG:Release>:-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    add_compile_definitions("$<$<CONFIG:Release>:_GLIBCXX_ASSERTIONS>")
    foreach(flag -fstack-clash-protection -fcf-protection)
        string(MAKE_C_IDENTIFIER MARVO_HAS${flag} known)
        check_cxx_compiler_flag(${flag} ${known})
        if(${known})
            add_compile_options("$<$<CONFIG:Release>:${flag}>")
        endif()
    endforeach()
    add_link_options("$<$<CONFIG:Release>:-Wl,-z,relro;-Wl,-z,now>")
endif()

function(marvo_target_defaults target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
        -Wold-style-cast -Woverloaded-virtual -Wimplicit-fallthrough)
    if(MARVO_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH)
endfunction()
