#!/usr/bin/env bash
# lines_test.sh SOURCE TOOL FOLDER: runs each line of README's "Five minutes" as a newcomer would, with
# the tool that is built already, and compares what comes out with what README shows.
set -euo pipefail
source=$1 tool=$2 folder=$3

rm -rf "$folder"
mkdir -p "$folder/clone/scripts" "$folder/readme"
cp -r "$source/examples" "$folder/clone/"
ln -s "$tool" "$folder/clone/scripts/run"

# Each block in a file named by its number: before and after, then lines and what they print in turn.
awk -v folder="$folder/readme" '
  /^## / { wanted = $0 == "## Before and after" || $0 == "## Five minutes" }
  /^```/ { inside = !inside; if (inside && wanted) block++; next }
  inside && wanted { print > (folder "/" sprintf("%02d", block)) }' "$source/README.md"

cd "$folder/readme"
blocks=(*)
((${#blocks[@]} == 10)) || { echo "README has ${#blocks[@]} blocks"; exit 1; }

diff -u "$source/examples/damaged.vcf" 01
for number in 03 05 07 09; do
  line=$(<"$number") shown=$(printf '%02d' $((10#$number + 1)))
  [[ $line == "scripts/run "* ]] || { echo "not a line to run: $line"; exit 1; }
  status=0
  (cd "$folder/clone" && eval "$line") >"$folder/said" 2>&1 || status=$?
  [[ $line == *" check "* ]] && expected=3 || expected=0
  ((status == expected)) || { echo "status $status: $line"; exit 1; }
  diff -u "$shown" "$folder/said"
done
tr -d '\r' <"$folder/clone/repaired.vcf" | diff -u 02 -
grep -q '^VERSION:4.0' "$folder/clone/converted.vcf"
echo "as README shows it"
