# The benchmarks, and the check that they work.

# Every line that the benchmarks print.
bench_names=(statement_assembly small_report streamed_rows streamed_memory dataset_rows_log dataset_rows_operadores
  dataset_rows script_peer dll_size load_and_create)

# A file that the benchmarks read, made anew only when the tool that makes it is newer: bench_archive NAME OPTION…
bench_archive() {
  local file=build/bench/$1.db
  shift
  if [ "$file" -nt build/native/kodra-bench-archives ]; then return; fi
  rm -f "$file"
  logged bench-archive build/native/kodra-bench-archives "$file" "$@"
}

build_benches() {
  build_preset native kodra-bench-statements kodra-bench-archives kodra-bench-plot
  build_preset win32 KodraRpt kodra_ado kodra_siblings_com kodra-bench kodra_bench_empty
  mkdir -p build/bench
}

# Runs every benchmark; its lines go to the screen and, for other programs, to build/bench/resultados.tsv. Gives 0 when
# every limit is met, 1 when one is not, more when a benchmark failed: run_benches ROUNDS SIZE.
run_benches() {
  local rounds=$1 size=$2 status=0 one=0 results=build/bench/resultados.tsv
  printf 'nome\trazao\tcomponente\tdireto\tunidade\tlimite\tcumprido\n' >"$results"
  build/native/kodra-bench-statements --rounds "$rounds" --results "$results" || status=$?
  box run wine build/win32/kodra-bench.exe "$(windows_path build/bench)" "$size" 2>>"$logs/wine.log" || one=$?
  [ "$one" -le "$status" ] || status=$one
  return "$status"
}

bench() {
  setup
  build_benches
  step "gera os acervos de medida (uma vez)"
  local documents
  for documents in 1000 10000 100000 1000000; do bench_archive "acervo-$documents" --documents "$documents"; done
  bench_archive registros-20000 --documents 100 --registers 20000
  with_box
  step "o que o componente acrescenta ao que é preciso fazer de qualquer modo"
  local status=0
  run_benches 200 full || status=$?
  build/native/kodra-bench-plot build/bench/crescimento.tsv build/bench/crescimento.svg
  echo "como o custo cresce: build/bench/crescimento.svg"
  return "$status"
}

# The benchmarks at a small size, as a check that each works: both sides do the same, and each line has its figures.
test_bench() {
  build_benches
  bench_archive acervo-1000 --documents 1000
  bench_archive registros-1000 --documents 100 --registers 1000
  step "os bancos de medida, em tamanho pequeno"
  with_box
  local status=0 name broken=()
  run_benches 2 small >"$logs/bench.log" 2>&1 </dev/null || status=$?
  for name in "${bench_names[@]}"; do
    awk -F '\t' -v name="$name" '$1 == name && $2 > 0 && $3 > 0 { found = 1 } END { exit !found }' \
      build/bench/resultados.tsv || broken+=("$name")
  done
  passed=$((passed + ${#bench_names[@]} - ${#broken[@]}))
  failed=$((failed + ${#broken[@]}))
  if [ "$status" -gt 1 ] && [ ${#broken[@]} = 0 ]; then failed=$((failed + 1)); fi
  printf '  %-12s %5d ok %5d falhas\n' bench $((${#bench_names[@]} - ${#broken[@]})) ${#broken[@]}
  if [ "$status" -gt 1 ] || [ ${#broken[@]} != 0 ]; then tail -n 40 "$logs/bench.log"; fi
}
