# The format of the sources, and their check with clang-tidy.

format() {
  git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format -i
}

lint() {
  setup
  as_root apt-get install -y --no-install-recommends clang-tidy >/dev/null
  build_preset native
  # The sources that the native build compiles: headers are checked with them, Windows' own are not.
  git ls-files 'src/*.cpp' 'odbc/*.cpp' 'siblings/*.cpp' 'console/*.cpp' 'testbed/*.cpp' 'tools/*.cpp' |
    grep -vE '^(src/(com|ado)|odbc/adodb|siblings/com)/|/(machine_windows|xlsx_path_windows)\.cpp$' |
    xargs -P "$jobs" -n 4 clang-tidy --quiet -p build/native
}
