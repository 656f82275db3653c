# How much of the sources the tests run.

# Writes the coverage of the sources in some folders as the tests of a preset have run them, one line per file:
# coverage_of PRESET GCOV FOLDERS, where GCOV belongs to the compiler and FOLDERS is a regular expression.
coverage_of() {
  # A branch that only an exception takes exists for almost every call; counting them would hide the others. Threads
  # count without locks, and gcovr calls a count that became negative by that a parse error.
  logged "gcovr-$1" gcovr --root . --gcov-executable "$2" --exclude-throw-branches --exclude-unreachable-branches \
    --gcov-ignore-parse-errors --filter "$3/" --csv --output "build/coverage/$1.csv" "build/$1"
}

# Deletes what earlier runs have counted: forget_runs PRESET
forget_runs() { find "build/$1" -name '*.gcda' -delete; }

# A row of Markdown for each folder, with the percentages of lines and branches, rounded down: covered_folders FILE…
covered_folders() {
  awk -F, '
    FNR == 1 { next }
    # A build folder keeps what the compiler wrote about a source that has been deleted since.
    (getline line < $1) < 0 { next }
    {
      close($1)
      folder = $1
      sub(/\/[^\/]*$/, "", folder)
      lines[folder] += $2; run[folder] += $3; branches[folder] += $5; taken[folder] += $6
    }
    END {
      for (folder in lines)
        printf "| `%s` | %d | %d |\n", folder, lines[folder] ? 100 * run[folder] / lines[folder] : 100,
          branches[folder] ? 100 * taken[folder] / branches[folder] : 100
    }' "$@" | sort
}

# What differs between the figures in CONTRIBUTING.md and a table of covered_folders: a folder below its figures, without
# figures, or no longer there: below_figures TABLE
below_figures() {
  awk -F '[|` ]+' '
    !/^\| `[a-z0-9_\/]+` \| [0-9]+ \| [0-9]+ \|/ { next }
    NR == FNR { lines[$2] = $3; branches[$2] = $4; next }
    { found[$2] }
    !($2 in lines) { print $2 ": não consta de CONTRIBUTING.md"; next }
    $3 < lines[$2] || $4 < branches[$2] {
      printf "%s: %d%% das linhas e %d%% dos desvios, e não %d%% e %d%%\n", $2, $3, $4, lines[$2], branches[$2]
    }
    END { for (folder in lines) if (!(folder in found)) print folder ": consta de CONTRIBUTING.md, mas nada foi medido" }
  ' CONTRIBUTING.md "$1"
}

# Runs the tests on Linux and in Wine, prints the coverage of each folder, and fails when one is below its figures.
coverage() {
  need test
  command -v gcovr >/dev/null || die "falta o gcovr
  para instalá-lo: ./kodra setup check"
  mkdir -p build/coverage
  build_preset coverage
  forget_runs coverage
  step "testes no Linux"
  logged coverage-native ctest --preset coverage -L '^native$'
  coverage_of coverage gcov '(src|odbc|siblings|console|testbed/archive|testbed/mariadb|tools)'
  build_preset win32-coverage KodraRpt kodra_ado kodra_siblings_com kodra_test_wine
  forget_runs win32-coverage
  step "testes no Wine"
  # The excluded tests describe the files that are shipped, or only repeat calls that others make.
  logged coverage-wine wine_tests win32-coverage '--gtest_filter=-DllFile.*:ConsoleProgram.*:Soak*'
  coverage_of win32-coverage i686-w64-mingw32-gcov-posix '(src/(com|ado)|comkit|odbc/adodb|siblings/com)'
  covered_folders build/coverage/{,win32-}coverage.csv >build/coverage/folders.md
  printf '| pasta | linhas %% | desvios %% |\n| --- | --- | --- |\n'
  cat build/coverage/folders.md
  local below
  below=$(below_figures build/coverage/folders.md)
  [ -z "$below" ] || die "cobertura diferente dos números de CONTRIBUTING.md:
$below"
}
