# The tests, in groups: "test NAME" runs the function test_NAME.

test_groups=(format docs native wine bench)

passed=0
failed=0

# Counts the tests of a GoogleTest run from its output: count NAME LOG STATUS. A program that ends without its own
# closing line has failed, whatever it printed.
count() {
  local name=$1 log=$2 status=$3 ok bad
  ok=$(grep -c '^\[       OK \]' "$log" || true)
  bad=$(grep -cE '^\[  FAILED  \] .*\([0-9]+ ms\)' "$log" || true)
  if [ "$bad" = 0 ] && { [ "$status" != 0 ] || ! grep -q '^\[  PASSED  \]' "$log"; }; then bad=1; fi
  passed=$((passed + ok))
  failed=$((failed + bad))
  printf '  %-12s %5d ok %5d falhas\n' "$name" "$ok" "$bad"
  if [ "$bad" != 0 ]; then
    grep -vE '^\[( RUN      |       OK |----------)' "$log" | tail -n 80
    echo "  (saída inteira em $log)"
  fi
}

test_format() {
  step "formato"
  local files status=0
  mapfile -t files < <(git ls-files '*.h' '*.cpp')
  clang-format --dry-run -Werror "${files[@]}" >"$logs/format.log" 2>&1 || status=1
  if [ "$status" = 0 ]; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    head -n 20 "$logs/format.log"
    echo "  para corrigir: ./kodra format"
  fi
}

# Every group of tests is listed in the usage of ./kodra.
test_group_lines() {
  local group missing=()
  for group in "${test_groups[@]}"; do
    # All lines are read: a reader that stops early would break the pipe of usage.
    usage | grep -E "^ {23}$group +[a-zA-Z]" >/dev/null || missing+=("$group: ./kodra")
    grep -qF "| \`$group\` |" README.md || missing+=("$group: README.md")
  done
  if [ ${#missing[@]} = 0 ]; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    printf '  um grupo de testes não consta da lista: %s\n' "${missing[@]}"
  fi
}

# The reference pages are those of the sources, every test that the list of behaviours names exists, and every group of
# tests is listed.
test_docs() {
  step "documentação"
  test_reference
  test_group_lines
  # shellcheck disable=SC2016  # the backquotes are Markdown's
  local name known missing=() cited='`[A-Z][A-Za-z0-9]+\.[A-Z][A-Za-z0-9]+`'
  known=$(git ls-files 'tests/*.cpp' | xargs sed -nE 's/^TEST(_F|_P)?\((\w+), *(\w+)\).*/\2.\3/p')
  while read -r name; do
    grep -qxF "$name" <<<"$known" || missing+=("$name")
  done < <(grep -oE "$cited" docs/behaviours.md | tr -d '`' | sort -u)
  if [ ${#missing[@]} = 0 ]; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    printf '  docs/behaviours.md nomeia um teste que não existe: %s\n' "${missing[@]}"
  fi
}

test_native() {
  build_preset sanitize
  step "testes nativos, com sanitizadores de endereço e de comportamento indefinido"
  local program name log status
  for program in build/sanitize/tests/kodra_test_*; do
    [ -x "$program" ] || continue
    name=${program##*/kodra_test_}
    log=$logs/test-$name.log
    status=0
    (
      cd tests
      export ASAN_OPTIONS=detect_stack_use_after_return=1 UBSAN_OPTIONS=print_stacktrace=1
      "../$program"
    ) >"$log" 2>&1 </dev/null || status=$?
    count "$name" "$log" "$status"
  done
}

# Every source in src/ is part of the DLL: the linker's map names the objects that it took.
test_linked_sources() {
  local source missing=()
  while read -r source; do
    grep -qE "[/(]${source##*/}\.obj" build/win32/KodraRpt.map || missing+=("$source")
  done < <(git ls-files 'src/*.cpp')
  if [ ${#missing[@]} = 0 ]; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    printf '  KodraRpt.dll não contém: %s\n' "${missing[@]}"
  fi
}

test_wine() {
  build_preset win32
  test_linked_sources
  build_preset native kodra-demo-data kodra-mariadb
  archive build/test/acervo.db 500
  logged acervo build/native/kodra-demo-data mysql build/test/acervo.sql --documents 500
  step "testes no Wine, com o componente registrado, sobre SQLite e um MariaDB próprio"
  with_wine
  local status=0 log=$PWD/$logs/test-wine.log
  export KODRA_ARCHIVE=$PWD/build/test/acervo.db KODRA_BIN
  KODRA_BIN=$(windows_path build/win32)
  build/native/kodra-mariadb build/test/acervo.sql -- ./kodra wine-tests >"$log" 2>&1 </dev/null || status=$?
  tr -d '\r' <"$log" >"$log.txt"
  count wine "$log.txt" "$status"
}

# The test program in Wine, in the folder of its scripts, with the databases that test_wine has set up.
wine_tests() {
  export KODRA_BIND=$PWD
  cd tests/wine
  as_root ../../testbed/wine/environment run wine ../../build/win32/tests/kodra_test_wine.exe
}

# Nothing that the tests print contains their one password.
check_secrecy() {
  step "segredo"
  local secret
  secret=$(sed -nE 's/.* kSecret = L"(.+)";$/\1/p' tests/secret.h)
  if [ -n "$secret" ] && ! grep -rliF -- "$secret" "$logs"; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    echo "  os arquivos acima mostram a senha dos testes"
  fi
}

run_tests() {
  local groups=("$@") group
  [ ${#groups[@]} -gt 0 ] || groups=("${test_groups[@]}")
  setup "${test_packages[@]}"
  mkdir -p "$logs"
  for group in "${groups[@]}"; do
    declare -F "test_$group" >/dev/null || die "não há grupo de testes \"$group\""
    "test_$group"
  done
  check_secrecy
  echo "$passed passed, $failed failed"
  [ "$failed" = 0 ] && [ "$passed" != 0 ]
}
