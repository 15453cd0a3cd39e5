#!/usr/bin/env bash
# Installs the library from a build tree into a scratch prefix, builds the consumers
# against it with find_package and pkg-config, and runs them on a scratch store: the
# headless one (core/, the core library alone) always; the desktop one (the Qt layer
# too) when the widgets were built, else checks that asking for them fails with the
# reason.
# Usage: check.sh SOURCE_DIR BUILD_DIR WIDGETS    (WIDGETS: ON or OFF)
set -euo pipefail
src="$1"
build="$2"
widgets="$3"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
fail() {
  echo "consumer check: $*" >&2
  exit 1
}

cmake --install "$build" --prefix "$work/prefix" >/dev/null
export PKG_CONFIG_PATH="$work/prefix/lib/pkgconfig:$work/prefix/lib/x86_64-linux-gnu/pkgconfig"
pkg-config --exists vglobal
config="$(find "$work/prefix" -name vglobalConfig.cmake)"
# The core's targets name no Qt target, so a headless program builds without Qt.
if grep -l Qt "$(dirname "$config")"/vglobalTargets*.cmake; then
  fail "the core's exported targets name Qt"
fi
configure() {
  cmake -S "$1" -B "$2" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix"
}
mkdir -p "$work/store"

# Both programs run as a user runs them: no LD_LIBRARY_PATH, the libraries found
# through the run paths of the installed files.
configure "$src/tests/consumer/core" "$work/core" >/dev/null
cmake --build "$work/core" >/dev/null
if readelf -d "$work/core/core_consumer" | grep -i 'NEEDED.*qt'; then
  fail "the core-only consumer loads Qt"
fi
ARVENIS_SETTINGS_DIR="$work/store" "$work/core/core_consumer"

if [ "$widgets" = ON ]; then
  configure "$src/tests/consumer" "$work/build" >/dev/null
  cmake --build "$work/build" >/dev/null
  ARVENIS_SETTINGS_DIR="$work/store" QT_QPA_PLATFORM=offscreen "$work/build/consumer"
elif configure "$src/tests/consumer" "$work/build" >"$work/widgets.log" 2>&1; then
  fail "find_package(vglobal COMPONENTS widgets) succeeded without the Qt layer"
elif ! grep -q 'widgets component' "$work/widgets.log"; then
  cat "$work/widgets.log" >&2
  fail "asking for the missing widgets component fails without saying why"
fi

if [ -x "$work/prefix/bin/arvenis-settings" ]; then
  ARVENIS_SETTINGS_DIR="$work/store" "$work/prefix/bin/arvenis-settings" defaults show >/dev/null
fi
