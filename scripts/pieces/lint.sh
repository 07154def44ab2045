# The checks that read the sources without running them.
# shellcheck shell=bash

# The project's own files, those not yet committed too, that match the patterns.
files() { git ls-files --cached --others --exclude-standard "$@" | sort; }

# Says what is wrong when a list of offenders is not empty.
none() {
  local offenders
  offenders=$(cat)
  [ -z "$offenders" ] || { echo "$1:" && echo "$offenders" && return 1; }
}

# grep over the files named on standard input; to find nothing is no failure.
found() { xargs grep -nIE "$@" || true; }

format() {
  files '*.cpp' '*.h' | xargs clang-format --dry-run -Werror
  files scripts .ci | xargs grep -lE '^#!/bin/(ba)?sh' | xargs shellcheck
}

rules() {
  local failed=0
  files '*.cpp' '*.h' | grep -Ev '^src/platform/|/(qel_export|platform_types)\.h$' | found '_WIN32' |
    none "The platform is chosen by folder, not by #ifdef" || failed=1
  files 'src/*.cpp' 'src/*.h' | grep -v '^src/platform/' |
    found '#include <(windows|winreg|unistd|pthread|dlfcn|fcntl|sys/|unicode/|sqlite|curl)' |
    none "The operating system is reached through platform/platform.h" || failed=1
  files | found '[s]pecification|\bPart [0-9]|[.][.]/shared/' |
    none "These lines speak of papers that a reader does not have" || failed=1
  files '*.cpp' '*.h' | xargs wc -l | awk '$1 > 500 && $2 != "total"' |
    none "A file stays under 500 lines" || failed=1
  unlisted_headers | none "Every public header is installed, and in qelcoretypes.h" || failed=1
  return $failed
}

unlisted_headers() {
  local header
  for header in include/*.h; do
    header=${header##*/}
    grep -qx "  $header" src/CMakeLists.txt || echo "$header is not in src/CMakeLists.txt"
    [ "$header" = qelcoretypes.h ] || grep -qF "#include \"$header\"" include/qelcoretypes.h ||
      echo "$header is not in qelcoretypes.h"
  done
}

# Each public header compiles as the only one of a file, by each compiler.
headers() {
  local staged=build/pieces/staged compiler
  local compilers=(g++ clang++)
  mkdir -p $staged && ln -sfn /usr/include/boost $staged/boost
  [ -n "${QEL_NO_WINDOWS:-}" ] ||
    compilers+=("x86_64-w64-mingw32-g++-posix -isystem $staged -DBOOST_STACKTRACE_USE_WINDBG")
  for compiler in "${compilers[@]}"; do
    find include -name '*.h' -printf '#include "%f"\n' | xargs -d '\n' -P "$(nproc)" -I{} \
      sh -c "echo '{}' | $compiler -std=c++20 -fsyntax-only -Wall -Wextra -Werror -Iinclude -x c++ -"
  done
}

clang_tidy() {
  files 'src/*.cpp' 'cli/*.cpp' | grep -v windows | xargs -P "$(nproc)" -n 1 clang-tidy -p build/dev --quiet
}

# This cppcheck knows no __VA_OPT__, so it is told in simpler words what the raising macros do. It also takes
# a bound that is tested for a bound that is broken, members of a base that is initialised as an aggregate for ones
# that are not, and a constructor that calls another for a call of the destructor.
cppcheck_sources() {
  local macros=(-DQEL_EXCEPTIONS_H '-DQEL_RAISE(c,...)=throw 1' '-DQEL_RAISE_AT(c,...)=throw 1'
    '-DQEL_REQUIRE(c,t)=((c)?(void)0:throw t)' '-DQEL_REQUIRE_AT(c,t,p,l)=((c)?(void)0:throw t)')
  cppcheck --quiet --std=c++20 --language=c++ --enable=warning,performance,portability --error-exitcode=1 \
    --inline-suppr --suppress=passedByValue --suppress=arrayIndexOutOfBoundsCond \
    --suppress=uninitDerivedMemberVar --suppress=virtualCallInConstructor "${macros[@]}" -j "$(nproc)" -Iinclude -Isrc src cli
}
