# Shared set-up of the whole-process benchmarks: the built jaxtor, a scratch
# directory on tmpfs (file creation on the ext4 /tmp is slow right after a
# mass delete), and hyperfine.
set -euo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
JAXTOR=${JAXTOR:-$ROOT/build/jaxtor}
SCRATCH=${SCRATCH:-/dev/shm/jaxtor-bench}
RUNS=${RUNS:-10}

[ -x "$JAXTOR" ] || { echo "build jaxtor first (scripts/build.sh)" >&2; exit 2; }
command -v hyperfine >/dev/null || { echo "hyperfine is missing (scripts/bootstrap.sh installs it)" >&2; exit 2; }
mkdir -p "$SCRATCH"

# make_files DIR COUNT: DIR holds COUNT empty files f00000.o ...
make_files() {
  rm -rf "$1" && mkdir -p "$1"
  (cd "$1" && seq -f 'f%05g.o' 0 $(($2 - 1)) | xargs touch)
}

# mean_of JSON: the mean time in seconds of the first command of a hyperfine export.
mean_of() {
  grep -m1 '"mean"' "$1" | sed 's/.*"mean": *//; s/,.*//'
}

# ratio_of JSON: the mean time of the first command of a hyperfine export
# divided by that of the second.
ratio_of() {
  grep '"mean"' "$1" | sed 's/.*"mean": *//; s/,.*//' | awk 'NR == 1 { a = $1 } NR == 2 { b = $1 } END { printf "%.2f", a / b }'
}
