# Configuring and building; what the compilers say is shown only when something fails.

# Where ccache is about, what another clone compiled counts too.
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros

configure() {
  local preset=$1 stamp=$root/build/$1/configured
  [[ -f $root/build/$preset/build.ninja && ! $root/CMakePresets.json -nt $stamp ]] && return
  say "configuring $preset"
  if ! (cd "$root" && logged "$preset" cmake --preset "$preset"); then
    cat "$logs/$preset.log" >&2
    say "configuring $preset failed"
    return 1
  fi
  touch "$stamp"
}

# announceBuilding PRESET: reads what ninja says; one line when there is anything to build.
announceBuilding() {
  local line said=
  while IFS= read -r line; do
    if [[ -z $said && $line == '['*'] Building '* ]]; then
      said=yes
      say "building $1"
    fi
  done
}

# build PRESET TARGET
build() {
  local preset=$1 target=$2 log=$logs/$1.log
  configure "$preset" || return
  if ! cmake --build "$root/build/$preset" --target "$target" </dev/null 2>&1 |
    tee "$log" | announceBuilding "$preset"
  then
    sed '/^\[[0-9]*\/[0-9]*\] /d' "$log" | sed -n 1,50p >&2
    say "building $preset failed; all of it is in $log"
    return 1
  fi
}
