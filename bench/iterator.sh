#!/usr/bin/env bash
# File Iterator over 20,000 files in 200 directories (Recurse), whole process.
#  1. The host's cost per pass: a loop with one cheap child per file (Delete
#     File(s) on an empty directory), minus a project of the same number of
#     those children in a row; both logging to a file.
#  2. The search: a loop whose child fails on the first pass, so the run is
#     the search, the logged list and one pass; against `find DIR -name PATTERN`.
source "$(dirname "$0")/common.sh"
DIRS=${DIRS:-200}
PER_DIR=${PER_DIR:-100}
COUNT=$((DIRS * PER_DIR))
TREE=$SCRATCH/iterator-tree
mkdir -p "$SCRATCH/empty"

if [ "$(find "$TREE" -name '*.o' 2>/dev/null | wc -l)" != "$COUNT" ]; then
  rm -rf "$TREE"
  for i in $(seq -f '%03g' 0 $((DIRS - 1))); do make_files "$TREE/d$i" "$PER_DIR"; done
fi

child() {  # FAIL_IF_NO_FILE
  echo "<Action Class=\"TDeleteFilesAction\"><Property Name=\"FileSpec\">$SCRATCH/empty/*.o</Property><Property Name=\"FailIfNoFile\">$1</Property></Action>"
}
loop_project() {  # FILE FAIL_IF_NO_FILE
  {
    echo '<?xml version="1.0" encoding="UTF-8"?><Project><Actions>'
    echo '<Action Class="TFileIterator"><Property Name="VariableName">FILE</Property>'
    echo "<Property Name=\"FileSpec\">$TREE/*.o</Property><Property Name=\"Recurse\">True</Property>"
    echo "<Actions>$(child "$2")</Actions></Action>"
    echo '</Actions></Project>'
  } > "$1"
}
children_project() {  # FILE N
  {
    echo '<?xml version="1.0" encoding="UTF-8"?><Project><Actions>'
    for _ in $(seq "$2"); do child False; done
    echo '</Actions></Project>'
  } > "$1"
}
loop_project "$SCRATCH/loop.xml" False
loop_project "$SCRATCH/search.xml" True
children_project "$SCRATCH/children.xml" "$COUNT"
children_project "$SCRATCH/one.xml" 1

measure() {  # NAME COMMAND...: mean seconds into $NAME
  hyperfine -N -i --runs "$RUNS" --export-json "$SCRATCH/$1.json" "${*:2}" >/dev/null
  printf -v "$1" '%s' "$(mean_of "$SCRATCH/$1.json")"
}
measure loop "$JAXTOR run $SCRATCH/loop.xml --unattended --log $SCRATCH/loop.log"
measure children "$JAXTOR run $SCRATCH/children.xml --unattended --log $SCRATCH/children.log"
measure search "$JAXTOR run $SCRATCH/search.xml --unattended"
measure one "$JAXTOR run $SCRATCH/one.xml --unattended"
measure find "find $TREE -name *.o"
grep -q "Found $COUNT Files." "$SCRATCH/loop.log" || { echo "the loop did not find $COUNT files" >&2; exit 1; }

awk -v l="$loop" -v c="$children" -v s="$search" -v o="$one" -v f="$find" -v n="$COUNT" 'BEGIN {
  printf "loop of %d passes: %.3f s; %d children alone: %.3f s\n", n, l, n, c
  printf "host cost per pass: %.1f us (search included), %.1f us (search excluded)\n",
         (l - c) / n * 1e6, (l - c - (s - o)) / n * 1e6
  printf "search run: %.1f ms; find: %.1f ms; ratio %.2f (a one-action project: %.1f ms)\n",
         s * 1e3, f * 1e3, s / f, o * 1e3
}'
