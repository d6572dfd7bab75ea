#!/usr/bin/env bash
# Host overhead per action: a project of 10,000 cheap actions (Delete File(s)
# on an empty directory, FailIfNoFile off) against a project of one, both
# logging to a file. Prints microseconds per action.
source "$(dirname "$0")/common.sh"
COUNT=${COUNT:-10000}
mkdir -p "$SCRATCH/empty"

write_project() {  # FILE N
  {
    echo '<?xml version="1.0" encoding="UTF-8"?>'
    echo '<Project><Actions>'
    for _ in $(seq "$2"); do
      echo "<Action Class=\"TDeleteFilesAction\"><Property Name=\"FileSpec\">$SCRATCH/empty/*.o</Property><Property Name=\"FailIfNoFile\">False</Property></Action>"
    done
    echo '</Actions></Project>'
  } > "$1"
}
write_project "$SCRATCH/many.xml" "$COUNT"
write_project "$SCRATCH/one.xml" 1

hyperfine -N --runs "$RUNS" --export-json "$SCRATCH/many.json" \
  "$JAXTOR run $SCRATCH/many.xml --unattended --log $SCRATCH/many.log" >/dev/null
hyperfine -N --runs "$RUNS" --export-json "$SCRATCH/one.json" \
  "$JAXTOR run $SCRATCH/one.xml --unattended --log $SCRATCH/one.log" >/dev/null
many=$(mean_of "$SCRATCH/many.json")
one=$(mean_of "$SCRATCH/one.json")
awk -v m="$many" -v o="$one" -v n="$COUNT" \
  'BEGIN { printf "%d actions: %.3f s, 1 action: %.3f s, host cost per action: %.1f us\n", n, m, o, (m - o) / (n - 1) * 1e6 }'
