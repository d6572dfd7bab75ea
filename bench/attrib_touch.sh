#!/usr/bin/env bash
# Set File Attributes (read-only on) and Touch File(s) with Recurse over a
# tree of 20,000 files in 200 directories, whole process, each beside the
# same work done by find + xargs (chmod, touch). The tree is made anew
# before every run. Prints the mean times and files per second.
source "$(dirname "$0")/common.sh"
DIRS=${DIRS:-200}
PER_DIR=${PER_DIR:-100}
TREE=$SCRATCH/tree
FILES=$((DIRS * PER_DIR))

# make_tree: TREE holds DIRS directories of PER_DIR empty files each.
make_tree() {
  rm -rf "$TREE" && mkdir -p "$TREE"
  for d in $(seq -f 'd%03g' 0 $((DIRS - 1))); do make_files "$TREE/$d" "$PER_DIR"; done
}
export -f make_tree make_files
export TREE DIRS PER_DIR

write_project() {  # FILE CLASS PROPERTIES...
  local file=$1 class=$2
  shift 2
  {
    echo '<?xml version="1.0" encoding="UTF-8"?>'
    echo "<Project><Actions><Action Class=\"$class\">"
    echo "<Property Name=\"FileSpec\">$TREE/*.o</Property><Property Name=\"Recurse\">True</Property>"
    for p in "$@"; do echo "$p"; done
    echo '</Action></Actions></Project>'
  } > "$file"
}
write_project "$SCRATCH/attrib.xml" TSetFileAttributesAction '<Property Name="ReadOnly">Set</Property>'
write_project "$SCRATCH/touch.xml" TTouchFilesAction '<Property Name="DateTime">2020-01-02T03:04:05</Property>'

# run_pair NAME PROJECT PEER_COMMAND
run_pair() {
  hyperfine -N --runs "$RUNS" --export-json "$SCRATCH/$1.json" --prepare "bash -c make_tree" \
    "$JAXTOR run $2 --unattended --log $SCRATCH/$1.log" "bash -c '$3'"
  local mean
  mean=$(mean_of "$SCRATCH/$1.json")
  awk -v m="$mean" -v n="$FILES" -v what="$1" \
    'BEGIN { printf "%s: %d files in %.3f s, %.0f files per second\n", what, n, m, n / m }'
}
run_pair attrib "$SCRATCH/attrib.xml" "find $TREE -name \"*.o\" -print0 | xargs -0 chmod a-w"
run_pair touch "$SCRATCH/touch.xml" "find $TREE -name \"*.o\" -print0 | xargs -0 touch -m -d \"2020-01-02 03:04:04\""
