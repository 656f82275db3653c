# What is made from the sources and committed: the reference pages, the guide's table of errors, the help texts of the
# IDL, and the completion and manual page of kodrarpt.

generated=(docs/reference docs/guia.pt-BR.md idl/kodrarpt.idl packaging/console)

make_reference() {
  build_preset sanitize kodra-reference
  build/sanitize/kodra-reference . "$1"
}

reference() {
  need test
  rm -rf docs/reference
  make_reference .
}

# The committed files must equal those that are made from the sources.
check_reference() {
  local path status=0
  rm -rf build/reference
  make_reference build/reference
  for path in "${generated[@]}"; do diff -ru "$path" "build/reference/$path" || status=1; done
  if [ "$status" = 0 ]; then
    passed docs.reference
  else
    failed docs.reference
    echo "para corrigir: ./kodra reference"
  fi
}
