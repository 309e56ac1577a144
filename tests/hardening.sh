#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
# Looks in the programs that are shipped for what the compiler and the linker were asked to protect.
# hardening.sh PROGRAM-OR-MODULE...
set -euo pipefail
faults=0
# want FILE WHAT PATTERN COMMAND...: the command tells of the file what the pattern stands for.
want() {
    if ! grep -Eq -- "$3" < <("${@:4}" "$1"); then
        printf '%s: no %s\n' "$(basename "$1")" "$2"
        faults=1
    fi
}
for file in "$@"; do
    [ -r "$file" ] || { echo "$file cannot be read"; exit 1; }
    want "$file" 'position-independent code' 'Type: +DYN' readelf -W -h
    want "$file" 'read-only relocations (relro)' 'GNU_RELRO' readelf -W -l
    want "$file" 'binding at the start (now)' 'BIND_NOW|FLAGS.*NOW' readelf -W -d
    want "$file" 'stack protector' '__stack_chk_fail' readelf -W -s
    if grep -Eq 'GNU_STACK.* RWE' < <(readelf -W -l "$file"); then
        printf '%s: the stack can be executed\n' "$(basename "$file")"
        faults=1
    fi
    # A module of the desktop's libraries alone may call nothing that has a checked sister.
    case $file in
    *.so) ;;
    *) want "$file" 'checked copies (fortify)' '__[a-z]+_chk@' readelf -W -s ;;
    esac
    # The note that says so is missing where the C library's own start files lack it: look at the instructions.
    case $(uname -m) in
    x86_64) want "$file" 'control-flow protection' 'endbr64' objdump -d --no-show-raw-insn --section=.text ;;
    esac
done
exit $faults
