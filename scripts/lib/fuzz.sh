# Looking for inputs that break a fuzz target, under sanitizers. What breaks a target is kept in
# build/fuzz/TARGET-found.

# One name a line: for each of them there is a fuzz/NAME_fuzzer.cpp.
fuzzTargets() {
  (cd "$root/fuzz" && printf '%s\n' *_fuzzer.cpp | sed 's/_fuzzer.cpp$//')
}

# fuzz TARGET SECONDS CORPUS [OPTION…]: what it learns stays in the folder CORPUS.
fuzz() {
  local target=$1 seconds=$2 corpus=$3 found=$root/build/fuzz/$1-found
  shift 3
  mkdir -p "$corpus" "$found"
  UBSAN_OPTIONS=print_stacktrace=1 "$root/build/sanitize/fuzz/fuzz_$target" \
    -max_total_time="$seconds" -timeout=10 -dict="$root/fuzz/vcard.dict" \
    -artifact_prefix="$found/" -print_final_stats=1 "$@" "$corpus" "$root/fuzz/seeds/$target"
}

# fuzzBriefly TARGET SECONDS: begins with nothing but the seeds, so that it takes no longer for what
# was learned before, and draws the same numbers each time, so that what breaks it breaks it again.
# Shows what it found.
fuzzBriefly() {
  local target=$1 seconds=$2 log=$logs/fuzz-$1.log learned input
  learned=$(mktemp -d)
  if fuzz "$target" "$seconds" "$learned" -seed=1 >"$log" 2>&1 </dev/null; then
    rm -rf "$learned"
    return
  fi
  rm -rf "$learned"
  input=$(sed -n 's/.*Test unit written to //p' "$log" | tail -n 1)
  # In one piece, for another target may have something to say too.
  say "$(
    echo "$target broke${input:+ on $input}; all it said is in $log"
    grep -m 5 -E 'ERROR: |runtime error: |SUMMARY: ' "$log" || tail -n 5 "$log"
    if [[ -s $input ]]; then
      echo "the input, $(stat -c %s "$input") bytes:"
      head -c 1000 "$input" | cat -A
    fi
  )"
  return 1
}

# fuzzEach SECONDS: each target for so long, two at a time. Each counts as one case.
fuzzEach() {
  local seconds=$1 unbroken=$root/build/results/fuzz target
  rm -rf "$unbroken"
  mkdir -p "$unbroken"
  say "fuzzing each target for $seconds seconds"
  export root logs
  export -f say fuzz fuzzBriefly
  fuzzTargets | xargs -P 2 -I '{}' \
    bash -c 'fuzzBriefly "$1" "$2" && touch "$3/$1"' fuzz '{}' "$seconds" "$unbroken" || true
  for target in $(fuzzTargets); do
    if [[ -e $unbroken/$target ]]; then
      passed=$((passed + 1))
    else
      failed=$((failed + 1))
    fi
  done
}
