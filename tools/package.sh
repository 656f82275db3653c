# Installation: the zip, the MSI, and their tests in Wine.

version_part() { sed -n "s/^#define KODRA_VERSION_$1 //p" src/frame/version.h; }

# A GUID that is always the same for a name.
name_guid() {
  local hash
  hash=$(printf 'KodraRpt %s' "$1" | sha1sum | tr a-f A-F)
  printf '%s-%s-5%s-8%s-%s\n' "${hash:0:8}" "${hash:8:4}" "${hash:12:3}" "${hash:15:3}" "${hash:18:12}"
}

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

# A file's or folder's name in the form of the installer's tables: SHORT|long when the long one is not already short.
installer_name() {
  local name=$1 stem=${1%.*} extension=""
  [[ $name == *.* ]] && extension=.${name##*.}
  if [[ $name =~ ^[A-Za-z0-9_-]{1,8}(\.[A-Za-z0-9_-]{1,3})?$ ]]; then echo "$name"; return; fi
  stem=$(name_guid "name $stem")
  extension=${extension:0:4}
  echo "${stem:0:8}${extension^^}|$name"
}

# The installer's entries for a staged folder, except the DLL's; on descriptor 3 the references to their components.
installer_folder() {
  local folder=$1 path id
  for path in "$folder"/*; do
    id=$(name_guid "place ${path#"$stage"}")
    if [ -d "$path" ]; then
      printf '<Directory Id="d%s" Name="%s">\n' "${id//-/}" "$(installer_name "${path##*/}")"
      installer_folder "$path"
      echo '</Directory>'
    elif [ "$path" != "$stage/KodraRpt.dll" ]; then
      printf '<Component Id="c%s" Guid="%s">' "${id//-/}" "$id"
      printf '<File Id="f%s" Name="%s" Source="%s" KeyPath="yes"/></Component>\n' \
        "${id//-/}" "$(installer_name "${path##*/}")" "${path#"$stage"/}"
      printf '<ComponentRef Id="c%s"/>\n' "${id//-/}" >&3
    fi
  done
}

include_file() { echo '<Include xmlns="http://schemas.microsoft.com/wix/2006/wi">'; cat; echo '</Include>'; }

# The MSI of the staged files, which wixl finds only by relative paths: make_msi FILE
make_msi() {
  local msi=$1 parts=$folder/parts
  awk -f packaging/registry_wxi.awk build/package/rows.txt >"$parts/registry.wxi"
  installer_folder "$stage" 3>"$parts/components" | include_file >"$parts/files.wxi"
  include_file <"$parts/components" >"$parts/components.wxi"
  (
    wxs=$PWD/packaging/kodrarpt.wxs
    cd "$stage" || exit
    wixl -I "$parts" -D "Version=$version" -D "ProductCode=$(name_guid "product $version")" -o "$msi" "$wxs"
  )
  finish_msi "$msi" "$parts"
}

# The checksum of each file in a folder.
sums() { (cd "$1" && find . -type f | sort | sed 's,^\./,,' | xargs sha256sum); }

# What wixl cannot express: the versions of the programs, which an upgrade compares; the code page of the texts; what
# KODRA_PATH=1 does; which Windows gets the 64-bit console program; and a summary that is in Portuguese, has the
# package's own date, and has a code that depends only on what is installed.
finish_msi() {
  local msi=$1 parts=$2 day code file component secure
  day=$(date -u -d "@$SOURCE_DATE_EPOCH" '+%Y/%m/%d %H:%M:%S')
  code=$(name_guid "package $version $(cat packaging/*.idt packaging/kodrarpt.wxs "$parts/registry.wxi"; sums "$stage")")
  printf '\r\n\r\n1252\t_ForceCodepage\r\n' >"$parts/_ForceCodepage.idt"
  msiinfo export "$msi" _SummaryInformation >"$parts/summary"
  sed -E "s/^7\t[^\r]*/7\tIntel;1046/; s/^9\t[^\r]*/9\t{$code}/; s#^(12|13)\t[^\r]*#\1\t$day#" \
    "$parts/summary" >"$parts/_SummaryInformation.idt"
  cp packaging/Environment.idt packaging/Condition.idt "$parts"
  update() { msibuild "$msi" -q "UPDATE $1"; }
  (
    cd "$parts" || exit
    msibuild "$msi" -i _ForceCodepage.idt Environment.idt Condition.idt
    for file in KodraRpt.dll kodrarpt.exe; do
      update "\`File\` SET \`Version\`='$assembly_version', \`Language\`='1046' WHERE \`FileName\`='$file'"
    done
    for file in "$stage"/x64/console/*; do
      component=$(name_guid "place ${file#"$stage"}")
      update "\`Component\` SET \`Condition\`='VersionNT64' WHERE \`Component\`='c${component//-/}'"
    done
    # The properties that Windows passes on when the user becomes an administrator only for the installation.
    secure='KODRA_PATH;CONSOLE_ON_PATH;WIX_DOWNGRADE_DETECTED;WIX_UPGRADE_DETECTED'
    update "\`Property\` SET \`Value\`='$secure' WHERE \`Property\`='SecureCustomProperties'"
    msibuild "$msi" -i _SummaryInformation.idt
  )
}

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

# The tests of installation have a Wine prefix of their own: a Windows that never contained the component.
prefix=/root/.wine-package
in_prefix() { wine_environment run env WINEPREFIX="$prefix" "$@"; }

# Makes the prefix once; afterwards restores its first registry and deletes what an interrupted run left.
fresh_prefix() {
  # shellcheck disable=SC2016  # the environment's own shell expands it
  in_prefix sh -ec '
    first=$WINEPREFIX/kodra-first
    if [ ! -e "$first/system.reg" ]; then
      rm -rf "$WINEPREFIX"
      wine wineboot -i
      wineserver -w
      mkdir "$first.new"
      cp "$WINEPREFIX"/*.reg "$first.new"
      mv "$first.new" "$first"
    fi
    wineserver -k || true
    cp "$first"/*.reg "$WINEPREFIX"
    rm -rf "$WINEPREFIX/drive_c/Program Files/KodraRpt" "$WINEPREFIX"/drive_c/windows/Installer/*'
}

# Two packages of the same build, made in different folders, on different days and by users with different settings,
# must be the same bytes: check_reproducible VERSION
check_reproducible() {
  local other=build/package/again file
  mkdir -p "$other"
  (umask 077; TZ=America/Sao_Paulo LC_ALL=C faketime -f +400d ./kodra pack "$other")
  for file in "KodraRpt-$1".{zip,msi}; do
    if cmp "build/package/$file" "$other/$file"; then
      passed "package.the same ${file##*.}"
    else
      failed "package.the same ${file##*.}"
      echo "$file não é idêntico nos dois pacotes"
    fi
  done
}

# Everything that the linker took from the system is code of a Debian package whose licence is in the list beside the
# file: check_licences MAP FILE
check_licences() {
  local map=$1 file=$2 archive package missing=()
  while read -r archive; do
    package=$(dpkg -S "$archive")
    package=$(dpkg-query -W -f '(${source:Package} ${Version}) ====' "${package%%:*}")
    iconv -f CP1252 -t UTF-8 "$file" | tr -d '\r' | grep -F -- "$package" >/dev/null || missing+=("$archive: $package")
  done < <(grep -oE '/usr/[^ ()]+\.(a|o)\>' "$map" | xargs readlink -f | sort -u)
  [ ${#missing[@]} = 0 ] && { passed "package.licences of ${map##*/}"; return; }
  failed "package.licences of ${map##*/}"
  printf 'falta uma licença: %s\n' "${missing[@]}"
}

# Without the sources of its libraries no package is made, and everything but kodrarpt.exe is built; both say
# what is missing and how to get it.
check_missing_source() {
  local cache=$PWD/build/package/cache tree=build/package/without-source missing output
  missing="falta o código de bibliotecas em $cache: cpp-httplib libharu libxlsxwriter zint"
  rm -rf "$cache" "$tree"
  mkdir -p "$cache"
  ln -s "$KODRA_CACHE/wine32" "$cache/wine32"
  if output=$(KODRA_CACHE=$cache ./kodra package 2>&1); then output="sem erro: $output"; fi
  if [ "$output" = "kodra: $missing
  para buscá-lo: ./kodra setup package" ]; then
    passed "package.without the libraries' sources there is none"
  else
    failed "package.without the libraries' sources there is none"
    echo "$output"
  fi
  missing="kodrarpt.exe não será compilado: falta $cache/libxlsxwriter/src/workbook.c. Para buscá-lo: ./kodra setup package"
  # CMake breaks its messages into lines.
  if output=$(KODRA_CACHE=$cache cmake --preset win32 -B "$tree" 2>&1 | tr -s '\n ' ' ') && [[ $output == *"$missing"* ]] &&
    output=$(ninja -C "$tree" -t targets all) && grep -q '^KodraRpt.dll: ' <<<"$output" &&
    ! grep -q kodrarpt.exe <<<"$output"; then
    passed "package.without the libraries' sources the rest is built"
  else
    failed "package.without the libraries' sources the rest is built"
    tail -n 20 <<<"$output"
  fi
  rm -rf "$cache" "$tree"
}

group_package() {
  check_missing_source
  build_package
  build_preset win32 kodra_test_package kodra_ado kodra_siblings_com
  build_preset win64 kodra_test_package
  build_preset sanitize kodra-demo-data
  archive sanitize build/test/acervo.db 500
  local packages=$PWD/build/package status=0 version later
  version=$(version_part MAJOR).$(version_part MINOR).$(version_part REVISION)
  check_reproducible "$version"
  rm -rf build/package/unpacked build/package/later
  unzip -q "build/package/KodraRpt-$version.zip" -d build/package/unpacked
  check_licences build/win32/KodraRpt.map "build/package/unpacked/KodraRpt-$version/LICENCAS.txt"
  check_licences build/win64/KodraRpt.map "build/package/unpacked/KodraRpt-$version/x64/LICENCAS.txt"
  check_licences build/win32/console/kodrarpt.map "build/package/unpacked/KodraRpt-$version/console/LICENCAS.txt"
  check_licences build/win64/console/kodrarpt.map "build/package/unpacked/KodraRpt-$version/x64/console/LICENCAS.txt"
  mkdir -p build/package/later
  logged later-msi ./kodra pack-later build/package/later
  later=("$packages"/later/*.msi)
  lock_wine
  logged wine-package fresh_prefix
  KODRA_UNPACKED=$packages/unpacked/KodraRpt-$version KODRA_MSI=$packages/KodraRpt-$version.msi \
    KODRA_LATER_MSI=${later[0]} KODRA_ARCHIVE=$PWD/build/test/acervo.db KODRA_BIN=$PWD/build/win32 \
    in_wine_form in_prefix wine build/win32/tests/kodra_test_package.exe || status=$?
  ready_wine64
  # An interrupted run of the other 64-bit tests leaves the component registered.
  wine64 regsvr32 /s /u "$(windows_path build/win64)\\KodraRpt.dll" >"$logs/unregister-64.log" 2>&1 || true
  # What the packages have for 64-bit programs. The script client itself needs the ADO of the 32-bit Wine environment.
  KODRA_UNPACKED=$packages/unpacked/KodraRpt-$version/x64 KODRA_MSI=$packages/KodraRpt-$version.msi \
    in_wine_form wine64 build/win64/tests/kodra_test_package.exe '--gtest_filter=-*.TheScriptClient*' || status=$?
  return "$status"
}
