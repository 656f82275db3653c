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

# Writes pages on both systems; the files must have the same bytes. Pages contain the minute in which they are issued:
# both are written in the same one.
same_pages() {
  local folder=build/console minute
  rm -rf "$folder/native-pages" "$folder/windows-pages"
  mkdir -p "$folder/native-pages" "$folder/windows-pages"
  minute=
  until [ "$minute" = "$(date +%H:%M)" ]; do
    minute=$(date +%H:%M)
    TZ=UTC build/sanitize/kodrarpt "$@" --saida "$folder/native-pages/páginas.pdf" || true
    wine_environment run wine build/win32/console/kodrarpt.exe "$@" --saida "$folder/windows-pages/páginas.pdf" \
      2>>"$logs/wine.log" || true
  done
  if [ -s "$folder/native-pages/páginas.pdf" ] && cmp -s "$folder/native-pages/páginas.pdf" "$folder/windows-pages/páginas.pdf"; then
    passed "console.pages $1 $2"
  else
    failed "console.pages $1 $2"
    echo "kodrarpt $* escreve outras páginas no Windows"
  fi
}

# The pages that same_pages wrote last: A4, with these words, and every font embedded and a subset.
pages_have() {
  local file=build/console/native-pages/páginas.pdf words missing=
  for words in "$@"; do
    pdftotext -layout "$file" - | grep -qF "$words" || missing="$missing «$words»"
  done
  pdfinfo "$file" | grep -q '(A4)' || missing="$missing A4"
  pdffonts "$file" | tail -n +3 | awk '$0 !~ / yes yes /{other = 1} END {exit other || NR == 0}' || missing="$missing fontes"
  if [ -z "$missing" ]; then passed "console.pages have $1"; else failed "console.pages have $1"; echo "faltam:$missing"; fi
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
  # One dot of PNG.
  base64 -d >build/console/logotipo.png <<<iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9awAAAABJRU5ErkJggg==
  same_pages executa CDocumentoRpt.RelatorioAnalitico --formato pdf --conexao "$connection" --orgao "Órgão Público" \
    --logotipo build/console/logotipo.png
  pages_have "Documentos: relatório analítico" "Órgão Público" "Armazenamento" "Página 2 de " "registros"
  same_pages executa CEstatIndexRpt.RelatorioEstatisticasPorPalavrasChave --formato pdf --conexao "$connection" \
    --NumeroPC1 1200 --NumeroPC2 7 --NumeroPC3 0 --NumeroPC4 333 --NumeroPC5 1 --NumeroObs 2
  pages_have "Estatísticas de indexação por palavras-chave" "Documentos por Chave" "1.200" "Total geral"
  same_pages papel retirada --conexao "$connection" --CodSolicit 1
  pages_have "Comprovante de retirada de originais" "2ª via: acompanha os originais" "Devolvido em"
  same_pages papel modulo --conexao "$connection" --Modulo1 AA001
  pages_have "Módulo AA001" "Documentos" "Depósito:"
}
