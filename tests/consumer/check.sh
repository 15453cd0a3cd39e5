#!/usr/bin/env bash
# Installs the library from a build tree into a scratch prefix, builds the consumer
# against it with find_package and pkg-config, and runs it on a scratch store.
# Usage: check.sh SOURCE_DIR BUILD_DIR
set -euo pipefail
src="$1"
build="$2"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
cmake --install "$build" --prefix "$work/prefix" >/dev/null
export PKG_CONFIG_PATH="$work/prefix/lib/pkgconfig:$work/prefix/lib/x86_64-linux-gnu/pkgconfig"
cmake -S "$src/tests/consumer" -B "$work/build" -G Ninja \
  -DCMAKE_PREFIX_PATH="$work/prefix" >/dev/null
cmake --build "$work/build" >/dev/null
pkg-config --exists vglobal
mkdir -p "$work/store"
# Both run as a user runs them: no LD_LIBRARY_PATH, the libraries found through the
# run paths of the installed files.
ARVENIS_SETTINGS_DIR="$work/store" QT_QPA_PLATFORM=offscreen "$work/build/consumer"
if [ -x "$work/prefix/bin/arvenis-settings" ]; then
  ARVENIS_SETTINGS_DIR="$work/store" "$work/prefix/bin/arvenis-settings" defaults show >/dev/null
fi
