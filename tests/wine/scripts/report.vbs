' Writes a report into a UTF-16 file: its column names, then its rows, with "|" between the columns.
' Arguments: the file to write, the connection string, the report class, its method.
Option Explicit

Dim out, rows, report, column, line
Set out = CreateObject("Scripting.FileSystemObject").CreateTextFile(WScript.Arguments(0), True, True)
Set report = CreateObject("KodraRpt." & WScript.Arguments(2))
report.StringConexao = WScript.Arguments(1)
Dim parameters
Set parameters = CreateObject("KodraRpt." & WScript.Arguments(2) & "Obj")
parameters.Owner = "Arquivo Geral"

If WScript.Arguments(3) = "RelatorioDepositos" Then
  Set rows = report.RelatorioDepositos(parameters)
Else
  Set rows = report.RelatorioSuportes(parameters)
End If

line = ""
For column = 0 To rows.Fields.Count - 1
  line = line & rows.Fields(column).Name & "|"
Next
out.Write line & vbLf
Do Until rows.EOF
  line = ""
  For column = 0 To rows.Fields.Count - 1
    line = line & rows.Fields(column).Value & "|"
  Next
  out.Write line & vbLf
  rows.MoveNext
Loop
rows.Close
out.Close
