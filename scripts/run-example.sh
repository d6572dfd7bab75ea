#!/usr/bin/env bash
# On a fresh Debian machine: installs the packages, builds, then runs
# examples/clean-objects.xml on a few files it creates in examples/work.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/bootstrap.sh
bash scripts/build.sh

mkdir -p examples/work
touch examples/work/main.o examples/work/util.o examples/work/scratch.tmp examples/work/main.c
chmod a-w examples/work/util.o  # read-only: the example deletes it anyway (DeleteReadOnly)
echo "before: $(ls examples/work | tr '\n' ' ')"

build/jaxtor run examples/clean-objects.xml --log build/clean-objects.log --dump-variables build/clean-objects.json

echo "after:  $(ls examples/work | tr '\n' ' ')"
echo "log:    build/clean-objects.log; variables: build/clean-objects.json"
