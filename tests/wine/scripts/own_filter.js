// A script's own object as the parameter object: the first title of each listing of media, into a UTF-16 file.
// Arguments: the file to write, the connection string. In JScript because Wine's VBScript classes answer no names; its
// members are functions because Wine's JScript lets an outside caller, who cannot tell, only call.
var out = new ActiveXObject("Scripting.FileSystemObject").CreateTextFile(WScript.Arguments(0), true, true);
var report = new ActiveXObject("KodraRpt.CCDRpt");
report.StringConexao = WScript.Arguments(1);

function Title(filter) {
  var rows;
  try {
    rows = report.RelatorioMidias(filter);
  } catch (e) {
    out.Write(e.number + " " + e.description + "\n");
    return;
  }
  out.Write((rows.EOF ? "(none)" : rows.Fields("RELATORIO").Value) + "\n");
}

function Giving(kind) {
  return function () { return kind; };
}

Title({TipoRpt: Giving("T")});
Title({TipoRpt: Giving("V")});
Title({Owner: Giving("Arquivo Geral")});
out.Close();
