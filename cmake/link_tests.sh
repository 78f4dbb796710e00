#!/bin/sh
# link_tests.sh COMPILER ARGUMENT...: links with LLVM's linker, which takes a second where GNU's takes
# a minute. CMake calls it before the link command of a program of tests.
set -eu
runtime=$(dirname "$("$1" -print-libgcc-file-name)")
shift
exec clang++ --target=x86_64-w64-mingw32 -fuse-ld=lld "-L$runtime" "$@" -lpthread
