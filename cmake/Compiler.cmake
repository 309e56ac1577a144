# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
# What every target of this project is compiled with.

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

find_program(MARVO_CCACHE ccache)
if(MARVO_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${MARVO_CCACHE})
endif()

if(MARVO_SANITIZE STREQUAL leak)
    # It takes the place of malloc and looks at the end what nobody points to; nothing is compiled differently, so
    # that all but the linking comes out of the compiler's cache.
    add_link_options(-fsanitize=leak)
elseif(MARVO_SANITIZE)
    add_compile_options(-fsanitize=${MARVO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${MARVO_SANITIZE})
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
