# The Wine environment with the component registered, and the sample archive that runs in it.

# The sample archive in SQLite, by the generator of a preset: archive PRESET FILE DOCUMENTS. It is made again only when the tool that makes it is newer.
archive() {
  local generator=build/$1/kodra-demo-data file=$2 documents=$3
  [ "$file" -nt "$generator" ] || made "$file" "$generator" sqlite --documents "$documents"
}

windows_path() { local path; path=$(readlink -f "$1"); echo "Z:${path//\//\\}"; }

# Registers the component and the DLLs that it needs in Wine, as a preset has built them: register PRESET
register() {
  local dll
  for dll in kodra_ado kodra_siblings KodraRpt; do
    wine_environment run wine regsvr32 /s "$(windows_path "build/$1/$dll.dll")" 2>>"$logs/wine.log" ||
      die "não foi possível registrar $dll.dll (veja $logs/wine.log)"
  done
}

# Only one run at a time may use the Wine environment.
lock_wine() {
  mkdir -p "$KODRA_CACHE"
  exec 8>>"$KODRA_CACHE/use.lock"
  flock 8
}

# The environment for this process alone, with the component of a preset registered: with_wine [PRESET]
with_wine() {
  lock_wine
  register "${1:-win32}"
}

# Runs a VBScript written in UTF-8, from one or more files: script FILE… -- ARGUMENT…. Wine reads scripts in the Windows
# code page of Western Europe.
script() {
  local files=()
  while [ "$1" != -- ]; do files+=("$1"); shift; done
  shift
  mkdir -p build/demo
  cat "${files[@]}" | iconv -f UTF-8 -t CP1252 >build/demo/script.vbs
  wine_environment run env LC_ALL="${script_locale:-C.UTF-8}" wine cscript //nologo build/demo/script.vbs "$@" 2>>"$logs/wine.log"
}

# The same as on a Brazilian Windows, whose console has code page 850, with the script's output in UTF-8.
brazilian_script() { script_locale=pt_BR.UTF-8 script "$@" | iconv -f CP850 -t UTF-8 | tr -d '\r'; }
