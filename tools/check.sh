# Everything that is run before a release: the tests, the groups that take too long for each change, and the commands
# that examine the sources and the speed.

# The native tests that start threads, or a panel that does, under the thread sanitizer: all suites of their files.
group_threads() {
  local file folder suites status=0
  while read -r file; do
    folder=${file#tests/}
    folder=${folder%%/*}
    suites=$(sed -nE 's/^TEST(_F)?\((\w+),.*/\2.*/p; s/^TEST_P\((\w+),.*/*\/\1.*/p' "$file" | sort -u | paste -sd:)
    build_preset tsan "kodra_test_$folder"
    (cd tests && TSAN_OPTIONS=suppressions=checked/tsan.supp "../build/tsan/tests/kodra_test_$folder" \
      --gtest_filter="$suites" </dev/null) || status=1
  done < <(git grep -lE 'std::(thread|jthread|async)\b|console/panel/(panel|server)\.h' -- 'tests/*.cpp' ':!tests/wine' ':!tests/cluster')
  return "$status"
}

# Runs kodrarpt under valgrind, which must find no error and no block that the program has lost, and the program itself
# must end with the given code: under_valgrind CODE ARGUMENT…
under_valgrind() {
  local expected=$1 log=$logs/valgrind.log status=0 limit=()
  shift
  local name=$1
  [ "$1" != executa ] || name="executa $2 $6"
  # The panel ends by Ctrl-C.
  [ "$1" != painel ] || limit=(timeout --preserve-status --signal=INT 10)
  "${limit[@]}" valgrind --quiet --error-exitcode=99 --leak-check=full --errors-for-leak-kinds=definite \
    --suppressions=tests/checked/valgrind.supp --log-file="$log" build/native/kodrarpt "$@" >"$logs/valgrind.out" 2>&1 \
    </dev/null || status=$?
  if [ "$status" = "$expected" ]; then
    passed "valgrind.$name"
  else
    failed "valgrind.$name"
    echo "terminou com $status e não com $expected"
    tail -n 20 "$logs/valgrind.out"
    head -n 60 "$log"
  fi
}

group_valgrind() {
  build_preset native kodrarpt kodra-demo-data
  archive native build/test/acervo-pequeno.db 50
  local format command connection="Driver={SQLite3};Database=$PWD/build/test/acervo-pequeno.db" tests=$logs/valgrind-tests
  {
    under_valgrind 0 lista
    under_valgrind 0 descreve CDocumentoRpt.RelatorioAnalitico
    under_valgrind 0 sql CDocumentoRpt.RelatorioAnalitico --banco todos --bonito --CodDepto 7
    for format in tabela csv json xlsx html pdf; do
      under_valgrind 0 executa CDocumentoRpt.RelatorioAnalitico --conexao "$connection" --formato "$format" \
        --saida "build/test/valgrind.$format"
    done
    # A report that fails, and a file that cannot be written.
    under_valgrind 1 executa CSolicitacaoRpt.RelatorioDevolucaoOriginal --conexao "$connection" --formato csv
    under_valgrind 5 executa CDeptoRpt --conexao "$connection" --formato csv --saida /dev/full/x
    under_valgrind 0 etiquetas abertura AA001 --com-lugar --conexao "$connection" --saida build/test/valgrind.pdf
    under_valgrind 0 papel modulo --Modulo1 AA001 --conexao "$connection" --saida build/test/valgrind.pdf
    build/native/kodrarpt executa CCaixaRpt.DocsNoModuloSubRpt --Modulo1 AA001 --conexao "$connection" --formato csv |
      tail -n +2 >build/test/lidos.txt
    under_valgrind 0 confere --modulo AA001 --conexao "$connection" --lista build/test/lidos.txt
    under_valgrind 0 verifica --conexao "$connection"
    under_valgrind 0 esquema --banco todos
    rm -rf build/test/ajustes
    XDG_CONFIG_HOME=$PWD/build/test/ajustes under_valgrind 0 perfil novo acervo --conexao "$connection"
    XDG_CONFIG_HOME=$PWD/build/test/ajustes under_valgrind 0 perfil testa acervo
    printf '[deptos]\nrelatorio = CDeptoRpt\narquivo = valgrind-{data}.csv\n' >build/test/rotina.ini
    under_valgrind 0 rotina build/test/rotina.ini --conexao "$connection"
    under_valgrind 0 painel --sem-navegador --conexao "$connection"
  } | tee "$tests"
  # Every command that the program has was among them.
  build/native/kodrarpt --help | sed -n '/^Comandos:/,/^$/s/^  \([a-z]\+\) .*/\1/p' >"$logs/commands.txt"
  while read -r command; do
    grep -qE "valgrind\.$command( |\()" "$tests" || failed "valgrind.$command"
  done <"$logs/commands.txt"
  [ -s "$logs/commands.txt" ] || failed valgrind.commands
}

# Runs a command as one test: check_command NAME COMMAND…
check_command() {
  local name=$1 log=$logs/check-$1.log
  shift
  step "$*"
  if "$@" >"$log" 2>&1 </dev/null; then
    passed "$name" >>"$log"
    count "$name" "$log" 0
  else
    failed "$name" >>"$log"
    count "$name" "$log" 1
  fi
}

check() {
  need check
  start_counting
  local group
  for group in "${test_groups[@]}" "${check_groups[@]}"; do
    run_group "$group"
  done
  check_secrecy
  check_command lint ./kodra lint
  check_command coverage ./kodra coverage
  check_command fuzz ./kodra fuzz 60
  check_command limits ./kodra bench
  report_count
}
