# Counts single test cases: those of a GoogleTest program one by one, any other check as one.

passed=0 failed=0

# From a GoogleTest report: each skipped case in a line, with what it says about it.
skippedCases='/<testcase .* result="skipped"/h
/<skipped /{
  G
  s/.*<skipped message="[^&"]*(&#x0A;)?([^"]*)".*name="([^"]*)".*classname="([^"]*)".*/\4.\3 skipped: \2/
  s/&#x0A;/ /g; s/&quot;/"/g; s/&apos;/'\''/g; s/&lt;/</g; s/&gt;/>/g; s/&amp;/\&/g
  p
}'

# From the report of ctest: the name and the outcome of each test. What skips itself says so.
testOutcomes='/<testcase /{
  N
  s/.*<testcase name="([^"]*)".*<skipped message="SKIP_.*/\1 skipped/
  s/.*<testcase name="([^"]*)".* status="([a-z]*)".*/\1 \2/
  p
}'

# whySkipped NAME REPORT
whySkipped() {
  sed -n -E "/<testcase name=\"$1\"/,/<\/testcase>/s/.*skipped: (.*)/$1 skipped: \\1/p" "$2"
}

# countCases REPORT: adds what a GoogleTest program reported, and shows what it skipped.
countCases() {
  local report=$1 total bad idle
  total=$(sed -n 's/^<testsuites tests="\([0-9]*\)".*/\1/p' "$report")
  bad=$(sed -n 's/^<testsuites .* failures="\([0-9]*\)".*/\1/p' "$report")
  idle=$(grep -c -E '<testcase .* (status="notrun"|result="skipped")' "$report") || true
  passed=$((passed + total - bad - idle))
  failed=$((failed + bad))
  sed -n -E "$skippedCases" "$report"
}

# runTests PRESET: runs its tests and adds them up. A program that broke without naming a failed
# case counts as one failure.
runTests() {
  local results=$root/build/results/$1 name status before
  rm -rf "$results"
  mkdir -p "$results"
  say "testing $1"
  (cd "$root" && GTEST_OUTPUT=xml:$results/ ctest --preset "$1" --parallel "$(nproc)" \
    --output-junit "$results/ctest.xml") </dev/null || true

  if [[ ! -s $results/ctest.xml ]]; then
    failed=$((failed + 1))
    return
  fi
  while read -r name status; do
    before=$failed
    if [[ $status == skipped ]]; then
      whySkipped "$name" "$results/ctest.xml"
      continue
    fi
    if [[ -s $results/$name.xml ]]; then
      countCases "$results/$name.xml"
    elif [[ $status == run ]]; then
      passed=$((passed + 1))
    fi
    if [[ $status != run && $failed == "$before" ]]; then
      failed=$((failed + 1))
    fi
  done < <(sed -n -E "$testOutcomes" "$results/ctest.xml")
}

# check NAME COMMAND…: a check that is no test program counts as one case.
check() {
  local name=$1
  shift
  say "checking $name"
  if "$@"; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    say "$name: failed"
  fi
}
