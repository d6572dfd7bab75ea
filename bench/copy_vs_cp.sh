#!/usr/bin/env bash
# Copy File(s), whole process, against cp run the same way: a tree of 20,000
# small files in 200 directories (Recurse) against `cp -r`, then one 1 GiB
# file against `cp`. Each run copies into a fresh destination; the copies are
# deleted before the next run and at the end, so /dev/shm holds at most the
# source and one copy.
source "$(dirname "$0")/common.sh"
DIRS=${DIRS:-200}
PER_DIR=${PER_DIR:-100}
BIG_MIB=${BIG_MIB:-1024}
TREE=$SCRATCH/copy-tree
TREE_COPY=$SCRATCH/copy-tree-out
BIG=$SCRATCH/copy-big.bin
BIG_COPY=$SCRATCH/copy-big-out.bin

# make_tree: DIRS directories of PER_DIR files of 512 bytes each, written by
# the shell itself so that making 20,000 files takes no 20,000 processes.
make_tree() {
  rm -rf "$TREE" && mkdir -p "$TREE"
  local data d f
  data=$(head -c 384 /dev/urandom | base64 -w0)
  for d in $(seq -f 'd%03g' 0 $((DIRS - 1))); do
    mkdir "$TREE/$d"
    for f in $(seq -f 'f%03g.o' 0 $((PER_DIR - 1))); do printf '%s' "$data" > "$TREE/$d/$f"; done
  done
}

write_project() {  # FILE SPEC TARGET [extra properties]
  cat > "$1" <<XML
<?xml version="1.0" encoding="UTF-8"?>
<Project>
  <Actions>
    <Action Class="TCopyFilesAction">
      <Property Name="FileSpec">$2</Property>
      <Property Name="Target">$3</Property>
      $4
    </Action>
  </Actions>
</Project>
XML
}

trap 'rm -rf "$TREE" "$TREE_COPY" "$BIG" "$BIG_COPY"' EXIT

make_tree
write_project "$SCRATCH/copy-tree.xml" "$TREE/*" "$TREE_COPY" \
  '<Property Name="TargetIsDir">True</Property><Property Name="Force">True</Property><Property Name="Recurse">True</Property>'
hyperfine -N --warmup 1 --runs "$RUNS" --export-json "$SCRATCH/copy-tree.json" \
  --prepare "rm -rf $TREE_COPY" --cleanup "rm -rf $TREE_COPY" \
  "$JAXTOR run $SCRATCH/copy-tree.xml --unattended --log $SCRATCH/copy-tree.log" \
  "cp -r $TREE $TREE_COPY"
[ "$(find "$TREE" -type f | wc -l)" -eq $((DIRS * PER_DIR)) ] || { echo "the tree is incomplete" >&2; exit 1; }
rm -rf "$TREE" "$TREE_COPY"

head -c $((BIG_MIB * 1024 * 1024)) /dev/urandom > "$BIG"
write_project "$SCRATCH/copy-big.xml" "$BIG" "$BIG_COPY" ''
hyperfine -N --warmup 1 --runs "$RUNS" --export-json "$SCRATCH/copy-big.json" \
  --prepare "rm -f $BIG_COPY" --cleanup "rm -f $BIG_COPY" \
  "$JAXTOR run $SCRATCH/copy-big.xml --unattended --log $SCRATCH/copy-big.log" \
  "cp $BIG $BIG_COPY"

echo "tree of $((DIRS * PER_DIR)) files: jaxtor / cp -r = $(ratio_of "$SCRATCH/copy-tree.json"), cpu $(cpu_ratio_of "$SCRATCH/copy-tree.json") (target 1.20)"
echo "one file of $BIG_MIB MiB: jaxtor / cp = $(ratio_of "$SCRATCH/copy-big.json"), cpu $(cpu_ratio_of "$SCRATCH/copy-big.json") (target 1.10)"
