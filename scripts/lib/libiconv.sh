# The source of GNU libiconv, from an npm package that carries it. It is fetched once and kept where
# CMake looks for it; from then on neither npm nor a network is needed.

libiconvVersion=3.0.1
libiconvSha256=19d0c9109234dcf12796915a4a9c9496b8ecf3e0d08e4722f99b56e3d0a3dffb
libiconv=${XDG_CACHE_HOME:-${HOME:-}/.cache}/cardwright/libiconv-$libiconvVersion

needLibiconv() {
  [[ -e $libiconv/lib/iconv.c ]] && return
  needPackages npm:npm
  say "fetching the source of libiconv"
  logged libiconv fetchLibiconv ||
    die "fetching the source of libiconv failed: $(grep -m 1 -E 'reason:|FAILED|ERR!' \
      "$logs/libiconv.log")"
}

fetchLibiconv() {
  local archive=iconv-$libiconvVersion.tgz work
  mkdir -p "${libiconv%/*}" &&
    work=$(mktemp -d "$libiconv.XXXXXX") &&
    (
      trap 'rm -rf "$work"' EXIT
      cd "$work" &&
        npm pack "iconv@$libiconvVersion" &&
        sha256sum --check <<<"$libiconvSha256  $archive" &&
        tar -xzf "$archive" &&
        mkdir libiconv &&
        mv package/deps/libiconv/lib package/support package/LICENSE libiconv/ &&
        { mv -T libiconv "$libiconv" || [[ -e $libiconv/lib/iconv.c ]]; } # another was faster
    )
}
