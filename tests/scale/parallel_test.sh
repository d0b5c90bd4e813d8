#!/usr/bin/env bash
# parallel_test.sh PAGE EXAMPLES TOOL FOLDER: runs each line of the page about large dumps with a small
# one, in small pieces, and compares what comes out with what the tool makes of the whole dump.
set -euo pipefail
page=$1 examples=$2 tool=$3 folder=$4

command -v parallel >/dev/null || { echo "skipped: GNU parallel is not installed"; exit 0; }
rm -rf "$folder"
mkdir -p "$folder/bin"
ln -s "$tool" "$folder/bin/cardwright"
cd "$folder"
export PATH=$folder/bin:$PATH HOME=$folder

cat "$examples/damaged.vcf" "$examples/contacts.vcf" >piece
printf 'BEGIN:VCARD\r\nVERSION:3.0\r\nFN:A\r\nNOTE:see BEGIN:VCARD&#13;&#10;there\r\nEND:VCARD\r\n' >>piece
for _ in {1..100}; do cat piece; done >dump.vcf
gzip -k dump.vcf
cardwright clean dump.vcf >whole.vcf 2>whole.txt
cardwright convert --to 4.0 dump.vcf >whole-4.vcf 2>/dev/null

# contentOf FILE: its cards, read.
contentOf() {
  cardwright json <"$1" 2>/dev/null
}

mapfile -t lines < <(awk '/^```/ { inside = $0 == "```sh"; next } inside' "$page")
((${#lines[@]} == 4)) || { echo "${#lines[@]} lines on the page"; exit 1; }
for line in "${lines[@]:0:3}"; do
  rm -f repaired.vcf converted.vcf
  eval "${line//16M/64K}"
  (($(grep -c ' in, .* out, ' said.txt) > 3)) || { echo "not cut: $line"; exit 1; }
  if [[ $line == *convert* ]]; then
    diff -q <(contentOf whole-4.vcf) <(contentOf converted.vcf)
  else
    diff -q <(contentOf whole.vcf) <(contentOf repaired.vcf)
  fi
done
eval "${lines[0]//16M/64K}"
expected=$(sed -n 's/^cardwright: \([0-9]* cards\) in, [0-9]* out, \([0-9]* repaired\);.*/\1, \2/p' whole.txt)
[[ $(eval "${lines[3]}") == "$expected" ]] || { echo "the sums differ: $expected"; exit 1; }
echo "as the page says"
