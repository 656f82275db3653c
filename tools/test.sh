# The tests, in groups. CTest runs them all: what is not a GoogleTest program that it can run by itself is a function
# group_NAME, which tools/group calls. Each test prints a line in GoogleTest's form, so that all are counted alike.

# The preset whose tests contain each group.
declare -A preset_of_group=(
  [format]=sanitize [docs]=sanitize [scripts]=sanitize [native]=sanitize [engines]=sanitize [panel]=sanitize
  [wine]=win32 [demo]=win32 [bench]=win32 [package]=win32 [examples]=win32 [console]=win32
  [win64]=win64
  [wine-checked]=win32-checked [threads]=tsan [valgrind]=native [cluster]=sanitize
  [checkouts]=sanitize
)
test_groups=(format docs scripts native wine demo bench package win64 examples engines console panel)
# These take minutes and are part of ./kodra check only.
check_groups=(wine-checked threads valgrind cluster checkouts)

# One test's outcome: passed NAME, failed NAME.
passed() { printf '[       OK ] %s (0 ms)\n' "$1"; }
failed() { printf '[  FAILED  ] %s (0 ms)\n' "$1"; }

# Prints the output of a GoogleTest program in Wine without its carriage returns, and returns the program's exit code. A
# test that ends the program has failed: in_wine_form COMMAND…
in_wine_form() {
  "$@" </dev/null 2>&1 | tr -d '\r' | awk '
    { print; fflush() }
    $2 == "RUN" { running = $4 }
    $2 == "OK" || $2 == "FAILED" { running = "" }
    END { if (running != "") print "[  FAILED  ] " running " (0 ms)" }'
}

# Text files have LF line ends and no blanks before them, as .editorconfig and .gitattributes say.
check_text_files() {
  local unlike
  unlike=$(
    git ls-files --eol | awk -F '\t' '$1 !~ /^i\/lf / && $1 !~ /attr\/-text/ { print $2 }'
    git grep -lI '[[:blank:]]$' -- ':!tests/fuzz/corpus' ':!tests/fuzz/found' || true
  )
  [ -z "$unlike" ] && { passed format.text; return; }
  failed format.text
  printf 'fim de linha ou brancos no fim de uma linha: %s\n' "$unlike"
}

group_format() {
  check_text_files
  local files
  mapfile -t files < <(git ls-files '*.h' '*.cpp')
  if clang-format --dry-run -Werror "${files[@]}"; then
    passed format
  else
    failed format
    echo "para corrigir: ./kodra format"
  fi
}

