#!/usr/bin/env bash
# Installs what is missing, builds and lets a random user loose in the program: ./monkey [steps] [seed] [preset].
# The same seed repeats the same steps. ./monkey 10000 7 sanitize uses the build with the sanitizers.
set -euo pipefail
cd "$(dirname "$0")"
source tools/setup.sh

steps=${1:-100000}
seed=${2:-1}
preset=${3:-release}
install_packages "${build_packages[@]}" "${test_packages[@]}"
configure "$preset" -DQUESTFORGE_TESTS=ON
build "$preset" stage monkey diskcalls
app_dir=out/Questforge
[ "$preset" = release ] || app_dir=out/$preset/Questforge
[ ! -d /dev/shm ] || export TMPDIR=/dev/shm # a busy disk would pass for a slow program
export LSAN_OPTIONS="suppressions=$PWD/tests/tour/foreign_leaks.txt:print_suppressions=0"
exec nice -n 19 /usr/bin/python3 -B tests/monkey/monkey.py "$app_dir" "out/$preset/tests/monkey" \
    "out/$preset/tests/torture/libdiskcalls.so" out/monkey "$steps" "$seed" long
