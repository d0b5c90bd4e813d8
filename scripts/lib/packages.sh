# Debian packages, each with the command it is wanted for; a library has none.

toolPackages=(g++:g++ cmake:cmake ninja-build:ninja pkg-config:pkg-config
  libicu-dev libcli11-dev libcpp-httplib-dev rapidjson-dev libgtest-dev libbenchmark-dev)
checkPackages=(clang:clang++ libclang-rt-dev llvm:llvm-symbolizer
  clang-format:clang-format clang-tidy:clang-tidy dpkg-dev:dpkg-shlibdeps file:file
  parallel:parallel chromium:chromium chromium-driver:chromedriver)
docsPackages=(doxygen:doxygen)
peerPackages=(pkg-config:pkg-config libebook-contacts1.2-dev libkf5contacts-dev libvc-dev
  python3-vobject libez-vcard-java libvinnie-java default-jdk-headless:javac)

# Prints those that are not there. Where there is no dpkg, libraries are left for CMake to find.
missingPackages() {
  local entry installed
  installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "${@%%:*}" 2>/dev/null) || true
  for entry; do
    if [[ $entry == *:* ]]; then
      command -v "${entry#*:}" >/dev/null && continue
    elif ! command -v dpkg-query >/dev/null; then
      continue
    fi
    grep -qxF "${entry%%:*} installed" <<<"$installed" || echo "${entry%%:*}"
  done
}

aptGet() {
  DEBIAN_FRONTEND=noninteractive apt-get -y -q -o Acquire::Retries=3 "$@"
}

installPackages() {
  aptGet update && aptGet install --no-install-recommends "$@"
}

# needPackages ENTRY…: installs those that are missing, and nothing else.
needPackages() {
  local missing
  mapfile -t missing < <(missingPackages "$@")
  ((${#missing[@]})) || return 0
  command -v apt-get >/dev/null || die "please install (Debian's names): ${missing[*]}"
  ((EUID == 0)) || die "please install as root: apt-get install ${missing[*]}"
  say "installing ${missing[*]}"
  # A fetch that failed is the reason for what apt says later.
  logged apt installPackages "${missing[@]}" ||
    die "installing failed: $(grep -m 1 -E '^W: Failed to fetch|^E: ' "$logs/apt.log")"
}
