# Shared set-up of the whole-process benchmarks: the jaxtor of a Release
# build, a scratch directory on tmpfs (file creation on the ext4 /tmp is slow
# right after a mass delete), and hyperfine.
set -euo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
JAXTOR=${JAXTOR:-$ROOT/build-rel/jaxtor}
SCRATCH=${SCRATCH:-/dev/shm/jaxtor-bench}
RUNS=${RUNS:-10}

[ -x "$JAXTOR" ] || {
  echo "build jaxtor first: cmake -S . -B build-rel -DCMAKE_BUILD_TYPE=Release && cmake --build build-rel --target jaxtor" >&2
  exit 2
}
command -v hyperfine >/dev/null || { echo "hyperfine is missing (scripts/bootstrap.sh installs it)" >&2; exit 2; }
mkdir -p "$SCRATCH"

# make_files DIR COUNT: DIR holds COUNT empty files f00000.o ...
make_files() {
  rm -rf "$1" && mkdir -p "$1"
  (cd "$1" && seq -f 'f%05g.o' 0 $(($2 - 1)) | xargs touch)
}

# field_of JSON FIELD [N]: a figure ("mean", "user", "system") of the Nth
# command (1 unless given) of a hyperfine export, in seconds.
field_of() {
  grep "\"$2\":" "$1" | sed -n "${3:-1}p" | sed 's/.*: *//; s/,.*//'
}

# mean_of JSON: the mean time of the first command of a hyperfine export.
mean_of() { field_of "$1" mean; }

# ratio_of JSON [A B]: the mean time of command A (1) divided by that of B (2).
ratio_of() {
  awk -v a="$(field_of "$1" mean "${2:-1}")" -v b="$(field_of "$1" mean "${3:-2}")" 'BEGIN { printf "%.2f", a / b }'
}

# cpu_ratio_of JSON [A B]: the same of user + system time, which the other
# processes of a shared machine disturb less than the wall-clock time.
cpu_ratio_of() {
  local a b
  a=$(awk -v u="$(field_of "$1" user "${2:-1}")" -v s="$(field_of "$1" system "${2:-1}")" 'BEGIN { print u + s }')
  b=$(awk -v u="$(field_of "$1" user "${3:-2}")" -v s="$(field_of "$1" system "${3:-2}")" 'BEGIN { print u + s }')
  awk -v a="$a" -v b="$b" 'BEGIN { printf "%.2f", a / b }'
}

# xattr_reads COMMAND...: how many extended-attribute reads the command makes.
# An strace older than the getxattrat call (Linux 6.13) prints it as
# syscall_0x1d0 and leaves it out of its -c summary, so the trace is counted.
xattr_reads() {
  command -v strace >/dev/null || { echo "strace missing"; return; }
  strace -f -qq -o "$SCRATCH/xattr.trace" "$@" >/dev/null 2>&1 || true
  grep -cE '^([0-9]+ +)?(getxattr|lgetxattr|fgetxattr|getxattrat|syscall_0x1d0)\(' "$SCRATCH/xattr.trace" || true
}
