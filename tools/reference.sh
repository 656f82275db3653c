# The reference pages, which are made from the IDL and the console program's guide.

reference_pages() {
  build_preset native kodra-reference
  build/native/kodra-reference idl/kodrarpt.idl "$1"
}

reference() {
  setup
  rm -rf docs/reference
  reference_pages docs/reference
}

# The pages in docs/ must equal those that are generated from the sources.
test_reference() {
  local log=$PWD/$logs/reference.log
  rm -rf build/reference
  reference_pages build/reference
  if diff -ru docs/reference build/reference >"$log"; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    head -n 20 "$log"
    echo "  para corrigir: ./kodra reference"
  fi
}
