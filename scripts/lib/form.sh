# What the sources must look like.

checkFormat() {
  (cd "$root" && find . \( -path ./build -o -path ./.git \) -prune -o \
    \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 clang-format --dry-run -Werror)
}

# Prints "SOURCE DEPENDENCY…" for each source that the last build compiled: what of the project it
# was made from. A compiler cache names these from the build folder on.
builtSources() {
  ninja -C "$root/build/sanitize" -t deps | awk -v root="$root/" '
    function told() { if (line ~ /^(src|cli)\/[^ ]*\.cpp( |$)/) print line; line = "" }
    /^[^ ]/ { told() }
    /^ / {
      sub(/^\.\.\/\.\.\//, root, $1)
      if (index($1, root) != 1) next
      file = substr($1, length(root) + 1)
      if (file ~ /^(src|cli|include)\//) line = line (line == "" ? "" : " ") file
    }
    END { told() }' | sort -u
}

# tidyOne SOURCE DEPENDENCY…: a source that was found clean is not looked at again until it, what
# it includes, how it is compiled or the rules change.
tidyOne() {
  local stamp
  stamp=$tidied/$({
    echo "$tidyRules"
    grep -F -- "-c $root/$1\"" "$root/build/sanitize/compile_commands.json" | sed "s|$root||g"
    sha256sum -- "$@"
  } | sha256sum | cut -d ' ' -f 1)
  [[ -e $stamp ]] && return
  clang-tidy --quiet -p build/sanitize "$1" 2>/dev/null && touch "$stamp"
}

checkTidy() {
  tidied=$root/build/tidied tidyRules=$(clang-tidy --version && cat "$root/.clang-tidy")
  mkdir -p "$tidied"
  export root tidied tidyRules
  export -f tidyOne
  (cd "$root" && builtSources | xargs -r -L 1 -P "$(nproc)" bash -c 'tidyOne "$@"' tidy)
}
