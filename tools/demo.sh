# The demonstration, and the user's own scripts.

# Runs the demonstration client on a connection string: prints its output, with the rows as a script prints them, and
# returns its exit code: client CONNECTION [SCRIPT]
client() {
  local output=build/demo/saida.txt folder status=0
  folder=$(windows_path build/demo)
  rm -f "$output" build/demo/modulos.log
  script testbed/archive/cliente.vbs "${2:-testbed/archive/tabela.vbs}" -- "$1" "$folder\\saida.txt" "$folder\\modulos.log" \
    >>"$logs/wine.log" || status=$?
  [ -s "$output" ] || die "o cliente não escreveu nada (veja $logs/wine.log)"
  iconv -f UTF-16 -t UTF-8 "$output" | tr -d '\r'
  return "$status"
}

# The client on the private server that kodra-mariadb has started around this script. It reads the connection string, with
# its password, from the environment.
demo_client() { client KODRA_MYSQL; }

# The demonstration on an archive of some documents in a database, with the generator of a preset:
# show sqlite|mysql|cluster DOCUMENTS PRESET
show() {
  local engine=$1 documents=$2 preset=$3
  build_preset win32 KodraRpt kodra_ado kodra_siblings_com
  build_preset "$preset" kodra-demo-data kodra-mariadb
  with_wine
  case $engine in
    sqlite)
      archive "$preset" "build/demo/acervo-$documents.db" "$documents"
      step "os relatórios sobre o acervo de exemplo, $documents documentos em SQLite"
      client "Driver={SQLite3};Database=$PWD/build/demo/acervo-$documents.db"
      ;;
    mysql)
      made build/demo/acervo.sql "build/$preset/kodra-demo-data" mysql --documents "$documents"
      step "os relatórios sobre o acervo de exemplo, $documents documentos em um MariaDB próprio"
      "build/$preset/kodra-mariadb" build/demo/acervo.sql -- ./kodra client
      ;;
    cluster)
      build_preset "$preset" kodrarpt
      made build/demo/acervo.sql "build/$preset/kodra-demo-data" mysql --documents "$documents"
      show_cluster "$documents" "$preset"
      ;;
  esac
}

# Runs the demonstration for a test, up to the first command that fails, and prints its last line: last_line_of_demo DATABASE
last_line_of_demo() {
  local log=$logs/demo-$1.log
  set +e
  (set -e; show "$1" 500 sanitize) >"$log" 2>&1
  tail -n 1 "$log"
}

# The last line of the demonstration on each database.
group_demo() {
  local engine last
  for engine in sqlite mysql; do
    last=$(last_line_of_demo "$engine")
    if [[ $last =~ ^42\ chamadas,\ [0-9]+\ linhas,\ .*\ 0\ surpresas\.$ ]]; then
      passed "demo.$engine"
    else
      failed "demo.$engine"
      echo "a demonstração em $engine termina com: $last"
    fi
  done
}

demo() {
  local engine=sqlite documents=2000
  while [ $# -gt 0 ]; do
    case $1 in
      --banco) engine=${2:?}; shift 2 ;;
      --documents) documents=${2:?}; shift 2 ;;
      *) die "demo não conhece a opção \"$1\"" ;;
    esac
  done
  case $engine in
    sqlite | mysql) setup build ;;
    cluster) setup cluster ;;
    *) die "não há demonstração para o banco \"$engine\": sqlite, mysql ou cluster" ;;
  esac
  show "$engine" "$documents" native
}

run_script() {
  [ -n "${1:-}" ] || die "uso: ./kodra run ARQUIVO.vbs [ARGUMENTO…]"
  local file=$1
  shift
  need build
  build_served
  with_wine
  brazilian_script "$file" -- "$@"
}
