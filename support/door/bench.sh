# The benchmarks, and the check that they work.

# Every line that the benchmarks print.
bench_names=(statement_assembly)

# Runs every benchmark; its lines go to the screen and, for other programs, to build/bench/resultados.tsv. Gives 0 when
# every limit is met, 1 when one is not, more when a benchmark failed: run_benches ROUNDS.
run_benches() {
  local rounds=$1 status=0 one=0
  mkdir -p build/bench
  printf 'nome\trazao\tcomponente\tdireto\tunidade\tlimite\tcumprido\n' >build/bench/resultados.tsv
  build/native/kodra-bench-statements --rounds "$rounds" --results build/bench/resultados.tsv || one=$?
  [ "$one" -le "$status" ] || status=$one
  return "$status"
}

bench() {
  setup
  build_preset native kodra-bench-statements
  step "o que o componente acrescenta ao que é preciso fazer de qualquer modo"
  run_benches 200
}

# The benchmarks at a small size, as a check that each works: both sides do the same, and each line has its figures.
test_bench() {
  build_preset native kodra-bench-statements
  step "os bancos de medida, em tamanho pequeno"
  local status=0 name broken=()
  run_benches 2 >"$logs/bench.log" 2>&1 || status=$?
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
