# The fuzz targets, with clang's fuzzing engine.

# A number that libFuzzer reported: statistic NAME LOG.
statistic() { sed -n "s/^stat::$1: *//p" "$2"; }

# Runs one target for some seconds, from its committed inputs and those that earlier runs on this machine have found:
# fuzz_target NAME SECONDS. An input that breaks it stays in tests/fuzz/found/NAME, for the tests to replay.
fuzz_target() {
  local name=$1 seconds=$2 status=0
  local program=build/fuzz/tests/fuzz_$name inputs=tests/fuzz/corpus/$name crashes=tests/fuzz/found/$name
  local work=build/fuzz/corpus/$name log=$logs/fuzz-$name.log dictionary=tests/fuzz/dictionary/$name.dict
  local options=(-max_len=512 -timeout=10 -print_final_stats=1 "-artifact_prefix=$crashes/")
  [ -f "$dictionary" ] && options+=("-dict=$dictionary")
  mkdir -p "$work" "$inputs" "$crashes"
  nice "$program" "${options[@]}" -max_total_time="$seconds" "$work" "$inputs" >"$log" 2>&1 || status=$?
  # Only inputs that reach code that no committed input reaches are committed.
  "$program" -merge=1 -use_counters=0 -max_len=512 "$inputs" "$work" >"$log.merge" 2>&1 ||
    die "não foi possível juntar as entradas de $name (veja $log.merge)"
  rmdir --ignore-fail-on-non-empty "$crashes"
  printf '  %-24s %9s entradas testadas %5s guardadas  %s\n' "$name" "$(statistic number_of_executed_units "$log")" \
    "$(find "$inputs" -type f | wc -l)" "$([ "$status" = 0 ] && echo ok || echo FALHOU)"
  [ "$status" = 0 ] && return
  grep -aE -A3 'what\(\)|runtime error|^==[0-9]+==ERROR|^SUMMARY|Test unit written' "$log" | head -n 20
  return 1
}

# Every target, each for its share of the seconds.
fuzz() {
  local seconds=${1:-60} name names=() failed=0
  [[ $seconds =~ ^[0-9]+$ ]] || die "uso: ./kodra fuzz [SEGUNDOS]"
  need fuzz
  build_preset fuzz kodra_fuzz
  for name in tests/fuzz/fuzz_*.cpp; do
    name=${name##*/fuzz_}
    names+=("${name%.cpp}")
  done
  seconds=$(((seconds + ${#names[@]} - 1) / ${#names[@]}))
  step "testa ${#names[@]} alvos por $seconds s cada um"
  for name in "${names[@]}"; do
    fuzz_target "$name" "$seconds" || failed=$((failed + 1))
  done
  [ "$failed" = 0 ] || die "$failed alvos falharam: as entradas estão em tests/fuzz/found e ./kodra test as repete"
}
