#!/usr/bin/env bash
# What every script of the repository needs: its settings, and all functions. The current folder is the checkout.
set -euo pipefail
shopt -s nullglob

if [ -z "${KODRA_CACHE:-}" ]; then
  KODRA_CACHE=/var/cache/kodra
  [ "$(id -u)" = 0 ] || KODRA_CACHE=${XDG_CACHE_HOME:-$HOME/.cache}/kodra
fi
export KODRA_CACHE

. tools/common.sh
. tools/setup.sh
. tools/build.sh
. tools/wine.sh
. tools/demo.sh
. tools/cluster.sh
. tools/test.sh
. tools/bench.sh
. tools/package.sh
. tools/licences.sh
. tools/installer.sh
. tools/package_test.sh
. tools/win64.sh
. tools/examples.sh
. tools/style.sh
. tools/fuzz.sh
. tools/engines.sh
. tools/reference.sh
. tools/console.sh
. tools/panel.sh
. tools/checked.sh
. tools/coverage.sh
. tools/checkouts.sh
. tools/check.sh
