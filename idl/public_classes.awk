# Writes the list of the public classes for every table in C++ that names them:
# awk -f public_classes.awk kodrarpt.idl >public_classes.def.
#
# The IDL already names each class, method and property, in the order and with the types that clients have compiled in.
# So the list is generated from it: a handwritten list would be one more place to change for each of them.
#
# A line that no pattern below matches ends the build: its declaration would be missing from the list.

BEGIN { FS = "[^A-Za-z0-9_]+" }  # $1 is empty in a line that begins with "["

{
  line = $0
  sub(/\r$/, "")
  sub(/^[ \t]*(\/\/.*)?/, "")
}

# What an object browser shows of a member.
/^\[id\(/ { sub(/, helpstring\("[^"]*"\)\]/, "]") }

# The library around the declarations, and the attributes before each.
/^$/ || /^[{]$/ || /^import "[^"]*";$/ || /^library [A-Za-z]+$/ || /^importlib\("[^"]*"\);$/ { next }
/^\[(object, )?uuid\([^)]*\)[^]]*\]$/ { isCreatable = !/noncreatable/; next }
/^[}];$/ { block = ""; next }

/^interface I[A-Za-z0-9_]+Rpt : IDispatch$/ { block = "report"; class = substr($2, 2); next }
/^interface I[A-Za-z0-9_]+RptObj : IDispatch$/ { block = "parameter"; class = substr($2, 2); next }
/^interface I[A-Za-z0-9_]+ : IDispatch$/ { block = "other"; next }
/^dispinterface [A-Za-z0-9_]+$/ { block = "events"; next }
/^coclass [A-Za-z0-9_]+$/ { block = "coclass"; class = $2; next }

block == "report" && /^\[id\([0-9]+\)\] HRESULT [A-Za-z0-9_]+\(\[in\] IDispatch\* [A-Za-z]+, \[out, retval\] IDispatch\*\* recordset\);$/ {
  members[class] = members[class] "\n  KODRA_REPORT_METHOD(" class ", " $5 ")"
  next
}
# The other members of a report class are written by hand in C++, where the compiler reports a missing one.
block == "report" && /^\[id\([0-9]+\), prop(get|put|putref)\] HRESULT [A-Za-z0-9_]+\(.*\);$/ { next }

block == "parameter" && /^\[id\([0-9]+\), propget\] HRESULT [A-Za-z0-9_]+\(\[out, retval\] (BSTR|DATE|VARIANT_BOOL)\* valor\);$/ {
  members[class] = members[class] "\n  KODRA_PARAMETER_PROPERTY(" class ", " $6 ", " $9 ")"
  next
}
# The compiler compares it with its propget.
block == "parameter" && /^\[id\([0-9]+\), propput\] HRESULT [A-Za-z0-9_]+\(\[in\] (BSTR|DATE|VARIANT_BOOL) valor\);$/ { next }

block == "other" && /^\[id\([0-9]+\)(, prop(get|put))?\] HRESULT [A-Za-z0-9_]+\(.*\);$/ { next }
block == "events" && (/^(properties|methods):$/ || /^\[id\([0-9]+\)\] void [A-Za-z0-9_]+\(.*\);$/) { next }

block == "coclass" && $0 == "[default] interface I" class ";" {
  if (!isCreatable) next
  if (class ~ /RptObj$/) classes = classes "KODRA_PARAMETER_CLASS(" class "," members[class] ")\n"
  else if (class ~ /Rpt$/) classes = classes "KODRA_REPORT_CLASS(" class "," members[class] ")\n"
  else classes = classes "KODRA_OTHER_CLASS(" class ")\n"
  next
}
block == "coclass" && /^\[default, source\] dispinterface [A-Za-z0-9_]+;$/ { next }

{
  printf "%s:%d: a linha não é uma classe, interface ou membro na forma dos outros:\n%s\n", FILENAME, FNR, line >"/dev/stderr"
  failed = 1
  exit
}

function macro(name, parameters) {
  print "#ifndef " name "\n#define " name parameters "\n#endif"
  undefined = undefined "#undef " name "\n"
}

END {
  if (failed) exit 1
  print "// The classes that a client may create, in the order of kodrarpt.idl, made by public_classes.awk."
  print "//"
  print "// Define the macros of interest, then include this file. It undefines them again."
  macro("KODRA_REPORT_CLASS", "(NAME, METHODS)")
  macro("KODRA_REPORT_METHOD", "(CLASS, NAME)")
  macro("KODRA_PARAMETER_CLASS", "(NAME, PROPERTIES)")
  macro("KODRA_PARAMETER_PROPERTY", "(CLASS, NAME, TYPE)")
  macro("KODRA_OTHER_CLASS", "(NAME)")
  printf "\n%s\n%s", classes, undefined
}
