# The registry rows of the component as entries of the installer. The rows contain [#KodraRpt.dll] and [INSTALLDIR] for
# the installed DLL's path and folder; they mean the same to the installer.
BEGIN {
  FS = "\t"
  print "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
  print "<Include xmlns=\"http://schemas.microsoft.com/wix/2006/wi\">"
}

function xml(text) {
  gsub(/&/, "\\&amp;", text)
  gsub(/</, "\\&lt;", text)
  gsub(/>/, "\\&gt;", text)
  gsub(/"/, "\\&quot;", text)
  return text
}

# The installer reads a bracket as the start of a reference.
$3 ~ /[][]/ && $3 != "[#KodraRpt.dll]" && $3 != "[INSTALLDIR]" { print "um colchete: " $0 >"/dev/stderr"; exit 1 }

{
  printf "<RegistryValue Root=\"HKLM\" Key=\"%s\"", xml($1)
  if ($2 != "") printf " Name=\"%s\"", xml($2)
  printf " Type=\"string\" Value=\"%s\"/>\n", xml($3)
}

END { print "</Include>" }
