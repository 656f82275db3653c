# The benchmarks, and the check that they work.

# Every line that the benchmarks print.
bench_names=(small_report statement_share streamed_rows streamed_memory dataset_rows_log dataset_rows_operadores
  dataset_rows script_peer routine_calls routine_memory routine_handles dll_size load_and_create
  export_csv export_json export_xlsx export_html export_peer export_memory panel_page panel_first_page)

# The preset of the native programs: the tests, which measure nothing, use those that they have built anyway.
bench_preset=native

# A file that the benchmarks read, made again only when the tool that makes it is newer: bench_archive NAME OPTION…
bench_archive() {
  local file=build/bench/$1.db
  shift
  [ "$file" -nt "build/$bench_preset/kodra-bench-archives" ] || made "$file" "build/$bench_preset/kodra-bench-archives" "$@"
}

build_benches() {
  build_preset "$bench_preset" kodra-bench-statements kodra-bench-archives kodra-bench-plot kodra-bench-exports kodra-bench-panel \
    kodrarpt
  build_preset win32 KodraRpt kodra_ado kodra_siblings_com kodra-bench kodra_bench_empty
  mkdir -p build/bench
}

# Whether a line is wanted: it begins with one of the names, or no names are passed: bench_wanted LINE [NAME…].
bench_wanted() {
  local line=$1 name
  shift
  [ $# = 0 ] && return
  for name; do [[ $line == "$name"* ]] && return; done
  return 1
}

# Runs a program and the Wine server on one core. Waking another core costs a virtual machine more than most requests to
# the server, and whether it happens depends on what else runs; on one core the figures repeat.
on_one_core() (
  taskset -cp "$(taskset -cp "$BASHPID" | sed 's/.*[ ,-]//')" "$BASHPID" >/dev/null
  wine_environment run wineserver -w 2>>"$logs/wine.log" || true
  wine_environment run "$@" 2>>"$logs/wine.log"
)

# Runs the benchmarks that begin with one of the names, or all without names; their lines are printed and, for other
# programs, written to build/bench/resultados.tsv. Returns 0 when every limit is met, 1 when one is not, more when a
# benchmark failed: run_benches ROUNDS SIZE [NAME…].
run_benches() {
  local rounds=$1 size=$2 status=0 one=0 line chosen=() exports=() results=build/bench/resultados.tsv
  shift 2
  printf 'nome\trazao\tcomponente\tdireto\tunidade\tlimite\tcumprido\n' >"$results"
  local benchmark=(wine build/win32/kodra-bench.exe "$(windows_path build/bench)" "$size")
  for line in "${bench_names[@]}" growth; do
    bench_wanted "$line" "$@" || continue
    case $line in
      statement_share | load_and_create | panel_*) ;;
      export_*) exports+=("$line") ;;
      # Measured together.
      routine_*) chosen+=(routine_calls) ;;
      *) chosen+=("$line") ;;
    esac
  done
  # What the statement is a share of.
  if bench_wanted statement_share "$@" && ! bench_wanted small_report "$@"; then chosen+=(small_report); fi
  if [ ${#chosen[@]} != 0 ]; then
    on_one_core "${benchmark[@]}" "${chosen[@]}" || one=$?
    [ "$one" -le "$status" ] || status=$one
  fi
  if bench_wanted statement_share "$@"; then
    one=0
    "build/$bench_preset/kodra-bench-statements" --rounds "$rounds" --results "$results" \
      --report "$(awk -F '\t' '$1 == "small_report" { print $3 }' "$results")" || one=$?
    [ "$one" -le "$status" ] || status=$one
  fi
  # Few requests, and mostly the machine's work with a file: measured as programs load it, on any core.
  if bench_wanted load_and_create "$@"; then
    one=0
    wine_environment run wineserver -w 2>>"$logs/wine.log" || true
    wine_environment run "${benchmark[@]}" load_and_create 2>>"$logs/wine.log" || one=$?
    [ "$one" -le "$status" ] || status=$one
  fi
  if [ ${#exports[@]} != 0 ]; then
    one=0
    bench_exports "$size" "${exports[@]}" || one=$?
    [ "$one" -le "$status" ] || status=$one
  fi
  if bench_wanted panel_page "$@" || bench_wanted panel_first_page "$@"; then
    one=0
    "build/$bench_preset/kodra-bench-panel" --folder build/bench --rounds "$rounds" || one=$?
    [ "$one" -le "$status" ] || status=$one
  fi
  return "$status"
}

# The lines export_…, without Wine: bench_exports SIZE LINE…
bench_exports() {
  local size=$1 documents=1000000 few=10000 rounds=3 folder=build/bench
  shift
  if [ "$size" = small ]; then documents=1000 few=1000 rounds=1; fi
  "build/$bench_preset/kodra-bench-exports" --folder "$folder" --program "build/$bench_preset/kodrarpt" \
    --peer bench/native/export_peer.py --archive "$folder/acervo-$documents.db" --small "$folder/acervo-$few.db" \
    --rounds "$rounds" "$@"
}

# The time of the reports with and without each index that `kodrarpt verifica` advises, on SQLite and on MariaDB. It
# prints the tables of docs/performance.md: bench_indexes DOCUMENTS.
bench_indexes() {
  build_preset "$bench_preset" kodra-bench-indexes kodra-demo-data kodra-mariadb
  mkdir -p build/bench
  local tools=$PWD/build/$bench_preset file=build/bench/indices
  # The benchmark replaces keys and indexes, so the archive is new each time.
  "$tools/kodra-demo-data" sqlite --documents "$1" "$file.db"
  "$tools/kodra-demo-data" mysql --documents "$1" "$file.sql"
  printf '\nSQLite\n\n'
  "$tools/kodra-bench-indexes" "Driver={SQLite3};Database=$PWD/$file.db"
  printf '\nMariaDB\n\n'
  "$tools/kodra-mariadb" "$file.sql" -- "$tools/kodra-bench-indexes"
}

# Whether each advised index makes one of its reports a fifth faster on one of the databases; prints those that do not:
# every_index_helps FILE, with the tables of bench_indexes.
every_index_helps() {
  awk -F ' *[|] *' '
    function seconds(text) { sub(/^> /, "", text); return text + 0 }
    $4 ~ /^(> )?[0-9.]+ s$/ && $5 ~ /^(> )?[0-9.]+ s$/ {
      advised[$2]
      if (seconds($5) <= 0.8 * seconds($4)) helps[$2]
    }
    END {
      for (name in advised) {
        some = 1
        if (!(name in helps)) { print "o índice não ajuda relatório nenhum: " name; fails = 1 }
      }
      exit fails || !some
    }' "$1"
}

# The time of every report on archives of growing size with the advised indexes, on SQLite and on MariaDB. It writes the
# figures and the drawing of docs/performance.md and prints its tables: bench_sizes SQLITE_DOCUMENTS MARIADB_DOCUMENTS
# [LIMIT], where each list of sizes is one word.
bench_sizes() {
  build_preset "$bench_preset" kodra-bench-sizes kodra-bench-sizes-page kodra-demo-data kodra-mariadb
  mkdir -p build/bench
  local tools=$PWD/build/$bench_preset file=build/bench/tamanhos limit=${3:-30} documents
  rm -f "$file.tsv"
  # The benchmark adds indexes, so each archive is new; it is removed because the largest takes gigabytes.
  for documents in $1; do
    step "SQLite, $documents documentos"
    "$tools/kodra-demo-data" sqlite --documents "$documents" "$file.db"
    "$tools/kodra-bench-sizes" --banco SQLite --documents "$documents" --limit "$limit" \
      "Driver={SQLite3};Database=$PWD/$file.db" >>"$file.tsv"
    rm -f "$file.db"
  done
  for documents in $2; do
    step "MariaDB, $documents documentos"
    "$tools/kodra-demo-data" mysql --documents "$documents" "$file.sql"
    # With less memory than the archive takes, the figures would be those of the disk.
    "$tools/kodra-mariadb" --memoria 2G "$file.sql" -- \
      "$tools/kodra-bench-sizes" --banco MariaDB --documents "$documents" --limit "$limit" >>"$file.tsv"
    rm -f "$file.sql"
  done
  "$tools/kodra-bench-sizes-page" "$file.tsv" "$file.svg"
}

# Every benchmark, or those that begin with one of the names; `growth` is the drawing.
bench() {
  local name line known
  # Not among the lines: these two measure the databases and have no limits.
  if [ "$*" = indices ]; then
    need build
    mkdir -p build/bench
    bench_indexes 300000 | tee build/bench/indices.md
    every_index_helps build/bench/indices.md || die "console/schema/indexes.cpp só pode ter índices que ajudam"
    return
  fi
  if [ "$*" = tamanhos ]; then
    need build
    bench_sizes "1000 10000 100000 1000000 10000000" "1000 10000 100000 1000000" 120
    return
  fi
  for name; do
    known=
    for line in "${bench_names[@]}" growth; do [[ $line != "$name"* ]] || known=1; done
    [ "$known" ] || die "não há linha que comece com \"$name\": ${bench_names[*]} growth; indices e tamanhos, só sozinhos"
  done
  need build
  build_benches
  step "gera os acervos dos testes de desempenho (uma vez)"
  local documents
  for documents in 1000 10000 100000 1000000; do bench_archive "acervo-$documents" --documents "$documents"; done
  bench_archive registros-20000 --documents 100 --registers 20000
  with_wine
  step "o que o componente acrescenta ao que é preciso fazer de qualquer modo"
  local status=0
  run_benches 200 full "$@" || status=$?
  if bench_wanted growth "$@"; then
    build/native/kodra-bench-plot build/bench/crescimento.tsv build/bench/crescimento.svg
    echo "como o custo cresce: build/bench/crescimento.svg"
  fi
  return "$status"
}

# The benchmarks at a small size, as a check that each works: both sides do the same, and each line has its figures.
group_bench() {
  local bench_preset=sanitize
  build_benches
  bench_archive acervo-1000 --documents 1000
  bench_archive registros-1000 --documents 100 --registers 1000
  with_wine
  local status=0 name broken=
  run_benches 2 small || status=$?
  for name in "${bench_names[@]}"; do
    if awk -F '\t' -v name="$name" '$1 == name && $2 > 0 && $3 > 0 { found = 1 } END { exit !found }' \
      build/bench/resultados.tsv
    then
      passed "bench.$name"
    else
      failed "bench.$name"
      broken=1
    fi
  done
  # Nothing in the figures of so small an archive is certain, but each report must run.
  local times=$logs/bench-indices.log
  if bench_indexes 1000 >"$times" 2>&1 && ! grep -qE '[|] (erro|>) ?' "$times"; then
    passed bench.indices
  else
    tail -n 20 "$times"
    failed bench.indices
  fi
  local table=build/bench/indices-exemplo.md
  printf '| %s |\n' 'índice | relatório | sem | com' '--- | --- | --- | ---' \
    'A (X) | CA.A | 0.100 s | 0.090 s' 'A (X) | CA.B | > 30 s | 0.300 s' 'B (Y) | CA.A | 0.010 s | 0.009 s' \
    'B (Y) | CA.B | > 30 s | > 30 s' 'C (Z) | CA.A | 0.010 s | 0.008 s' >"$table"
  if [ "$(every_index_helps "$table")" = "o índice não ajuda relatório nenhum: B (Y)" ] &&
    sed -i '/B (Y)/d' "$table" && every_index_helps "$table" && ! every_index_helps /dev/null
  then
    passed bench.every-index-helps
  else
    failed bench.every-index-helps
  fi
  # Two sizes of 39 reports on two databases; one statement is none for SQLite.
  local sizes=$logs/bench-tamanhos.log measured=build/bench/tamanhos.tsv
  if bench_sizes "100 1000" "100 1000" >"$sizes" 2>&1 && [ "$(wc -l <"$measured")" = 156 ] &&
    [ "$(awk -F '\t' '$5 !~ /^[0-9]/ { print $1, $3 }' "$measured" | sort -u)" = "SQLite CSolicitacaoRpt.RelatorioDevolucaoOriginal" ] &&
    [ -s build/bench/tamanhos.svg ]
  then
    passed bench.tamanhos
  else
    tail -n 20 "$sizes"
    failed bench.tamanhos
  fi
  # A limit that is not met says nothing at this size; an error does.
  if [ "$status" -gt 1 ] && [ ! "$broken" ]; then failed bench; fi
}
