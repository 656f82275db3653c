#include "console/statements/notes.h"

#include <algorithm>
#include <array>

#include "console/reports/guide.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

struct ComponentNote {
  std::wstring_view progId;
  std::string_view note;
};

constexpr auto kComponentNotes = std::to_array<ComponentNote>({
    {L"KodraParamSist.Obtedor",
     "o nome entre os sinais < e > é o de um parâmetro do sistema: o relatório põe ali o valor da instalação, em "
     "maiúsculas no "
     "título"},
    {L"KodraBsnV3.ModulosBsn",
     "a expressão com NUM_SEQ vem do componente KodraBsnV3.ModulosBsn; o da instalação pode devolver outra"},
    {L"KodraBsnV3.ObtedorDeModulos",
     "a instrução só é enviada se o componente KodraBsnV3.ObtedorDeModulos encontrar um subordinado fechado"},
    {L"KodraRegEvt.RegEvtDAO",
     "o relatório não envia nenhuma instrução: os eventos vêm do componente KodraRegEvt.RegEvtDAO"},
});

std::string MarkerNote(const std::wstring& value) {
  return "no lugar de ? vai o texto '" + values::ToUtf8(value) + "'";
}

}  // namespace

std::vector<std::string> NotesOn(const reports::ReportMethod& method, const Captured& captured) {
  std::vector<std::string> notes;
  for (const auto& [progId, note] : kComponentNotes)
    if (std::ranges::find(captured.components, progId) != captured.components.end()) notes.emplace_back(note);
  if (const std::string_view note = guide::About(method).sqlNote; !note.empty()) notes.emplace_back(note);
  for (const Statement& statement : captured.statements)
    for (const std::wstring& value : statement.parameters) notes.push_back(MarkerNote(value));
  return notes;
}

}  // namespace kodra::console
