# The rows of registry_rows as the manifest of the assembly KodraRpt.Classes, with which a program uses the DLL without
# its being registered: awk -f manifest.awk -v version=A.B.C.D -v architecture=x86|amd64.
#
# The assembly is not named KodraRpt: Windows would look for its manifest inside KodraRpt.dll.
BEGIN {
  FS = "\t"
  classes = "Software\\Classes\\"
}

# The parts of the key below the classes: CLSID {…} InprocServer32.
{
  count = split(substr($1, length(classes) + 1), part, "\\")
  id = part[2]
}

part[1] == "CLSID" && part[3] == "ProgID" { progId[id] = $3 }
part[1] == "CLSID" && part[3] == "TypeLib" { classLibrary[id] = $3 }
part[1] == "CLSID" && $2 == "ThreadingModel" { model[id] = $3; class[++classCount] = id }
part[1] == "TypeLib" && count == 3 { library = id; libraryVersion = part[3] }
part[1] == "Interface" && count == 2 { name[id] = $3; interface[++interfaceCount] = id }
part[1] == "Interface" && part[3] == "ProxyStubClsid32" { marshaler[id] = $3 }

END {
  print "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"
  print "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">"
  printf "  <assemblyIdentity type=\"win32\" name=\"KodraRpt.Classes\" version=\"%s\" processorArchitecture=\"%s\"/>\n",
    version, architecture
  print "  <file name=\"KodraRpt.dll\">"
  for (i = 1; i <= classCount; ++i) {
    id = class[i]
    printf "    <comClass clsid=\"%s\" progid=\"%s\" threadingModel=\"%s\" tlbid=\"%s\"/>\n",
      id, progId[id], model[id], classLibrary[id]
  }
  printf "    <typelib tlbid=\"%s\" version=\"%s\" helpdir=\"\"/>\n", library, libraryVersion
  print "  </file>"
  for (i = 1; i <= interfaceCount; ++i) {
    id = interface[i]
    printf "  <comInterfaceExternalProxyStub iid=\"%s\" name=\"%s\" tlbid=\"%s\" proxyStubClsid32=\"%s\"/>\n",
      id, name[id], library, marshaler[id]
  }
  print "</assembly>"
}
