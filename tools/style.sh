# The format of the sources, and their check with clang-tidy.

format() {
  command -v clang-format >/dev/null || die "falta o clang-format
  para instalá-lo: ./kodra setup test"
  git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format -i
}

# Checks sources as a build compiles them: tidy FOLDER OF compile_commands.json, OPTIONS … -- FILE…
tidy() {
  local options=(--quiet -p "$1")
  shift
  while [ "$1" != -- ]; do options+=("$1"); shift; done
  shift
  printf '%s\0' "$@" | xargs -0 -P "$jobs" -n 2 clang-tidy "${options[@]}"
}

# The folders where the compiler for 32-bit Windows finds its own headers, one a line.
windows_headers() {
  i686-w64-mingw32-g++-posix -E -x c++ - -v </dev/null 2>&1 >/dev/null | sed -n '/^#include </,/^End/s/^ //p'
}

# Each source is checked as the build that compiles it: the native one, or the one for 32-bit Windows. Headers are checked
# with the sources that include them; the system's and generated ones are not.
lint() {
  local source folder natively=() for_windows=() options=(--extra-arg=--target=i686-w64-mingw32) status=0
  need lint
  # Only the generated headers are built.
  build_preset native kodra_public_classes_def
  build_preset win32 kodra_public_classes_def kodra_idl src/ado/generated/msado15.h
  while read -r source; do
    # What neither build compiles is checked like its neighbours in the native one.
    if grep -qF "\"file\": \"$PWD/$source\"" build/win32/compile_commands.json &&
      ! grep -qF "\"file\": \"$PWD/$source\"" build/native/compile_commands.json
    then
      for_windows+=("$source")
    else
      natively+=("$source")
    fi
  done < <(git ls-files '*.cpp' | grep -E '^(src|comkit|odbc|siblings|console|testbed|tools)/')
  step "clang-tidy: ${#natively[@]} fontes portáteis"
  tidy build/native -- "${natively[@]}" || status=$?
  # The commands without what only GCC understands: its precompiled headers, and one of its options.
  mkdir -p build/lint
  sed -E 's/ -Winvalid-pch -include [^ ]+//; s/ -fno-reorder-blocks-and-partition//' build/win32/compile_commands.json \
    >build/lint/compile_commands.json
  while read -r folder; do options+=("--extra-arg=-isystem$folder"); done < <(windows_headers)
  step "clang-tidy: ${#for_windows[@]} fontes para o Windows"
  tidy build/lint "${options[@]}" -- "${for_windows[@]}" || status=$?
  return "$status"
}
