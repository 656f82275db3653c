' Uses the sibling components and writes their results into a UTF-16 file.
' Arguments: the file to write, the connection string, a module with subordinate modules.
Option Explicit

Dim out, cn, modules, filter, found, m, line, business, events, e, count, rs, conversions
Set out = CreateObject("Scripting.FileSystemObject").CreateTextFile(WScript.Arguments(0), True, True)
Set cn = CreateObject("ADODB.Connection")
cn.Open WScript.Arguments(1)

' This component reads only through the script's own connection.
Set modules = CreateObject("KodraBsnV3.ObtedorDeModulos")
Set modules.Conexao = cn
Set filter = CreateObject("KodraBsnV3.ModulosFiltro")
filter.NumCaixa = WScript.Arguments(2)
Set found = modules.ObtemSubordinados(filter)
line = "each"
For Each m In found
  line = line & " " & m.NumCaixa
Next
out.Write line & vbLf
line = "item"
For count = 1 To found.Count
  line = line & " " & found.Item(count).NumCaixa & found(count).NumSeq
Next
out.Write line & vbLf
filter.NumCaixa = "ZZ999"
out.Write "missing " & (modules.ObtemSubordinados(filter) Is Nothing) & vbLf
On Error Resume Next
Set m = found.Item(found.Count + 1)
out.Write "beyond " & Err.Number & " " & Err.Description & vbLf
Err.Clear
For Each m In filter
Next
out.Write "no collection " & (Err.Number <> 0) & vbLf
Err.Clear
On Error Goto 0

Set business = CreateObject("KodraBsnV3.ModulosBsn")
out.Write business.NumCxSubordinadaSQL(7, "s") & vbLf
out.Write CreateObject("KodraBsnV3.ObtedorDeTiposOperadores").ObtemDescricao(CDbl(12)) & vbLf

' A field that is passed as an argument is used by its value.
Set conversions = CreateObject("VantLib.Conversoes")
Set rs = cn.Execute("SELECT MIN(DATA_INICIAL) AS PRIMEIRA, NULL AS NENHUMA FROM EVENTO")
out.Write "null " & CDbl(conversions.ToDate(rs.Fields("NENHUMA"))) & vbLf
rs.Close
Set rs = cn.Execute("SELECT DATA_VENCIMENTO FROM CAIXA WHERE NUM_CAIXA = 'AA000'")
out.Write "field " & CDbl(conversions.ToDate(rs.Fields("DATA_VENCIMENTO"))) & vbLf
rs.Close

Set events = CreateObject("KodraRegEvt.RegEvtDAO")
events.StringConexao = WScript.Arguments(1)
Set filter = CreateObject("KodraRegEvt.RegEvtFind")
filter.Tipo_Evento = "IMP"
count = 0
For Each e In events.Localiza(filter)
  If e.Tipo_Evento = "IMP" Then count = count + 1
Next
out.Write "events " & count & vbLf
out.Close
