# The packages: the files that are in them, and the zip.

version_part() { sed -n "s/^#define KODRA_VERSION_$1 //p" src/frame/version.h; }

# Copies files to a folder of the staged package, in the form that Windows' own programs read: put FOLDER FILE…
put() {
  local folder=$stage/$1 file
  shift
  mkdir -p "$folder"
  for file; do
    case $file in
      *.vbs | *.bas | *.cls | *.frm | *.txt) sed 's/$/\r/' "$file" | iconv -f UTF-8 -t CP1252 >"$folder/${file##*/}" ;;
      *) cp "$file" "$folder" ;;
    esac
  done
}

# Copies a folder of the repository to a folder of the package: put_tree FOLDER SOURCE
put_tree() {
  local file place
  while read -r file; do
    place=${file%/*}
    put "$1${place#"$2"}" "$file"
  done < <(git -c core.quotepath=off ls-files "$2" ':!*CMakeLists.txt')
}

# Turns the Markdown of the staged package into HTML. Links to a page lead to its HTML, and the examples have another
# folder in the package; lowdown leaves what is not ASCII out of the names of headings, so links leave it out, too.
make_html() {
  local page style
  while read -r page; do
    style=${page#"$stage"/}
    style=$(sed -E 's,[^/]+/,../,g; s,[^/]+$,docs/estilo.css,' <<<"$style")
    lowdown -s -T html -m "title=$(sed -n '1s/^# //p' "$page")" -m "css=$style" "$page" |
      sed -E ':again; s/(href="[^":]*#[^"%]*)(%[0-9A-F]{2})+/\1/; t again
        s,(href="[^":#]*)\.md(["#]),\1.html\2,g; s,href="\.\./examples/,href="../exemplos/,g' >"${page%.md}.html"
    rm "$page"
  done < <(find "$stage" -name '*.md')
}

# The content of a package.
stage_files() {
  sed "s/@version@/$version/" packaging/LEIAME.txt >"$folder/parts/LEIAME.txt"
  put . build/win32/KodraRpt.dll "$folder/parts/LEIAME.txt"
  put console build/win32/console/kodrarpt.exe packaging/console/kodrarpt.bash packaging/console/kodrarpt.1
  put x64/console build/win64/console/kodrarpt.exe
  put_licences . "KodraRpt.dll" component_licences
  put_licences console "kodrarpt.exe" console_licences
  cp "$stage/console/LICENCAS.txt" "$stage/x64/console"
  cp build/win32/src/com/generated/kodrarpt.tlb "$stage/KodraRpt.tlb"
  put docs packaging/estilo.css docs/{guia.pt-BR,recordsets.pt-BR,behaviours,cluster,dialects}.md
  put_tree docs/reference docs/reference
  put_tree docs/panel docs/panel
  put_tree exemplos examples
  make_html
  cat testbed/archive/cliente.vbs testbed/archive/tabela.vbs | sed 's/$/\r/' | iconv -f UTF-8 -t CP1252 >"$stage/exemplos/cliente.vbs"
}

# In the zip only: the manifests, and the component for 64-bit programs. The installer registers the 32-bit one.
stage_unregistered() {
  local architecture folder
  for architecture in x86 amd64; do
    folder=$stage
    [ "$architecture" = x86 ] || folder=$stage/x64
    mkdir -p "$folder"
    awk -f packaging/manifest.awk -v version="$assembly_version" -v architecture="$architecture" \
      build/package/rows.txt >"$folder/KodraRpt.Classes.manifest"
    sed "s/@version@/$assembly_version/; s/@architecture@/$architecture/" packaging/programa.exe.manifest \
      >"$folder/programa.exe.manifest"
  done
  cp build/win64/KodraRpt.dll "$stage/LICENCAS.txt" "$stage/x64"
}

# Sets modes and times that depend neither on who made the package nor on when.
settle() {
  find "$1" -type d -exec chmod 755 {} +
  find "$1" -type f -exec chmod 644 {} +
  find "$1" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +
}

# The checksum of each file in a folder.
sums() { (cd "$1" && find . -type f | sort | sed 's,^\./,,' | xargs sha256sum); }

# The properties of the package besides its files: settings FOLDER [REVISION]
settings() {
  local revision=${2:-$(version_part REVISION)}
  folder=$(readlink -f "$1")
  version=$(version_part MAJOR).$(version_part MINOR).$revision
  assembly_version=$(version_part MAJOR).$(version_part MINOR).0.$revision
  stage=$folder/KodraRpt-$version
  export TZ=UTC LC_ALL=C.UTF-8 SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
}

# Stages the files of the build and makes their MSI: stage_and_make_msi FOLDER [REVISION]
stage_and_make_msi() {
  settings "$@"
  rm -rf "$stage" "$stage".* "$folder/parts"
  mkdir -p "$stage" "$folder/parts"
  stage_files
  settle "$stage"
  make_msi "$stage.msi"
}

# The MSI, the zip and their checksums: make_package FOLDER
make_package() (
  stage_and_make_msi "$1"
  stage_unregistered
  sums "$stage" >"$folder/parts/sums"
  mv "$folder/parts/sums" "$stage/SHA256SUMS"
  settle "$stage"
  cd "$folder" || exit
  find "KodraRpt-$version" -type f | sort | zip -q -X -9 "KodraRpt-$version.zip" -@
  sha256sum "KodraRpt-$version.msi" "KodraRpt-$version.zip" >SHA256SUMS
)

# The same files as the next revision, for the test of an upgrade: make_later_msi FOLDER
make_later_msi() (stage_and_make_msi "$1" $(($(version_part REVISION) + 1)))

# The rows that the DLL registers, with [#KodraRpt.dll] for its path and [INSTALLDIR] for its folder.
registry_rows() {
  local folder
  folder=$(windows_path build/win32)
  wine_environment run wine build/win32/tools/kodra_registry_rows.exe "$folder\\KodraRpt.dll" 2>>"$logs/wine.log" | tr -d '\r' |
    sort | FOLDER="$folder\\" awk -F '\t' -v OFS='\t' '
      $3 == ENVIRON["FOLDER"] { $3 = "[INSTALLDIR]" }
      $3 == ENVIRON["FOLDER"] "KodraRpt.dll" { $3 = "[#KodraRpt.dll]" }
      { print }'
}

build_package() {
  build_preset win32 KodraRpt kodrarpt kodra_registry_rows
  build_preset win64 KodraRpt kodrarpt
  step "faz os pacotes"
  mkdir -p build/package
  registry_rows >build/package/rows.txt
  logged package ./kodra pack build/package
}

package() {
  need package
  build_package
  (cd build/package && sha256sum -- *.msi *.zip && ls -l -- *.msi *.zip)
  if grep '^## Ainda não publicado$' CHANGELOG.md >/dev/null; then
    echo "Estes pacotes são para testes: têm mudanças ainda não publicadas e o número da última versão."
    echo "Como publicar uma versão: CONTRIBUTING.md."
  fi
}
