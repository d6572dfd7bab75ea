#!/usr/bin/env bash
# Checks the include rules of src/: a layer includes only itself and the
# layers below it (rtl < platform < framework < actions < host < cli), and
# POSIX headers appear only in src/platform/posix/ and the host's *_posix.cpp
# files. The registration unit (src/framework/jx30filereg.*) is the one
# framework unit that names the actions: it lists them. Prints each offending line; exits 1 if there was any.
set -uo pipefail
cd "$(dirname "$0")/.."

layers=(rtl platform framework actions host cli)
posix_include='^[[:space:]]*#[[:space:]]*include[[:space:]]*<(unistd|dirent|fcntl|pwd|grp|termios|poll|pthread|spawn|dlfcn|utime|glob|fnmatch|libgen|sys/[^>]*)\.h>'

level_of() {
  local i
  for i in "${!layers[@]}"; do
    [ "${layers[$i]}" = "$1" ] && { echo "$i"; return; }
  done
  echo -1
}

failures=0
report() {
  echo "$1"
  failures=$((failures + 1))
}

while IFS= read -r file; do
  layer=${file#src/}
  layer=${layer%%/*}
  own=$(level_of "$layer")
  while IFS=: read -r line included; do
    target=$(level_of "$included")
    case "$file:$included" in src/framework/jx30filereg.*:actions) continue ;; esac
    if [ "$target" -gt "$own" ]; then
      report "FAIL $file:$line: the $layer layer includes \"$included/...\", a layer above it"
    fi
  done < <(grep -nE '^[[:space:]]*#[[:space:]]*include[[:space:]]*"[a-z]+/' "$file" |
             sed -E 's/^([0-9]+):.*include[[:space:]]*"([a-z]+)\/.*/\1:\2/')
  case "$file" in
    src/platform/posix/* | src/host/*_posix.cpp) ;;
    *)
      while IFS= read -r found; do
        report "FAIL $file:$found: POSIX header outside src/platform/posix and the host's *_posix.cpp files"
      done < <(grep -nE "$posix_include" "$file")
      ;;
  esac
done < <(find src -type f \( -name '*.cpp' -o -name '*.h' \) | sort)

echo "check-layers: $failures failure(s)"
[ "$failures" -eq 0 ]
