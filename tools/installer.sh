# The installer: the MSI of the files that a package contains.

# A GUID that is always the same for a name.
name_guid() {
  local hash
  hash=$(printf 'KodraRpt %s' "$1" | sha1sum | tr a-f A-F)
  printf '%s-%s-5%s-8%s-%s\n' "${hash:0:8}" "${hash:8:4}" "${hash:12:3}" "${hash:15:3}" "${hash:18:12}"
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
