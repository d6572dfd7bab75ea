#!/usr/bin/env bash
# Move File(s) of 20,000 files from one directory into another, whole process,
# against mv of the same files run the same way. Prints both times and their ratio.
source "$(dirname "$0")/common.sh"
COUNT=${COUNT:-20000}
SRC=$SCRATCH/move-src
DST=$SCRATCH/move-dst

cat > "$SCRATCH/move.xml" <<XML
<?xml version="1.0" encoding="UTF-8"?>
<Project>
  <Actions>
    <Action Class="TMoveFilesAction">
      <Property Name="FileSpec">$SRC/*.o</Property>
      <Property Name="Target">$DST</Property>
      <Property Name="TargetIsDir">True</Property>
    </Action>
  </Actions>
</Project>
XML

trap 'rm -rf "$SRC" "$DST"' EXIT
hyperfine -N --warmup 1 --runs "$RUNS" --export-json "$SCRATCH/move.json" \
  --prepare "bash -c 'source $ROOT/bench/common.sh; make_files $SRC $COUNT; rm -rf $DST; mkdir $DST'" \
  "$JAXTOR run $SCRATCH/move.xml --unattended --log $SCRATCH/move.log" \
  "bash -c 'mv $SRC/*.o $DST/'"
echo "(mv runs inside bash, which also expands the wildcard; jaxtor searches itself)"
echo "$COUNT files: jaxtor / mv = $(ratio_of "$SCRATCH/move.json"), cpu $(cpu_ratio_of "$SCRATCH/move.json") (target 1.30)"
