#!/usr/bin/env bash
# Delete File(s) of 20,000 files in one directory, whole process, against rm
# of the same files run the same way. Prints both times and their ratio.
source "$(dirname "$0")/common.sh"
COUNT=${COUNT:-20000}
DIR=$SCRATCH/delete

cat > "$SCRATCH/delete.xml" <<XML
<?xml version="1.0" encoding="UTF-8"?>
<Project>
  <Actions>
    <Action Class="TDeleteFilesAction">
      <Property Name="FileSpec">$DIR/*.o</Property>
    </Action>
  </Actions>
</Project>
XML

hyperfine -N --warmup 1 --runs "$RUNS" --export-json "$SCRATCH/delete.json" \
  --prepare "bash -c 'source $ROOT/bench/common.sh; make_files $DIR $COUNT'" \
  "$JAXTOR run $SCRATCH/delete.xml --unattended --log $SCRATCH/delete.log" \
  "$JAXTOR run $SCRATCH/delete.xml --unattended --log $SCRATCH/delete.log --no-stored-attributes" \
  "bash -c 'rm $DIR/*.o'"
echo "(rm runs inside bash, which also expands the wildcard; jaxtor searches itself)"
echo "$COUNT files: jaxtor / rm = $(ratio_of "$SCRATCH/delete.json" 1 3), cpu $(cpu_ratio_of "$SCRATCH/delete.json" 1 3) (target 1.30)"
echo "with --no-stored-attributes: $(ratio_of "$SCRATCH/delete.json" 2 3), cpu $(cpu_ratio_of "$SCRATCH/delete.json" 2 3)"
