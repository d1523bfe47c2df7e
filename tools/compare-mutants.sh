#!/usr/bin/env bash
# What the mutation run of the compare page tries against each mutant, in Stryker's copy of the
# tree. The node tests come first, the cases worked out by hand before the slow simulation, each
# file in one process with a limit far beyond what it takes on a busy machine, so that a mutant
# that loops for ever is caught there, not at Stryker's timeout of the Chromium pass. With
# KELVARNITE_COMPARE_MUTANTS=node they alone decide: the statistics and the figures are numbers
# and texts that their tables give worked out by hand. Else a mutant that they miss meets the
# page joined from the mutated modules, as the build joins them, in Chromium.
set -euo pipefail
timeout 60 node tests/compare/modules.test.mjs >/dev/null
timeout 240 node tests/compare/coverage.test.mjs >/dev/null
[ "${KELVARNITE_COMPARE_MUTANTS:-}" = node ] && exit 0
cmake -DPAGE=src/compare/compare.html -DCSS=src/compare/compare.css -DMODULES=src/compare/modules.txt \
  -DVERSION=0 -DOUT="$PWD/compare.html" -P cmake/InlinePage.cmake
KELVARNITE_COMPARE_PAGE=$PWD/compare.html node --test tests/browser/compare.test.mjs
