# Configuring and building; what the compilers say is shown only when something fails.

# Where ccache is about, what another clone compiled counts too.
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1

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

# build PRESET TARGET: says so when there is anything to build.
build() {
  local preset=$1 target=$2 log=$logs/$1.log
  configure "$preset" || return
  if ! cmake --build "$root/build/$preset" --target "$target" </dev/null 2>&1 | tee "$log" |
    awk -v line="cardwright: building $preset" '/^\[.*\] Building/ && !said++ { print line }' >&2
  then
    sed '/^\[[0-9]*\/[0-9]*\] /d' "$log" | sed -n 1,50p >&2
    say "building $preset failed; all of it is in $log"
    return 1
  fi
}
