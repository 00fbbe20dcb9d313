#!/usr/bin/env bash
# Takes the pictures of README.md and docs/guide.md anew, light and dark, from the guided tour.
set -euo pipefail
cd -P "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/setup.sh

needPackages build run drive
build release tarvolt
for palette in light dark; do
    /usr/bin/python3 tests/window/tour.py build/release/app/tarvolt "build/pictures/$palette" "$palette"
    mkdir -p "docs/pictures/$palette"
    for name in start projects preview; do
        cp "build/pictures/$palette/"[0-9]-"$name.png" "docs/pictures/$palette/$name.png"
    done
done
