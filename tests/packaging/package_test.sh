#!/usr/bin/env bash
# Makes the packages of this version, twice for comparison, and of an old one, and tries the installers.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
sums=$(tools/package)
[ "$(tools/package)" = "$sums" ] || { echo "the same sources gave other bytes" >&2; exit 1; }
tools/package --version 0.0.9 >/dev/null
exec tools/desktop -- tests/packaging/install_test.sh
