# The examples that can run here, in Wine, on the sample archive.

# Runs an example, prints its output and returns its exit code: run_example vbscript|cpp ARGUMENT….
run_example() {
  local language=$1 status=0
  shift
  case $language in
    vbscript) brazilian_script examples/vbscript/acervo.vbs -- "$@" </dev/null || status=$? ;;
    cpp) wine_environment run wine build/win32/examples/cpp/kodra_exemplo.exe "$@" 2>>"$logs/wine.log" </dev/null | tr -d '\r' ||
      status=$? ;;
  esac
  echo "código $status"
}

# Compares the output of an example with the expected text: check_example NAME EXPECTED ACTUAL.
check_example() {
  if [ "$2" = "$3" ]; then
    passed "examples.$1"
  else
    failed "examples.$1"
    printf '%s não imprime o esperado:\n' "$1"
    diff <(echo "$2") <(echo "$3") || true
  fi
}

group_examples() {
  build_preset win32 KodraRpt kodra_ado kodra_siblings_com kodra_exemplo
  build_preset sanitize kodra-demo-data
  archive sanitize build/test/acervo.db 500
  with_wine
  local language labels absent=$PWD/build/test/ausente.db archive=$PWD/build/test/acervo.db refused
  refused="Erro -2147213397 em KodraRpt.CDeptoRpt::RelatorioDeptos: Erro ao gerar dados para o relatório: "
  refused+="[modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados \"$absent\" não encontrado."
  for language in vbscript cpp; do
    labels=$(cat tests/examples/acervo.txt)
    # Code page 850 has no dash.
    [ "$language" = vbscript ] && labels=${labels//–/-}
    check_example "$language" "$labels"$'\n'"código 0" \
      "$(run_example "$language" "Driver={SQLite3};Database=$archive" AA001)"
    check_example "$language, sem banco" "$refused"$'\n'"código 1" \
      "$(run_example "$language" "Driver={SQLite3};Database=$absent" AA001)"
  done
  # The others say in their first lines that no test runs them.
  for language in vba powershell python delphi; do
    check_example "$language, o seu começo" 1 "$(head -n 12 examples/"$language"/*.* | grep -c 'Os testes não executam este exemplo')"
  done
}
