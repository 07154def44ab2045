#!/usr/bin/awk -f
# Writes src/data/hijri_years.h from the list of Hijri years:
#
#   scripts/make_hijri_years.awk tests/data/hijri_years.csv > src/data/hijri_years.h
#
# A line of the list is "year,YYYY-MM-DD of 1 Muharram,twelve month flags (1 = 30 days)".
BEGIN {
  FS = ","
  print "// Written by scripts/make_hijri_years.awk from tests/data/hijri_years.csv; do not edit."
  print "//"
  print "// The Hijri years: on which day each begins and which of its months have 30 days. Starts follow the tabular"
  print "// rule (see src/hijri_table.h), one day later in ten years; the lengths of months follow the published Umm"
  print "// al-Qura calendar as closely as those starts allow."
  print "#ifndef QEL_DATA_HIJRI_YEARS_H"
  print "#define QEL_DATA_HIJRI_YEARS_H"
  print ""
  print "namespace Qel::Sys::DateTime {"
  print ""
  print "struct HijriYear {"
  print "  int start;                  // the day of 1 Muharram, 1 January 1890 being day 1"
  print "  unsigned short longMonths;  // bit m - 1 is set when month m has 30 days"
  print "};"
  print ""
}

# Days since 1 March of the year 0, which puts the leap day last in its year.
function DayCount(year, month, day) {
  if (month < 3) { year--; month += 12 }
  return 365 * year + int(year / 4) - int(year / 100) + int(year / 400) + int((153 * month - 457) / 5) + day
}

function Bits(flags,   m, bits) {
  for (m = 12; m >= 1; m--) bits = 2 * bits + substr(flags, m, 1)
  return bits
}

/^[0-9]/ {
  if (!count++) {
    print "inline constexpr int kFirstHijriYear = " $1 ";"
    print ""
    print "inline constexpr HijriYear kHijriYears[] = {"
  }
  split($2, date, "-")
  start = DayCount(date[1], date[2], date[3]) - DayCount(1890, 1, 1) + 1
  printf "    %-15s  // %d: %s\n", sprintf("{%d, 0x%03X},", start, Bits($3)), $1, $2
}

END {
  print "};"
  print ""
  print "}  // namespace Qel::Sys::DateTime"
  print ""
  print "#endif  // QEL_DATA_HIJRI_YEARS_H"
}
