# Tests the console program as a Windows program.

# Runs kodrarpt on both systems with the same arguments; both must write the same bytes and the same exit code.
same() {
  local native=$PWD/build/console/native windows=$PWD/build/console/windows
  build/sanitize/kodrarpt "$@" >"$native" 2>&1 </dev/null || echo "código $?" >>"$native"
  wine_environment run wine build/win32/console/kodrarpt.exe "$@" >"$windows" 2>&1 </dev/null || echo "código $?" >>"$windows"
  sed -i '/XDG_RUNTIME_DIR/d' "$windows"  # a message of the Wine server itself when it starts
  if [ -s "$native" ] && cmp -s "$native" "$windows"; then
    passed "console.$1 ${*:2}"
  else
    failed "console.$1 ${*:2}"
    echo "kodrarpt $* escreve outra coisa no Windows:"
    diff "$native" "$windows" | head -n 10 || true
  fi
}

# Writes a report as a spreadsheet on both systems, to a name with accents; the sheets must have the same cells.
same_sheet() {
  local name=planilha-ação.xlsx folder=build/console
  rm -rf "$folder/native-sheet" "$folder/windows-sheet"
  mkdir -p "$folder/native-sheet" "$folder/windows-sheet"
  build/sanitize/kodrarpt executa "$@" --formato xlsx --saida "$folder/native-sheet/$name" || true
  wine_environment run wine build/win32/console/kodrarpt.exe executa "$@" --formato xlsx --saida "$folder/windows-sheet/$name" \
    2>>"$logs/wine.log" || true
  if unzip -p "$folder/native-sheet/$name" xl/worksheets/sheet1.xml xl/styles.xml >"$folder/native" 2>&1 &&
    unzip -p "$folder/windows-sheet/$name" xl/worksheets/sheet1.xml xl/styles.xml >"$folder/windows" 2>&1 &&
    cmp -s "$folder/native" "$folder/windows"; then
    passed "console.xlsx $1"
  else
    failed "console.xlsx $1"
    echo "kodrarpt $* escreve outra planilha no Windows"
  fi
}

group_console() {
  build_preset sanitize kodrarpt kodra-demo-data
  build_preset win32 kodrarpt KodraRpt kodra_ado kodra_siblings_com
  archive sanitize build/test/acervo.db 500
  mkdir -p build/console
  same --help
  same --version
  same lista
  same descreve CDocumentoRpt.RelatorioAnalítico
  same sql CModeloRpt --banco todos --bonito --CodModelo "ofício nº 7 – «café» €"
  same sql CEstatSerieRpt --banco mysql --DataInicial 01/03/2024 --DataFinal 31/03/2024
  same sql CModeloRpt --banco oracle --CodModelo 'um "dois" tr\ês'
  same sql CDeptoRpt --banco açúcar
  same lísta
  # The same rows through ADO and the siblings by ProgID as through ODBC and the siblings that are linked in.
  with_wine
  local report format connection="Driver={SQLite3};Database=$PWD/build/test/acervo.db"
  for report in CDeptoRpt.RelatorioDeptos CDocumentoRpt.RelatorioAnalitico CCaixaRpt.RelatoriosModulos \
    COperadorRpt.RelatorioOperadores; do
    for format in csv json tabela; do
      same executa "$report" --conexao "$connection" --formato "$format"
    done
  done
  same executa CDeptoRpt --conexao "$connection" --formato cvs
  same_sheet CDocumentoRpt.RelatorioAnalitico --conexao "$connection"
  same verifica --conexao "$connection"
}
