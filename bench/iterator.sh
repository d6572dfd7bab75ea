#!/usr/bin/env bash
# File Iterator over 20,000 files in 200 directories (Recurse), whole process,
# every run logging to a file.
#  - The search: a loop whose child fails on the first pass, so the run is the
#    search, the logged list and one pass; against `find DIR -name PATTERN`.
#    Once as is (one extended attribute read per file for the stored hidden
#    and system bits) and once with --no-stored-attributes.
#  - The sparse search: the same tree holds 10 further files "*.zzz", one in
#    each of 10 directories; a search for them against `find -name '*.zzz'`.
#    A search that examines only the names that match and the directories
#    reads 210 attributes here; one that examines every entry, over 20,000.
#  - The extended-attribute reads of both searches, counted with strace.
#  - The host's cost per pass: a loop with one cheap child per file (Delete
#    File(s) on an empty directory), less the search run, less the child runs
#    alone: a project of as many such actions in a row, less the same project
#    with them disabled (loading 20,000 actions is no part of a pass).
source "$(dirname "$0")/common.sh"
DIRS=${DIRS:-200}
PER_DIR=${PER_DIR:-100}
SPARSE=${SPARSE:-10}
COUNT=$((DIRS * PER_DIR))
TREE=$SCRATCH/iterator-tree
mkdir -p "$SCRATCH/empty"

if [ "$(find "$TREE" -name '*.o' 2>/dev/null | wc -l)" != "$COUNT" ] ||
  [ "$(find "$TREE" -name '*.zzz' 2>/dev/null | wc -l)" != "$SPARSE" ]; then
  rm -rf "$TREE"
  for i in $(seq -f '%03g' 0 $((DIRS - 1))); do make_files "$TREE/d$i" "$PER_DIR"; done
  for i in $(seq 0 $((SPARSE - 1))); do : > "$TREE/d$(printf '%03d' $((i * DIRS / SPARSE)))/m$i.zzz"; done
fi

child() {  # FAIL_IF_NO_FILE
  echo "<Action Class=\"TDeleteFilesAction\"><Property Name=\"FileSpec\">$SCRATCH/empty/*.o</Property><Property Name=\"FailIfNoFile\">$1</Property></Action>"
}
loop_project() {  # FILE FAIL_IF_NO_FILE [MASK]
  {
    echo '<?xml version="1.0" encoding="UTF-8"?><Project><Actions>'
    echo '<Action Class="TFileIterator"><Property Name="VariableName">FILE</Property>'
    echo "<Property Name=\"FileSpec\">$TREE/${3:-*.o}</Property><Property Name=\"Recurse\">True</Property>"
    echo "<Actions>$(child "$2")</Actions></Action>"
    echo '</Actions></Project>'
  } > "$1"
}
children_project() {  # FILE ENABLED
  {
    echo '<?xml version="1.0" encoding="UTF-8"?><Project><Actions>'
    for _ in $(seq "$COUNT"); do child False; done | sed "s/<Action /<Action Enabled=\"$2\" /"
    echo '</Actions></Project>'
  } > "$1"
}
loop_project "$SCRATCH/loop.xml" False
loop_project "$SCRATCH/search.xml" True
loop_project "$SCRATCH/sparse.xml" True '*.zzz'
children_project "$SCRATCH/children.xml" True
children_project "$SCRATCH/disabled.xml" False

measure() {  # NAME COMMAND...: mean seconds into $NAME
  hyperfine -N -i --warmup 1 --runs "$RUNS" --export-json "$SCRATCH/$1.json" "${*:2}" >/dev/null
  printf -v "$1" '%s' "$(mean_of "$SCRATCH/$1.json")"
}
run() {  # PROJECT [OPTION...]: the jaxtor command line that runs it
  echo "$JAXTOR run $SCRATCH/$1.xml --unattended --log $SCRATCH/$1.log ${*:2}"
}
measure loop "$(run loop)"
measure search "$(run search)"
measure search_names "$(run search --no-stored-attributes)"
measure children "$(run children)"
measure disabled "$(run disabled)"
measure find "find $TREE -name *.o"
measure sparse "$(run sparse)"
measure find_sparse "find $TREE -name *.zzz"
grep -q "Found $COUNT Files." "$SCRATCH/loop.log" || { echo "the loop did not find $COUNT files" >&2; exit 1; }
grep -q "Found $SPARSE Files." "$SCRATCH/sparse.log" || { echo "the sparse search did not find $SPARSE files" >&2; exit 1; }
reads_all=$(xattr_reads $(run search))
reads_sparse=$(xattr_reads $(run sparse))

awk -v l="$loop" -v s="$search" -v sn="$search_names" -v c="$children" -v d="$disabled" -v f="$find" -v n="$COUNT" \
  -v sp="$sparse" -v fs="$find_sparse" -v m="$SPARSE" -v ra="$reads_all" -v rs="$reads_sparse" 'BEGIN {
  printf "loop of %d passes: %.1f ms; search run: %.1f ms\n", n, l * 1e3, s * 1e3
  printf "%d children: %.1f ms; the same disabled: %.1f ms\n", n, c * 1e3, d * 1e3
  printf "host cost per pass: %.1f us\n", (l - s - (c - d)) / n * 1e6
  printf "search run against find: %.1f ms / %.1f ms = %.2f\n", s * 1e3, f * 1e3, s / f
  printf "the same with --no-stored-attributes: %.1f ms / %.1f ms = %.2f\n", sn * 1e3, f * 1e3, sn / f
  printf "sparse search (%d of %d names match) against find: %.1f ms / %.1f ms = %.2f (target 1.50)\n", m, n + m, sp * 1e3, fs * 1e3, sp / fs
  printf "extended-attribute reads: %s in the search for every file, %s in the sparse search\n", ra, rs
}'
