// Storage modules ("módulos") and their subordinates: labels and listings.
//
// Unlike the other report classes this one may be given an open connection instead of a connection string, writes a log
// and announces each line of it. It keeps its properties and its log object between calls, nothing else.
//
// With a connection of the client's the rows stand at the client, and a listing of main and subordinate modules has the
// main ones only, in no order; an opening label comes once instead of twice.
#pragma once

#include <functional>
#include <string>

#include "frame/report_class.h"

namespace kodra::reports {

class CCaixaRpt : public frame::ReportClass {
 public:
  explicit CCaixaRpt(platform::Surroundings& surroundings) : ReportClass(L"CCaixaRpt", surroundings) {}

  // A connection that the client opened and keeps; it is never opened, closed or changed here. None unless set. A
  // report call puts its connection string into StringConexao.
  const platform::ClientConnection& Conexao() const { return conexao_; }
  void SetConexao(platform::ClientConnection connection) { conexao_ = std::move(connection); }

  // The path of the log file; empty switches the file off, never the event.
  const std::wstring& LogFile() const { return logFile_; }
  void SetLogFile(std::wstring path) { logFile_ = std::move(path); }

  // Called with each log line, on the caller's thread.
  void OnDebugLog(std::function<void(const std::wstring&)> listener) { listener_ = std::move(listener); }

  // Labels. Read Modulo1 to Modulo3; EtiquetaAbertura also Tipo ("S": subordinate modules), the last two Modulo1 only.
  frame::ReportRows EtiquetaAbertura(AutomationObject* obj);
  frame::ReportRows EtiquetaFechamento(AutomationObject* obj);
  // The labels of every subordinate once at least one is closed.
  frame::ReportRows EtiquetaFechamentoSubordinada(AutomationObject* obj);
  // One row a document of the module; a subordinate's code gives those of its parent.
  frame::ReportRows EtiquetaDivisoria(AutomationObject* obj);

  // Modules whose contents were discarded. Reads CodDepto and ModoPregresso.
  frame::ReportRows ModulosExcluidos(AutomationObject* obj);
  // Modules due for discard. Reads CodDepto and ModoPregresso.
  frame::ReportRows ModulosVencidos(AutomationObject* obj);
  // One module with its place and depository. Reads Modulo1 and CodDepto.
  frame::ReportRows DocsNoModulo(AutomationObject* obj);
  // The documents of one module, for a layout within another: it relies on an earlier call of the same object, and its
  // errors reach the client as they are. Reads Modulo1.
  frame::ReportRows DocsNoModuloSubRpt(AutomationObject* obj);
  // How many documents of each module are not classified. Reads CodDepto.
  frame::ReportRows DocsNaoIndexadosNosModulos(AutomationObject* obj);
  // Every module with its place. Reads CodDepto, SomenteExistentes, ModoPregresso and Ordenacao ("D": by description).
  frame::ReportRows RelatoriosModulos(AutomationObject* obj);
  // The documents of one module with their totals, or one blank row. Reads Modulo1.
  frame::ReportRows AutorizacaoDescarteModuloSubRpt(AutomationObject* obj);

 private:
  // This class's checks: a connection or a connection string, then the parameter object; then the database code.
  void InicializaPS(const AutomationObject* obj);
  // Writes a line to the log and announces it.
  void DebugLog(const auto&... pieces) { WriteLog(values::LocalText<200>(pieces...)); }
  void WriteLog(std::wstring_view text);
  // The same for the line of a failure, which is announced even when the log fails.
  void WriteFailure(std::wstring_view text);
  // Writes a line to the log; what the log leaves of it.
  std::wstring PassThroughLog(const std::wstring& line);
  // Runs a report method. Whatever fails is logged, and reaches the client as kReportError with the cause's source (the
  // method's own for an error of the runtime).
  template <class Body>
  frame::ReportRows Logged(std::wstring_view method, Body body);
  [[noreturn]] void RaiseLogged(std::wstring_view method);

  // Whether the client gave a connection.
  bool HasConexao() const { return static_cast<bool>(conexao_); }
  // Opens the result on the client's connection, without one on the connection string.
  frame::ReportRows OpenResult(std::wstring_view statement);
  // Opens main modules united with their subordinates on the connection string; on the client's connection the main
  // ones only.
  frame::ReportRows OpenUnion(data::SelectBuilder& main, const data::SelectBuilder& subordinates);
  // Opens a static recordset at the client, on the client's connection or on the connection string as it is.
  void OpenStatic(platform::Recordset& recordset, std::wstring_view statement);
  frame::ReportRows NewStatic() const;

  // A business component, told where to read and where to log.
  ObjectRef CreateBusinessObject(const std::wstring& progId);
  // The expression that gives a subordinate's 7-character code, over the alias s.
  std::wstring SubordinateCode();
  // A collection, null when the component returns none, with the objects that it came from and may be read through.
  struct ClosedSubordinates {
    ObjectRef filter;
    ObjectRef reader;
    ObjectRef modules;
  };
  // The closed subordinates of a module.
  ClosedSubordinates ObtemSubordinadosFechados(const std::wstring& module);
  // Raises unless there is a collection with a member.
  static void RequireAny(const ClosedSubordinates& closed, const std::wstring& module);

  platform::ClientConnection conexao_;
  std::wstring logFile_;
  ObjectRef log_;
  std::function<void(const std::wstring&)> listener_;
};

}  // namespace kodra::reports
