#!/usr/bin/env bash
# What the mutation run of the compare page tries against each mutant, in Stryker's copy of the
# tree: the reader and statistics under node, then the page joined from the mutated modules, as
# the build joins them, in Chromium.
set -euo pipefail
node --test tests/compare/
cmake -DPAGE=src/compare/compare.html -DCSS=src/compare/compare.css -DMODULES=src/compare/modules.txt \
  -DVERSION=0 -DOUT="$PWD/compare.html" -P cmake/InlinePage.cmake
KELVARNITE_COMPARE_PAGE=$PWD/compare.html node --test tests/browser/compare.test.mjs
