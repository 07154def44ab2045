# Sourced by the scripts beside it (bash): which Debian packages each job takes, and how it is run and shown.
# shellcheck shell=bash disable=SC2034  # the lists are used by the scripts that source this

build_packages=(cmake ninja-build g++ libboost-dev libboost-stacktrace-dev libicu-dev libsqlite3-dev libcli11-dev
  libcurl4-openssl-dev libcurl4)
test_packages=(libgtest-dev libgmock-dev locales openssl python3-minimal libxml2-utils)
windows_packages=(g++-mingw-w64-x86-64-posix googletest wine wine64 libgnutls30)
check_packages=(abigail-tools clang clang-format clang-tidy cppcheck dpkg-dev doxygen file googletest libclang-rt-14-dev
  libpcre2-8-0 mmdebstrap pkg-config shellcheck)
reference_packages=(doxygen)
coverage_packages=(gcovr)
bench_packages=(libbenchmark-dev)
peer_packages=(qtbase5-dev libmuparser-dev liburiparser-dev libspdlog-dev)

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1

say() { printf '%s\n' "$@"; }

# The same for a job whose output goes to a log while a person watches descriptor 3.
mark='  '
tell() { printf '%s%s\n' "$mark" "$*" >&3; }

# Passes a job's output on to its log, and each quarter of "[12/345] ..." (a build) or "  12/345 Test ..." (a
# test run) to the person.
progress() {
  local line told=0
  while IFS= read -r line; do
    printf '%s\n' "$line"
    [[ $line =~ ^[\ \[]*([0-9]+)/([0-9]+)[]\ ] ]] || continue
    if ((BASH_REMATCH[2] >= 20 && BASH_REMATCH[1] * 4 / BASH_REMATCH[2] > told)); then
      told=$((BASH_REMATCH[1] * 4 / BASH_REMATCH[2]))
      tell "${BASH_REMATCH[1]} of ${BASH_REMATCH[2]}"
    fi
  done
}

# The packages of the list that are not installed.
missing() {
  local package
  for package in "$@"; do
    dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || printf ' %s' "$package"
  done
}

as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# Installs what is missing of the packages, and says so. Asks nothing. False when that cannot be done.
need() {
  local wanted
  read -ra wanted <<<"$(missing "$@")"
  [ "${#wanted[@]}" != 0 ] || return 0
  say "Installing Debian packages: ${wanted[*]}"
  as_root apt-get update -qq </dev/null || say "(the list of packages could not be brought up to date)"
  as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends -o Dpkg::Use-Pty=0 "${wanted[@]}" </dev/null >/dev/null
}

# Unpacks a package under build/packages: installed, it would start its service on this machine. Made new when that
# failed half-way.
need_unpacked() {
  local place=build/packages/$1
  [ ! -e "$place/complete" ] || return 0
  say "Unpacking Debian package: $1"
  rm -rf "$place" && mkdir -p "$place"
  (
    cd "$place" || exit
    apt-get download -qq "$1" 2>/dev/null || { as_root apt-get update -qq && apt-get download -qq "$1"; }
    dpkg -x ./*.deb . && touch complete
  )
}

# What the tests for Windows take. Where it cannot be had, QEL_NO_WINDOWS says why, and those pieces are skipped.
need_windows() {
  local processor
  export QEL_NO_WINDOWS=
  processor=$(uname -m)
  if [ "$processor" != x86_64 ]; then
    QEL_NO_WINDOWS="Wine runs programs for x86-64, and this machine is $processor"
  elif ! need "${windows_packages[@]}"; then
    QEL_NO_WINDOWS="these packages could not be installed:$(missing "${windows_packages[@]}")"
  fi
}

# Runs the pieces (scripts/pieces/CMakeLists.txt) whose label matches, with one line for each step of each,
# and ends with the summary of them all.
run_pieces() {
  rm -rf build/pieces/log
  cmake -G Ninja -S scripts/pieces -B build/pieces >/dev/null
  ctest --test-dir build/pieces -L "$1" --verbose --no-label-summary 2>&1 |
    sed -un -e 's/^[0-9]*: | /             /p' -e '/^ *Start /p' -e '/^ *[0-9]*\/[0-9]* Test /p' -e '/^[0-9]*% tests passed,/,$p'
}