# Every group of tests is listed in the usage of ./kodra and in the README.
check_group_lines() {
  local group missing=()
  for group in "${test_groups[@]}" "${check_groups[@]}"; do
    # All lines are read: a reader that stops early would break the pipe of usage.
    ./kodra help | grep -E "^ {23}$group +[a-zA-Z]" >/dev/null || missing+=("$group: ./kodra")
    grep -qF "| \`$group\` |" README.md || missing+=("$group: README.md")
  done
  [ ${#missing[@]} = 0 ] && { passed docs.groups; return; }
  failed docs.groups
  printf 'um grupo de testes não consta da lista: %s\n' "${missing[@]}"
}

# Every test that the list of behaviours names exists.
check_named_tests() {
  # shellcheck disable=SC2016  # the backquotes are Markdown's
  local name known missing=() cited='`[A-Z][A-Za-z0-9]+\.[A-Z][A-Za-z0-9]+`'
  known=$(git ls-files 'tests/*.cpp' | xargs sed -nE 's/^TEST(_F|_P)?\((\w+), *(\w+)\).*/\2.\3/p')
  while read -r name; do
    grep -qxF "$name" <<<"$known" || missing+=("$name")
  done < <(grep -oE "$cited" docs/behaviours.md | tr -d '`' | sort -u)
  [ ${#missing[@]} = 0 ] && { passed docs.behaviours; return; }
  failed docs.behaviours
  printf 'docs/behaviours.md nomeia um teste que não existe: %s\n' "${missing[@]}"
}

# The newest version that the list of changes dates is the one that is stated in version.h.
check_changes() {
  local version newest
  version=$(version_part MAJOR).$(version_part MINOR).$(version_part REVISION)
  newest=$(sed -nE 's/^## ([0-9.]+) - [0-9]{4}-[0-9]{2}-[0-9]{2}$/\1/p' CHANGELOG.md | head -n 1)
  [ "$newest" = "$version" ] && { passed docs.changes; return; }
  failed docs.changes
  echo "a versão é $version, e a mais nova com data em CHANGELOG.md é \"$newest\""
}

group_docs() {
  check_changes
  check_reference
  check_group_lines
  check_named_tests
}

# The scripts that people and programs start, with those that they read; the subjects of the commits since the day when
# they got their limit; and what the scripts do when something goes wrong.
group_scripts() {
  if shellcheck -x -a kodra .ci/run tools/group testbed/wine/environment packaging/console/kodrarpt.bash; then
    passed scripts.shellcheck
  else
    failed scripts.shellcheck
  fi
  local long
  long=$(git log --since=2026-11-21 --format=%s | awk 'length > 72')
  if [ -z "$long" ]; then
    passed scripts.subjects
  else
    failed scripts.subjects
    printf 'assunto de commit com mais de 72 caracteres: %s\n' "$long"
  fi
  check_made
  check_failing_groups
  check_full_disk
  check_fetched_sources
  check_temporary_names
  check_without_network
}

# Every source in src/ is part of the DLL: the linker's map names the objects that it took.
check_linked_sources() {
  local source missing=()
  while read -r source; do
    grep -qE "[/(]${source##*/}\.obj" build/win32/KodraRpt.map || missing+=("$source")
  done < <(git ls-files 'src/*.cpp')
  [ ${#missing[@]} = 0 ] && { passed wine.linked_sources; return; }
  failed wine.linked_sources
  printf 'KodraRpt.dll não contém: %s\n' "${missing[@]}"
}

# Runs the tests in Wine on what a preset has built, in the folder of their scripts: wine_tests PRESET [OPTION…]
wine_tests() {
  local preset=$1
  shift
  build_preset "$preset" KodraRpt kodra_ado kodra_siblings_com kodra_test_wine
  build_preset sanitize kodra-demo-data kodra-mariadb
  archive sanitize build/test/acervo.db 500
  made build/test/acervo.sql build/sanitize/kodra-demo-data mysql --documents 500
  with_wine "$preset"
  export KODRA_ARCHIVE=$PWD/build/test/acervo.db KODRA_BIND=$PWD KODRA_BIN
  KODRA_BIN=$(windows_path "build/$preset")
  in_wine_form build/sanitize/kodra-mariadb build/test/acervo.sql -- env -C tests/wine \
    ../../testbed/wine/environment run wine "../../build/$preset/tests/kodra_test_wine.exe" "$@"
}

group_wine() {
  local status=0
  build_preset win32 kodrarpt
  wine_tests win32 || status=$?
  check_linked_sources
  return "$status"
}

# Prints how many tests a log has, and the reasons of the failures: count NAME LOG STATUS. A group that ends with an error
# has failed, whatever it printed.
count() {
  local name=$1 log=$2 status=$3 ok bad
  ok=$(grep -c '^\[       OK \]' "$log" || true)
  bad=$(grep -cE '^\[  FAILED  \] .*\([0-9]+ ms\)' "$log" || true)
  if [ "$bad" = 0 ] && { [ "$status" != 0 ] || [ "$ok" = 0 ]; }; then bad=1; fi
  total_passed=$((total_passed + ok))
  total_failed=$((total_failed + bad))
  printf '  %-12s %5d ok %5d falhas\n' "$name" "$ok" "$bad"
  if [ "$bad" != 0 ]; then
    failures+=("$name ($log)")
    { grep -vE '^(\[( RUN      |       OK |----------|==========|  PASSED  )|Running main|Note: Google Test filter|$)' "$log" ||
      echo '  terminou com erro, sem dizer por quê'; } | tail -n 80
    echo "  (saída inteira em $log)"
  fi
}

# Nothing that the tests print contains their one password.
check_secrecy() {
  local secret
  secret=$(sed -nE 's/.* kSecret = L"(.+)";$/\1/p' tests/secret.h)
  if [ -n "$secret" ] && ! grep -rliF -- "$secret" "$logs"; then
    total_passed=$((total_passed + 1))
  else
    total_failed=$((total_failed + 1))
    failures+=("a senha dos testes aparece em $logs")
    echo "  os arquivos acima mostram a senha dos testes"
  fi
}

# Runs one group by CTest: run_group NAME
run_group() {
  local group=$1 preset=${preset_of_group[$1]} status=0
  local output=build/$preset/Testing/Temporary/LastTest.log
  case $group in
    native) build_preset "$preset" ;;
    # The others build what they need.
    *) logged "cmake-$preset" cmake --preset "$preset" ;;
  esac
  step "testes: $group"
  rm -f "$output"
  ctest --preset "$preset" -L "^$group\$" >"$logs/ctest-$group.log" 2>&1 </dev/null || status=$?
  # When CTest has run no test, it says why.
  [ -s "$output" ] || output=$logs/ctest-$group.log
  cp "$output" "$logs/test-$group.log"
  count "$group" "$logs/test-$group.log" "$status"
}

start_counting() {
  mkdir -p "$logs"
  total_passed=0
  total_failed=0
  failures=()
}

# What failed, and the totals. Returns 0 when something passed and nothing failed.
report_count() {
  [ ${#failures[@]} = 0 ] || printf 'falhou: %s\n' "${failures[@]}"
  echo "$total_passed passed, $total_failed failed"
  [ "$total_failed" = 0 ] && [ "$total_passed" != 0 ]
}

run_tests() {
  local groups=("$@") group packages=test
  [ ${#groups[@]} -gt 0 ] || groups=("${test_groups[@]}")
  for group in "${groups[@]}"; do
    [ "${preset_of_group[$group]:-}" ] || die "não há grupo de testes \"$group\": ${test_groups[*]} ${check_groups[*]}"
    [[ " ${check_groups[*]} " != *" $group "* ]] || packages=check
  done
  setup "$packages"
  start_counting
  for group in "${groups[@]}"; do
    run_group "$group"
  done
  check_secrecy
  report_count
}
