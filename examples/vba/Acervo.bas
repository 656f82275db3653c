Attribute VB_Name = "Acervo"
' Lista os departamentos e imprime a etiqueta de abertura de um módulo, na janela de verificação imediata (Ctrl+G).
'
'   Acervo.Mostra "Driver={SQLite3};Database=C:\acervo\acervo.db", "AA001"
'
' Precisa de um Office de 32 bits, porque o componente é de 32 bits, e de duas referências (Ferramentas > Referências):
' KodraRpt e Microsoft ActiveX Data Objects 2.8 Library. O arquivo está em UTF-8; salve-o na página de código do Windows
' (1252) antes de importá-lo.
' Os testes não executam este exemplo: não há VBA fora do Office.
Option Explicit

Public Sub Mostra(ByVal conexao As String, ByVal modulo As String)
  On Error GoTo Falha
  ListaDepartamentos conexao
  ImprimeEtiqueta conexao, modulo
  Exit Sub
Falha:
  Debug.Print "Erro " & Err.Number & " em " & Err.Source & ": " & Err.Description
End Sub

Private Sub ListaDepartamentos(ByVal conexao As String)
  Dim relatorio As KodraRpt.CDeptoRpt
  Dim linhas As ADODB.Recordset
  Set relatorio = New KodraRpt.CDeptoRpt
  relatorio.StringConexao = conexao
  Set linhas = relatorio.RelatorioDeptos(New KodraRpt.CDeptoRptObj)
  Debug.Print "Departamentos:"
  Do Until linhas.EOF
    Debug.Print "  " & linhas!DESCR_DEPTO
    linhas.MoveNext
  Loop
  ' O Recordset mantém aberta a conexão com o banco: feche-o assim que terminar.
  linhas.Close
End Sub

Private Sub ImprimeEtiqueta(ByVal conexao As String, ByVal modulo As String)
  Dim relatorio As KodraRpt.CCaixaRpt
  Dim parametros As KodraRpt.CCaixaRptObj
  Dim linhas As ADODB.Recordset
  Set parametros = New KodraRpt.CCaixaRptObj
  parametros.Modulo1 = modulo
  Set relatorio = New KodraRpt.CCaixaRpt
  relatorio.StringConexao = conexao
  Set linhas = relatorio.EtiquetaAbertura(parametros)
  Debug.Print "Etiquetas de abertura:"
  ' Cada módulo vem duas vezes: são duas etiquetas de abertura.
  Do Until linhas.EOF
    ' Um campo nulo (Null) junto de um texto vale um texto vazio.
    Debug.Print "  " & linhas!NUM_CAIXA & " | " & linhas!DESC_CAIXA & " | guarda " & linhas!TIPO_GUARDA & _
      " | anos " & linhas!ANOS_VENCIMENTO
    linhas.MoveNext
  Loop
  linhas.Close
End Sub
