# The reference pages, which are made from the IDL and the console program's guide.

reference_pages() {
  build_preset sanitize kodra-reference
  build/sanitize/kodra-reference idl/kodrarpt.idl "$1"
}

reference() {
  need test
  rm -rf docs/reference
  reference_pages docs/reference
}

# The pages in docs/ must equal those that are generated from the sources.
check_reference() {
  rm -rf build/reference
  reference_pages build/reference
  if diff -ru docs/reference build/reference; then
    passed docs.reference
  else
    failed docs.reference
    echo "para corrigir: ./kodra reference"
  fi
}
