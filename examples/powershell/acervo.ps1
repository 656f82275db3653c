<#
Lista os departamentos e imprime a etiqueta de abertura de um módulo.

  .\acervo.ps1 -Conexao 'Driver={SQLite3};Database=C:\acervo\acervo.db' -Modulo AA001

O componente é de 32 bits: num Windows de 64 bits, use %windir%\SysWOW64\WindowsPowerShell\v1.0\powershell.exe.
Os testes não executam este exemplo: o powershell.exe do Wine não faz nada.
#>
#Requires -Version 5.1
param(
    [Parameter(Mandatory)] [string] $Conexao,
    [Parameter(Mandatory)] [string] $Modulo
)
Set-StrictMode -Version Latest
$ErrorActionPreference = 'Stop'

# Fecha o Recordset, que mantém aberta a conexão com o banco, e libera os objetos sem esperar pela coleta de lixo.
function Libera($linhas, $objetos) {
    if ($null -ne $linhas) { $linhas.Close() }
    foreach ($objeto in @($linhas) + $objetos) {
        if ($null -ne $objeto) { [void][Runtime.InteropServices.Marshal]::ReleaseComObject($objeto) }
    }
}

function ListaDepartamentos {
    $relatorio = New-Object -ComObject KodraRpt.CDeptoRpt
    $parametros = New-Object -ComObject KodraRpt.CDeptoRptObj
    $linhas = $null
    try {
        $relatorio.StringConexao = $Conexao
        $linhas = $relatorio.RelatorioDeptos($parametros)
        'Departamentos:'
        while (-not $linhas.EOF) {
            '  ' + $linhas.Fields.Item('DESCR_DEPTO').Value
            $linhas.MoveNext()
        }
    }
    finally { Libera $linhas @($relatorio, $parametros) }
}

function ImprimeEtiqueta {
    $relatorio = New-Object -ComObject KodraRpt.CCaixaRpt
    $parametros = New-Object -ComObject KodraRpt.CCaixaRptObj
    $linhas = $null
    try {
        $parametros.Modulo1 = $Modulo
        $relatorio.StringConexao = $Conexao
        $linhas = $relatorio.EtiquetaAbertura($parametros)
        'Etiquetas de abertura:'
        # Cada módulo vem duas vezes: são duas etiquetas de abertura.
        while (-not $linhas.EOF) {
            # Um campo nulo (DBNull) dentro de um texto vale um texto vazio.
            $valores = 'NUM_CAIXA', 'DESC_CAIXA', 'TIPO_GUARDA', 'ANOS_VENCIMENTO' |
                ForEach-Object { "$($linhas.Fields.Item($_).Value)" }
            '  {0} | {1} | guarda {2} | anos {3}' -f $valores
            $linhas.MoveNext()
        }
    }
    finally { Libera $linhas @($relatorio, $parametros) }
}

try {
    ListaDepartamentos
    ImprimeEtiqueta
}
catch {
    # A exceção de dentro é a do componente: o número é o HRESULT.
    $falha = $_.Exception.GetBaseException()
    "Erro $($falha.HResult) em $($falha.Source): $($falha.Message)"
    exit 1
}
