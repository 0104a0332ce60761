# Wraps the entries of a Debian changelog.
/^  \* / {
  line = " "
  for (i = 1; i <= NF; ++i) {
    if (length(line) + 1 + length($i) > 78) {
      print line
      line = "   "
    }
    line = line " " $i
  }
  print line
  next
}
{ print }
