# The calls of the script client as arguments of "kodrarpt executa": one line for each call, the arguments separated by
# tabs. The client asks the archive for the values that it names; these are the answers of the sample archive.
#
#   awk -f testbed/archive/chamadas.awk testbed/archive/cliente.vbs
BEGIN {
  value["firstDay"] = "2010-07-01"; value["lastDay"] = "2010-12-31"
  value["department"] = "001"; value["subgroup"] = "001"; value["request"] = "5"
  value["module"] = "AA001"; value["closedParent"] = "AA001"; value["subordinate"] = "AA00101"
  value["container"] = "CT0002"
  value["True"] = "sim"
}
/^Prepare / { split($0, quoted, "\""); class = quoted[4]; settings = "" }
/^parameters\./ {
  name = substr($1, length("parameters.") + 1)
  text = substr($0, index($0, " = ") + 3)
  if (text ~ /^"/) text = substr(text, 2, length(text) - 2)
  else text = value[text]
  settings = settings "\t--" name "\t" text
}
/^Set rows = report\./ {
  method = substr($0, length("Set rows = report.") + 1)
  print class "." substr(method, 1, index(method, "(") - 1) settings
}
