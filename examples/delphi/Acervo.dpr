// Lista os departamentos e imprime a etiqueta de abertura de um módulo.
//
//   Acervo.exe "Driver={SQLite3};Database=C:\acervo\acervo.db" AA001
//
// Compile para a plataforma Windows 32 bits: o componente é de 32 bits.
// Os testes não executam este exemplo: não há compilador Delphi onde eles rodam.
program Acervo;

{$APPTYPE CONSOLE}

uses
  System.SysUtils, System.Variants, System.Win.ComObj, Winapi.ActiveX;

procedure ListaDepartamentos(const Conexao: string);
var
  Relatorio, Linhas: OleVariant;
begin
  Relatorio := CreateOleObject('KodraRpt.CDeptoRpt');
  Relatorio.StringConexao := Conexao;
  Linhas := Relatorio.RelatorioDeptos(CreateOleObject('KodraRpt.CDeptoRptObj'));
  // O Recordset mantém aberta a conexão com o banco: feche-o assim que terminar. Os objetos são liberados no fim da
  // rotina.
  try
    Writeln('Departamentos:');
    while not Linhas.EOF do
    begin
      Writeln('  ', VarToStr(Linhas.Fields.Item['DESCR_DEPTO'].Value));
      Linhas.MoveNext;
    end;
  finally
    Linhas.Close;
  end;
end;

procedure ImprimeEtiqueta(const Conexao, Modulo: string);
var
  Relatorio, Parametros, Linhas: OleVariant;

  // VarToStr devolve um texto vazio para um campo nulo.
  function Texto(const Campo: string): string;
  begin
    Result := VarToStr(Linhas.Fields.Item[Campo].Value);
  end;

begin
  Parametros := CreateOleObject('KodraRpt.CCaixaRptObj');
  Parametros.Modulo1 := Modulo;
  Relatorio := CreateOleObject('KodraRpt.CCaixaRpt');
  Relatorio.StringConexao := Conexao;
  Linhas := Relatorio.EtiquetaAbertura(Parametros);
  try
    Writeln('Etiquetas de abertura:');
    // Cada módulo vem duas vezes: são duas etiquetas de abertura.
    while not Linhas.EOF do
    begin
      Writeln(Format('  %s | %s | guarda %s | anos %s',
        [Texto('NUM_CAIXA'), Texto('DESC_CAIXA'), Texto('TIPO_GUARDA'), Texto('ANOS_VENCIMENTO')]));
      Linhas.MoveNext;
    end;
  finally
    Linhas.Close;
  end;
end;

begin
  if ParamCount <> 2 then
  begin
    Writeln('Uso: Acervo.exe CONEXÃO MÓDULO');
    Halt(2);
  end;
  OleCheck(CoInitialize(nil));
  try
    try
      ListaDepartamentos(ParamStr(1));
      ImprimeEtiqueta(ParamStr(1), ParamStr(2));
    except
      on E: EOleException do
      begin
        Writeln(Format('Erro %d em %s: %s', [E.ErrorCode, E.Source, E.Message]));
        ExitCode := 1;
      end;
    end;
  finally
    CoUninitialize;
  end;
end.
