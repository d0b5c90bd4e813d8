# Where the project is, how its scripts speak, and where they keep what other programs said.

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
logs=$root/build/log

say() {
  printf 'cardwright: %s\n' "$*" >&2
}

die() {
  say "$@"
  exit 1
}

# logged NAME COMMAND…: runs a command that talks to nobody; its output goes to the log NAME.
logged() {
  local log=$logs/$1.log
  shift
  "$@" >"$log" 2>&1 </dev/null
}

# Two of these scripts at once, in a pipe say, take turns: call with the lock file open as 9.
takeTurn() {
  flock --timeout 3 9 && return
  say "waiting for another build to end"
  flock 9
}

mkdir -p "$logs" 2>/dev/null || die "cannot write to $root/build"
