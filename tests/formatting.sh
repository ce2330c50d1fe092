#!/bin/sh
# Fails when a source file is not formatted as .clang-format says.
cd "$(dirname "$0")/.." || exit 1
find src player tests bench tools -name '*.cpp' -o -name '*.h' | xargs "$1" --dry-run --Werror
