#!/usr/bin/env bash
# Builds the manual: every page of the project as a site that opens from its folder, and the reference of the public
# headers. A link that leads nowhere and a public item without a description end it.
#
#   scripts/manual.sh           # build/manual/index.html
#   scripts/manual.sh --check   # the same, then spelling and licences too
. "$(dirname "$0")/common.sh"

need_packages "${manual_packages[@]}"
step "reference"
rm -rf build/manual-pages build/manual
mkdir -p build/manual-pages
doxygen docs/site/Doxyfile
step "pages"
scripts/manual_pages.py build/manual-pages
step "site"
mkdocs build --quiet --strict --config-file docs/site/mkdocs.yml
step "links"
scripts/check_links.py build/manual
[ "${1-}" = --check ] || exit 0

step "spelling"
scripts/check_spelling.py
step "licences"
reuse lint --quiet || reuse lint
step "checked"
