' The event log as a client's author would fill it in a script, and the report that does the same, by turns.
' Arguments: connection string, rounds, the file to write. Its first line has the number of rows that each side filled
' and the sum of their texts' lengths; each further line has the seconds of the report and those of the script.
Option Explicit

Const adVarChar = 200, adDBTimeStamp = 135
Dim connection, rounds, out, i, start, report, parameters, rows, own, took
connection = WScript.Arguments(0)
rounds = CInt(WScript.Arguments(1))
Set out = CreateObject("Scripting.FileSystemObject").CreateTextFile(WScript.Arguments(2), True)
Set report = CreateObject("KodraRpt.CLogRpt")
report.StringConexao = connection
Set parameters = CreateObject("KodraRpt.CLogRptObj")
out.WriteLine Content(report.RelatorioLog(parameters)) & " " & Content(LogOf(connection))
For i = 1 To rounds
  start = Timer
  Set rows = report.RelatorioLog(parameters)
  took = Timer - start
  start = Timer
  Set own = LogOf(connection)
  out.WriteLine Int(took * 1000) & " " & Int((Timer - start) * 1000)
Next
out.Close

' Asks the log for all events and copies them into a recordset in memory.
Function LogOf(connection)
  Dim filter, log, events, entry, rows, n, start, action
  Set filter = CreateObject("KodraRegEvt.RegEvtFind")
  filter.Acao = ""
  filter.Cod_Docto = ""
  filter.Maquina = ""
  filter.Nome_Operador = ""
  filter.Tipo_Evento = ""
  Set log = CreateObject("KodraRegEvt.RegEvtDAO")
  log.StringConexao = connection
  Set events = log.Localiza(filter)
  Set rows = CreateObject("ADODB.Recordset")
  rows.Fields.Append "DATA", adDBTimeStamp
  rows.Fields.Append "HORA", adVarChar, 8
  rows.Fields.Append "DESCR_OPERADOR", adVarChar, 250
  rows.Fields.Append "MAQUINA", adVarChar, 250
  rows.Fields.Append "COD_DOCTO", adVarChar, 10
  rows.Fields.Append "COD_ACAO", adVarChar, 10
  For n = 1 To 32
    rows.Fields.Append "ACAO" & n, adVarChar, 250
  Next
  rows.Open
  For Each entry In events
    rows.AddNew
    rows("DATA") = entry.DataInicial
    rows("HORA") = TimeText(entry.DataInicial)
    rows("DESCR_OPERADOR") = Left(entry.Nome_Operador, 250)
    rows("MAQUINA") = Left(entry.Maquina, 250)
    rows("COD_DOCTO") = Left(entry.Cod_Docto, 10)
    rows("COD_ACAO") = Left(entry.Tipo_Evento, 10)
    action = entry.Acao
    n = 1
    For start = 1 To Len(action) Step 250
      rows("ACAO" & n) = Mid(action, start, 250)
      n = n + 1
    Next
    rows.Update
  Next
  rows.MoveFirst
  Set LogOf = rows
End Function

Function TimeText(moment)
  TimeText = Right("0" & Hour(moment), 2) & ":" & Right("0" & Minute(moment), 2) & ":" & Right("0" & Second(moment), 2)
End Function

Function Content(rows)
  Dim count, length, f, names, n
  names = Array("HORA", "DESCR_OPERADOR", "MAQUINA", "COD_DOCTO", "COD_ACAO", "ACAO1", "ACAO2")
  count = 0
  length = 0
  Do Until rows.EOF
    count = count + 1
    For n = 0 To UBound(names)
      length = length + Len("" & rows(names(n)))
    Next
    rows.MoveNext
  Loop
  Content = count & " " & length
End Function
