' Listens to the DebugLog event of CCaixaRpt through KodraSuporte.Ouvinte and writes each line that it receives into a
' UTF-16 file. Arguments: the file to write, the connection string, the log file, a module with closed subordinate
' modules.
Option Explicit

Class Ouvido
  Public Arquivo
  Public Sub DebugLog(texto)
    Arquivo.Write texto & vbLf
  End Sub
End Class

Dim out, report, parameters, heard, listener, rows
Set out = CreateObject("Scripting.FileSystemObject").CreateTextFile(WScript.Arguments(0), True, True)
Set report = CreateObject("KodraRpt.CCaixaRpt")
report.StringConexao = WScript.Arguments(1)
report.LogFile = WScript.Arguments(2)
Set parameters = CreateObject("KodraRpt.CCaixaRptObj")
parameters.Modulo1 = WScript.Arguments(3)

Set heard = New Ouvido
Set heard.Arquivo = out
Set listener = CreateObject("KodraSuporte.Ouvinte")
listener.Conecta report, heard

Set rows = report.EtiquetaFechamentoSubordinada(parameters)
rows.Close
Set rows = report.AutorizacaoDescarteModuloSubRpt(parameters)
rows.Close

' A failing report announces its last line too.
On Error Resume Next
Set rows = report.EtiquetaDivisoria(Nothing)
out.Write "raised " & Err.Number & vbLf
Err.Clear
On Error Goto 0

' Without a log file the listener still receives the lines.
report.LogFile = ""
Set rows = report.AutorizacaoDescarteModuloSubRpt(parameters)
rows.Close
listener.Desconecta
Set rows = report.AutorizacaoDescarteModuloSubRpt(parameters)
rows.Close
out.Write "end" & vbLf
out.Close
