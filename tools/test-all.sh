#!/usr/bin/env bash
# Every test, through CTest: the unit tests on the headless platform (AddressSanitizer and
# UndefinedBehaviorSanitizer), a minute of fuzzing of the log reader and the report writer, and
# the release as a user gets it (the 32-bit exe from its zip) under 32-bit Wine: the package,
# its imports, the registry layer, the end-to-end scenarios and the compare page in Chromium.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/install-deps.sh test
for workflow in unit fuzz e2e; do
  echo "== $workflow"
  cmake --workflow --preset "$workflow"
done
