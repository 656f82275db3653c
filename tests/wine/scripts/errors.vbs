' Writes the errors of failing reports into a UTF-16 file, one line for each: "case|number|source|description".
' Arguments: the file to write, the connection strings of the archive, of a missing file, of an empty file and of a
' database without tables.
Option Explicit

Dim out, archive
Set out = CreateObject("Scripting.FileSystemObject").CreateTextFile(WScript.Arguments(0), True, True)
archive = WScript.Arguments(1)

Sub Report(name, rows)
  If IsObject(rows) Then
    out.Write name & "|0|" & TypeName(rows) & "|" & rows.Fields(0).Name & vbLf
  Else
    out.Write name & "|" & Err.Number & "|" & Err.Source & "|" & Err.Description & vbLf
  End If
  Err.Clear
End Sub

Function NewReport(name, connectionString)
  Set NewReport = CreateObject("KodraRpt." & name)
  NewReport.StringConexao = connectionString
End Function

On Error Resume Next
Dim rows, departments
Set departments = CreateObject("KodraRpt.CDeptoRptObj")

rows = Empty
Set rows = NewReport("CDeptoRpt", "").RelatorioDeptos(departments)
Report "no connection string", rows

rows = Empty
Set rows = NewReport("CDeptoRpt", archive).RelatorioDeptos(Nothing)
Report "no parameter object", rows

rows = Empty
Set rows = NewReport("CDeptoRpt", "").RelatorioDeptos(Nothing)
Report "neither", rows

rows = Empty
Set rows = NewReport("CDeptoRpt", WScript.Arguments(2)).RelatorioDeptos(departments)
Report "missing file", rows

rows = Empty
Set rows = NewReport("CDeptoRpt", WScript.Arguments(3)).RelatorioDeptos(departments)
Report "empty file", rows

rows = Empty
Set rows = NewReport("CDeptoRpt", WScript.Arguments(4)).RelatorioDeptos(departments)
Report "no table", rows

rows = Empty
Set rows = NewReport("CCDRpt", archive).RelatorioMidias(CreateObject("Scripting.Dictionary"))
Report "no such property", rows

rows = Empty
Set rows = NewReport("CModeloRpt", archive).RelatorioModelos(departments)
Report "no such property of ours", rows

rows = Empty
Set rows = NewReport("CDeptoRpt", archive).RelatorioDeptos(departments)
Report "success", rows

out.Close
