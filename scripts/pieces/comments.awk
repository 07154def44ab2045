#!/usr/bin/awk -f
# Shows a header to Doxygen: `// text` becomes a documenting comment, kept line by line as it was written, so that
# examples stand as they stand in the header. The comment that the file begins with becomes that of the file. Signs that
# mean something to Doxygen lose that.
function shown(text,    out, i, sign) {
  for (i = 1; i <= length(text); ++i) {
    sign = substr(text, i, 1)
    out = out (index("\\@<>#&%\"", sign) ? "\\" sign : sign)
  }
  return out
}

FNR == 1 { name = FILENAME; sub(/.*\//, "", name); inFile = 1 }

# Four blanks, or text in columns, is an example.
function line(text) { return text ~ /^  ( |[^ ])/ || text ~ /[^ .]   +[^ ]/ }

/^ *\/\/ ?/ && !/^ *\/\/\// {
  indent = $0; sub(/\/\/.*/, "", indent)
  text = $0; sub(/^ *\/\/ ?/, "", text)
  if (text ~ /^ ?clang-format|^ ?NOLINT/) { print; next }
  first = !open
  open = 1
  prefix = indent "/// "
  if (first && inFile) prefix = prefix "\\file " name "\n" indent "/// "
  out = shown(text)
  if (text == "") out = ""
  print prefix (line(text) ? "<tt>" pad(out) "</tt><br>" : out)
  next
}

# Blanks that stay.
function pad(text,    out) {
  for (; sub(/^ /, "", text);) out = out "&nbsp;"
  while (match(text, /  /)) text = substr(text, 1, RSTART - 1) "&nbsp; " substr(text, RSTART + 2)
  return out text
}

# Behind a declaration.
/[;,{] +\/\/ / && !open {
  at = match($0, /[;,{] +\/\/ /)
  code = substr($0, 1, at)
  text = substr($0, at + RLENGTH)
  print code "  ///< " shown(text)
  next
}

{ if (open && inFile) { inFile = 0 } open = 0; if (!/^ *$/) inFile = 0; print }
