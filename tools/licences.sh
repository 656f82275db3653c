# The licences of third-party code that are in the packages.

# The licence of third-party code, as Debian's package has it, with the texts in /usr/share/common-licenses that it
# refers to: licence NAMES PACKAGE [TEXT…]
licence() {
  local names=$1 package=$2 text
  shift 2
  dpkg-query -W -f "==== $names (\${source:Package} \${Version}) ====\n\n" "$package"
  cat "/usr/share/doc/$package/copyright"
  for text; do
    printf '\n---- %s ----\n\n' "$text"
    cat "/usr/share/common-licenses/$text"
  done
  printf '\n'
}

# What the compiler links into every program. THIRD-PARTY.md describes it and the libraries below.
component_licences() {
  licence "libgcc, libstdc++" gcc-mingw-w64-i686-posix GPL-3
  licence "mingw-w64, winpthreads" mingw-w64-i686-dev
}

console_licences() {
  component_licences
  licence CLI11 libcli11-dev
  licence fmt libfmt-dev
  licence nlohmann-json nlohmann-json3-dev
  licence SimpleIni libsimpleini-dev
  licence "libxlsxwriter, minizip, tmpfileplus, md5" libxlsxwriter-dev MPL-2.0
  licence libharu libhpdf-dev
  licence zint libzint-dev
  licence cpp-httplib libcpp-httplib-dev
  licence stb libstb-dev
  licence "Liberation Sans" fonts-liberation2
  licence zlib libz-mingw-w64-dev
}

# The licences beside a file: put_licences FOLDER FILES COMMAND. A letter that code page 1252 lacks becomes the nearest
# that it has.
put_licences() {
  {
    printf 'Licenças do código de terceiros em %s.\n' "$2"
    printf 'Entre parênteses, o pacote-fonte do Debian com o código-fonte.\n\n'
    "$3"
  } | iconv -f UTF-8 -t CP1252//TRANSLIT | iconv -f CP1252 -t UTF-8 >"$folder/parts/LICENCAS.txt"
  put "$1" "$folder/parts/LICENCAS.txt"
}
