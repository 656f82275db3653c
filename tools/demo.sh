# The demonstration, and the user's own scripts.

# Runs the demonstration client on a connection string: prints its output and returns its exit code.
client() {
  local output=build/demo/saida.txt folder status=0
  folder=$(windows_path build/demo)
  rm -f "$output" build/demo/modulos.log
  script testbed/archive/cliente.vbs testbed/archive/tabela.vbs -- "$1" "$folder\\saida.txt" "$folder\\modulos.log" \
    >>"$logs/wine.log" || status=$?
  [ -s "$output" ] || die "o cliente não escreveu nada (veja $logs/wine.log)"
  iconv -f UTF-16 -t UTF-8 "$output" | tr -d '\r'
  return "$status"
}

demo() {
  local engine=sqlite documents=2000
  while [ $# -gt 0 ]; do
    case $1 in
      --banco) engine=${2:?}; shift 2 ;;
      --documents) documents=${2:?}; shift 2 ;;
      *) die "demo não conhece \"$1\"" ;;
    esac
  done
  build_served
  with_wine
  case $engine in
    sqlite)
      archive "build/demo/acervo-$documents.db" "$documents"
      step "os relatórios sobre o acervo de exemplo, $documents documentos em SQLite"
      client "Driver={SQLite3};Database=$PWD/build/demo/acervo-$documents.db"
      ;;
    mysql)
      logged acervo build/native/kodra-demo-data mysql build/demo/acervo.sql --documents "$documents"
      step "os relatórios sobre o acervo de exemplo, $documents documentos em um MariaDB próprio"
      build/native/kodra-mariadb build/demo/acervo.sql -- ./kodra client
      ;;
    *) die "não há demonstração para o banco \"$engine\": sqlite ou mysql" ;;
  esac
}

run_script() {
  [ -n "${1:-}" ] || die "uso: ./kodra run ARQUIVO.vbs [ARGUMENTO…]"
  local file=$1
  shift
  build_served
  with_wine
  brazilian_script "$file" -- "$@"
}
