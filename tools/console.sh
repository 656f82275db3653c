# Tests the console program as a Windows program.

# Runs kodrarpt on Linux and a program for Windows with the same arguments; both must write the same bytes and the same
# exit code: compare TEST WINDOWS-COMMAND… -- ARGUMENT…
compare() {
  local test=$1 program=() native=$PWD/build/console/native windows=$PWD/build/console/windows
  shift
  while [ "$1" != -- ]; do program+=("$1"); shift; done
  shift
  build/sanitize/kodrarpt "$@" >"$native" 2>&1 </dev/null || echo "código $?" >>"$native"
  "${program[@]}" "$@" >"$windows" 2>&1 </dev/null || echo "código $?" >>"$windows"
  sed -i '/XDG_RUNTIME_DIR/d' "$windows"  # a message of the Wine server itself when it starts
  if [ -s "$native" ] && cmp -s "$native" "$windows"; then
    passed "console.$test $*"
  else
    failed "console.$test $*"
    echo "kodrarpt $* escreve outra coisa no Windows:"
    diff "$native" "$windows" | head -n 10 || true
  fi
}

same() { compare 32 wine_environment run wine build/win32/console/kodrarpt.exe -- "$@"; }

# Without a database, because the 64-bit Wine has neither ADO nor the siblings.
same_in_64_bits() { compare 64 wine64 build/win64/console/kodrarpt.exe -- "$@"; }

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

# Runs a routine on both systems; the files must have the same bytes.
same_routine() {
  local system folder=build/console
  for system in native windows; do
    rm -rf "$folder/$system-routine"
    mkdir -p "$folder/$system-routine"
    printf '%s\n' '[rotina]' 'pasta = saídas' '[deptos]' 'relatorio = CDeptoRpt' 'arquivo = {saida}.csv' 'excel = sim' \
      '[séries]' 'relatorio = CSerieRpt' 'arquivo = {saida}.json' >"$folder/$system-routine/rotina.ini"
  done
  build/sanitize/kodrarpt rotina "$folder/native-routine/rotina.ini" "$@" >/dev/null || true
  wine_environment run wine build/win32/console/kodrarpt.exe rotina "$folder/windows-routine/rotina.ini" "$@" \
    >/dev/null 2>>"$logs/wine.log" || true
  if [ -s "$folder/native-routine/saídas/séries.json" ] && diff -r "$folder/native-routine" "$folder/windows-routine"; then
    passed console.rotina
  else
    failed console.rotina
  fi
}

