#!/usr/bin/env bash
# Installs what is missing, builds the program and its delivered databases (not
# the tests), and starts it from its folder. It needs a desktop: on a machine
# without one, run it as `xvfb-run scripts/run.sh`.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh quillon delivered_databases
exec build/Quillon2/quillon
