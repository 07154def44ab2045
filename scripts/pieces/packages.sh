# The checks of what is handed on: the installed tree.
# shellcheck shell=bash

# Builds and runs the host of tests/consumer with an installed tree: consumer_by_cmake NAME LIBRARY [OPTION...].
consumer_by_cmake() {
  local build=build/pieces/$1
  rm -rf "$build"
  cmake -G Ninja -S tests/consumer -B "$build" -DQEL_LIBRARY="$2" -DCMAKE_BUILD_TYPE=Release "${@:3}"
  cmake --build "$build"
  ctest --test-dir "$build" --output-on-failure --no-tests=error
}

# The same example with nothing but pkg-config: consumer_by_pkg_config FOLDER LIBRARY COMPILER OPTION... The words of
# pkg-config are taken apart, as a makefile does.
consumer_by_pkg_config() {
  local flags
  flags=$(PKG_CONFIG_LIBDIR="$1/lib/pkgconfig" pkg-config --cflags --libs "$2" "${@:5}")
  # shellcheck disable=SC2086
  $3 -std=c++20 ${4:+$4} examples/dates.cpp $flags -o build/pieces/dates.exe
}

dates_are_right() {
  local shown
  shown=$("$@" | tr -d '\r')
  [ "$shown" = "2024-04-16  Tus 7 Shawwal 1445" ] || { say "\"$shown\" was shown"; return 1; }
}

# Hosts that know nothing but the package, by each of the ways to find it.
consumer() {
  local place=$PWD/build/pieces/installed
  rm -rf "$place"
  cmake --install build/release --prefix "$place" --strip
  consumer_by_cmake consumer QelCoreTypes -DCMAKE_PREFIX_PATH="$place"
  consumer_by_cmake consumer-static QelCoreTypesStatic -DCMAKE_PREFIX_PATH="$place"
  consumer_by_pkg_config "$place" QelCoreTypes g++ "-Wl,-rpath,$place/lib"
  dates_are_right build/pieces/dates.exe
  consumer_by_pkg_config "$place" QelCoreTypesStatic g++ "" --static
  dates_are_right build/pieces/dates.exe
  "$place/bin/qel" --version
}

windows_consumer() {
  local place=$PWD/build/pieces/installed-windows compiler=x86_64-w64-mingw32-g++-posix
  local options=(-DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-toolchain.cmake" -DCMAKE_FIND_ROOT_PATH="$place"
    -DQelCoreTypes_DIR="$place/lib/cmake/QelCoreTypes" -DBoost_INCLUDE_DIR="$PWD/build/mingw/staged")
  rm -rf "$place"
  cmake --install build/mingw --prefix "$place" --strip
  export WINEPATH="Z:${place//\//\\}\\bin"
  consumer_by_cmake windows-consumer QelCoreTypes "${options[@]}"
  consumer_by_cmake windows-consumer-static QelCoreTypesStatic "${options[@]}"
  consumer_by_pkg_config "$place" QelCoreTypes $compiler "-static -isystem build/mingw/staged"
  dates_are_right scripts/wine-run build/pieces/dates.exe
  unset WINEPATH
  consumer_by_pkg_config "$place" QelCoreTypesStatic $compiler "-static -isystem build/mingw/staged" --static
  dates_are_right scripts/wine-run build/pieces/dates.exe
}

# The Debian package is installed, used and removed where there is nothing but Debian.
debian_package() {
  local place=$PWD/build/pieces/package
  rm -rf "$place"
  mkdir -p "$place"
  cpack -G DEB --config build/release/CPackConfig.cmake -B "$place"
  mv "$place"/*.deb "$place/package.deb"
  dpkg-deb --info "$place/package.deb"
  as_root unshare --mount scripts/pieces/fresh_root.sh "$place/package.deb"
}

abi() { scripts/abi; }

reference() { scripts/reference; }
