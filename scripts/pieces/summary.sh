# What scripts/test says at its end.
# shellcheck shell=bash

# The names of the cases that a log of CTest lists.
cases() { sed -n 's/^ *[0-9]*\/[0-9]* Test *#[0-9]*: \([^ ]*\) .*/\1/p' "$1" | sort; }

# Where Windows has modules with tables of their own, a host on Linux registers its texts; there the language is the
# user's setting, not a variable of the shell, and the registry's files and the documents' folder are the system's
# business; no two names of files differ by case alone, no disk is full at will, and Wine has codes of its own for TLS.
# The other way round, only Windows has an editor of its own for the registry.
linux_only='^(RegisteredStringsTest|LinuxStoreTest|LinuxMetricsTest|LinuxFileTest|StateChecks/LinuxRegistryTest|DocumentsTest|HttpCancelTest)\.|^qel_(language|damaged|full_disk|http_tls)$'
windows_only='^RegEditTest\.'

total() { tell "$1: $(grep 'tests passed' "$2" || echo "no result")"; }

# Totals, what Wine is known to answer otherwise, and the proof that both platforms ran the same cases.
compare_platforms() {
  local logs=build/pieces/log linux windows arabic
  linux=$logs/linux_tests-dev.log
  windows=$logs/windows-wine_tests.log
  arabic=$logs/windows-wine_tests-ar_SY.UTF-8-Arabic_Syria.1256.log
  total "Linux" "$linux"
  if [ -n "${QEL_NO_WINDOWS:-}" ]; then
    tell "Windows: SKIPPED, because $QEL_NO_WINDOWS"
    return
  fi
  total "Windows under Wine" "$windows"
  total "Windows under Wine, Arabic" "$arabic"
  tell "Known deviations (what Wine answers otherwise than Windows): $(sort -u $logs/deviations | wc -l)"
  sort -u $logs/deviations | sed 's/^known deviation: /|   /' >&3
  diff <(cases "$linux" | grep -Ev "$linux_only") <(cases "$windows" | grep -Ev "$windows_only")
}