# Stores profiles on both systems, connects by them and runs a routine of five reports twice; the words, the file of the
# profiles and the files of the routine must be the same but for paths, times and versions: same_profile CONNECTION
same_profile() {
  local connection=$1 folder=$PWD/build/console/perfil program system line text
  program=$(windows_path build/win32/console/kodrarpt.exe)
  rm -rf "$folder"
  for system in native windows; do
    mkdir -p "$folder/$system"
    printf '%s\n' '[rotina]' 'perfil = acervo' 'pasta = saidas' '[deptos]' 'relatorio = CDeptoRpt' 'arquivo = a.csv' \
      '[series]' 'relatorio = CSerieRpt' 'arquivo = b.json' '[suportes]' 'relatorio = CSuporteRpt' 'arquivo = c.txt' \
      '[operadores]' 'relatorio = COperadorRpt' 'arquivo = d.csv' 'excel = sim' \
      '[documentos]' 'relatorio = RelatorioSintetico' 'arquivo = e.json' 'limite = 100' >"$folder/$system/rotina.ini"
  done
  cat >"$folder/comandos" <<END
perfil novo acervo --conexao "$connection"
perfil novo comando --conexao "$connection" --senha-comando "echo segredo"
perfil novo variavel --conexao "$connection" --senha-de KODRA_FALTA
perfil lista
perfil testa acervo
executa CDeptoRpt --perfil acervo --formato csv
executa CDeptoRpt --perfil comando --formato csv
executa CDeptoRpt --perfil variavel --formato csv
executa CDeptoRpt --perfil acervo --pergunta-senha --formato csv
rotina "PASTA/rotina.ini"
rotina "PASTA/rotina.ini"
perfil remove acervo
perfil lista
rotina "PASTA/rotina.ini"
END
  while IFS= read -r line; do
    printf '"%s" %s </dev/null\n' "$PWD/build/sanitize/kodrarpt" "${line//PASTA/$folder/native}"
  done <"$folder/comandos" >"$folder/comandos.sh"
  # Wine sets APPDATA itself, so the commands set it again.
  {
    printf '@set APPDATA=%s\r\n' "$(windows_path "$folder/windows")"
    while IFS= read -r line; do
      printf '@"%s" %s <nul\r\n' "$program" "${line//PASTA/$(windows_path "$folder/windows")}"
    done <"$folder/comandos"
  } >"$folder/comandos.cmd"
  XDG_CONFIG_HOME=$folder/native sh "$folder/comandos.sh" >"$folder/native.txt" 2>&1 || true
  wine_environment run wine cmd /c "$(windows_path "$folder/comandos.cmd")" >"$folder/windows.txt" 2>&1 </dev/null || true
  for system in native windows; do
    text=$(<"$folder/$system.txt")
    text=${text//"$folder/native"/PASTA}
    text=${text//"$(windows_path "$folder/windows")"/PASTA}
    sed -E '/XDG_RUNTIME_DIR/d; s/em [0-9]+ ms/em N ms/; s/ +[0-9]+,[0-9]  / N,N  /; s/(produto  SQLite) .*/\1/; s/\\/\//g' \
      <<<"$text" >"$folder/$system.txt"
  done
  if [ "$(grep -c '5 de 5 gravadas' "$folder/native.txt")" = 2 ] && diff "$folder/native.txt" "$folder/windows.txt" &&
    diff --strip-trailing-cr "$folder/native/kodrarpt/perfis.ini" "$folder/windows/kodrarpt/perfis.ini" &&
    diff -r "$folder/native/saidas" "$folder/windows/saidas"
  then
    passed console.perfil
  else
    failed console.perfil
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
    pdftotext -layout "$file" - | grep -F -- "$words" >/dev/null || missing="$missing «$words»"
  done
  pdfinfo "$file" | grep '(A4)' >/dev/null || missing="$missing A4"
  pdffonts "$file" | tail -n +3 | awk '$0 !~ / yes yes /{other = 1} END {exit other || NR == 0}' || missing="$missing fontes"
  if [ -z "$missing" ]; then passed "console.pages have $1"; else failed "console.pages have $1"; echo "faltam:$missing"; fi
}

# Prints labels of a kind on several stocks, at the resolution of an office printer: a scanner must read the codes that
# standard input lists, and nothing else; the first label must be in its place, in millimetres from the page's corner.
# The padding of a label is 2 mm, or 1.5 mm on labels of less than 30 mm.
labels_are_read() {
  local kind=$1 stock left top pages=build/console/labels expected found place name
  shift
  expected=$(sort)
  while read -r stock left top; do
    rm -rf "$pages"
    mkdir -p "$pages"
    build/sanitize/kodrarpt etiquetas "$kind" "$@" --folha "$stock" --saida "$pages/labels.pdf" 2>>"$logs/console.log" || true
    pdftoppm -r 600 -mono "$pages/labels.pdf" "$pages/page"
    # Without a code that it can read, zbarimg ends with an error.
    found=$(zbarimg --nodbus --quiet --raw "$pages"/page*.pbm | sort) || true
    place=$(pdftotext -bbox "$pages/labels.pdf" - | awk -F'"' -v left="$left" -v top="$top" '/<word/ && !words++ {
      x = $2 / 72 * 25.4 - left; y = $4 / 72 * 25.4 - top
      print x * x <= 0.04 && y * y <= 0.04 ? "here" : "at " $2 ", " $4 " points" }')
    name="console.labels $kind ${*%%Driver=*} $stock"
    if [ "$found" = "$expected" ] && [ "$place" = here ] && [ -n "$expected" ]; then
      passed "$name"
    else
      failed "$name"
      echo "etiquetas $kind $* --folha $stock: primeira etiqueta $place; códigos que faltam (<) ou sobram (>):"
      diff <(echo "$expected") <(echo "$found") || true
    fi
  done <<'END'
a4-2x7 6.65 17.15
carta-3x10 6.3 14.2
60x40mm 2 2
END
}

# The panel serves the same page and the same answers on both systems, and ends with Ctrl-C: same_panel CONNECTION
same_panel() {
  local differences
  if differences=$(python3 tests/panel/same_panel.py "$1" build/sanitize/kodrarpt -- \
    testbed/wine/environment run wine build/win32/console/kodrarpt.exe 2>>"$logs/wine.log")
  then
    passed console.painel
  else
    failed console.painel
    echo "o painel responde outra coisa no Windows: $differences"
  fi
}

# The labels of the archive: their codes, their words and their fonts; and the same bytes on Windows.
labels() {
  local connection=$1 kind
  shift
  printf '%s\n' AA001 AA00102 AA003 | labels_are_read abertura AA001 AA00102 AA003 --conexao "$connection"
  printf '%s\n' AA002 AA001 | labels_are_read fechamento AA002 AA001 --conexao "$connection"
  printf '%s\n' AA00101 AA00102 AA00103 | labels_are_read subordinadas AA001 --conexao "$connection"
  build/sanitize/kodrarpt executa CCaixaRpt.EtiquetaDivisoria --Modulo1 AA001 --formato csv --conexao "$connection" |
    sed 1d | tr -d '\r' | labels_are_read divisoria AA001 --conexao "$connection"
  printf '%s\n' CT0001 CT0005 | labels_are_read conteiner CT0001 CT0005 --conexao "$connection"
  printf '%s\n' AA001 AA002 | labels_are_read abertura AA001 AA002 --codigo qr --com-lugar --conexao "$connection"
  build/sanitize/kodrarpt etiquetas fechamento AA002 --orgao "Câmara de Évora" --conexao "$connection" \
    --saida build/console/labels.pdf 2>>"$logs/console.log"
  if pdftotext build/console/labels.pdf - | grep -x "Câmara de Évora" >/dev/null &&
    [ "$(pdffonts build/console/labels.pdf | grep -c '^KODRA.+LiberationSans.* yes yes ')" = 2 ]; then
    passed console.labels-text
  else
    failed console.labels-text
  fi
  for kind in abertura fechamento subordinadas divisoria; do
    same etiquetas "$kind" AA001 AA002 --com-lugar --ajuste=-0.5,1 --conexao "$connection"
  done
  same etiquetas conteiner --de CT0001 --codigo qr --folha 60x40mm --conexao "$connection"
  same etiquetas abertura AA001 AA00101 XX999 --formato html --contorno --conexao "$connection"
}

group_console() {
  build_preset sanitize kodrarpt kodra-demo-data
  build_preset win32 kodrarpt KodraRpt kodra_ado kodra_siblings_com
  build_preset win64 kodrarpt
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
  same lista --json
  same executa CLogRpt --help
  # The same rows through ADO and the siblings by ProgID as through ODBC and the siblings that are linked in.
  with_wine
  ready_wine64
  same_in_64_bits --help
  same_in_64_bits descreve CDocumentoRpt.RelatorioAnalítico
  same_in_64_bits sql CModeloRpt --banco todos --bonito --CodModelo "ofício nº 7 – «café» €"
  local report format connection="Driver={SQLite3};Database=$PWD/build/test/acervo.db"
  for report in CDeptoRpt.RelatorioDeptos CDocumentoRpt.RelatorioAnalitico CCaixaRpt.RelatoriosModulos \
    COperadorRpt.RelatorioOperadores; do
    for format in csv json tabela; do
      same executa "$report" --conexao "$connection" --formato "$format"
    done
  done
  same executa CDeptoRpt --conexao "$connection" --formato cvs
  same executa CDeptoRpt --conexao "Driver={SQLite3};Database=nada.db" --detalhes
  same executa CDocumentoRpt.RelatorioSintetico --conexao "$connection" --CodDepto 999
  same perfil novo acervo --conexao "DSN=Acervo;PWD=x"
  printf '[x]\nrelatorio = CDeptoRp\narquivo = x.csv\n' >build/console/rotina.ini
  same rotina build/console/rotina.ini --conexao "$connection"
  same_routine --conexao "$connection"
  same_profile "$connection"
  same_sheet CDocumentoRpt.RelatorioAnalitico --conexao "$connection"
  printf '0000000021\r\n0000000022\r\n0000000001\r\nX\r\n' >build/console/lidos.txt
  same confere --modulo AA002 --conexao "$connection" --lista build/console/lidos.txt --formato csv
  same confere --conteiner CT0001 --conexao "$connection" --lista build/console/lidos.txt
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
  labels "$connection"
  same verifica --json --conexao "$connection"
  same_panel "$connection"
  same esquema --banco todos --indices
}
