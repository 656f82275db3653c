// A printout that records its blocks as lines of text.
#pragma once

#include <string>
#include <vector>

#include "console/formats/pages/printout.h"

namespace kodra::console::pages {

class RecordingPrintout final : public Printout {
 public:
  void Begin(std::wstring_view title, bool landscape) override {
    Add((landscape ? L"paisagem: " : L"retrato: ") + std::wstring(title));
  }
  void Head(const PageHead& head) override {
    Add(L"título: " + head.title);
    for (const std::wstring& line : head.lines) Add(L"linha: " + line);
    for (const Fact& fact : head.facts) Add(fact.caption + L": " + fact.text);
  }
  void Paragraph(std::wstring_view text) override { Add(L"parágrafo: " + std::wstring(text)); }
  void OpenTable(const std::vector<TableColumn>& columns) override {
    std::wstring line = L"tabela:";
    for (const TableColumn& column : columns) line += L" [" + column.caption + L"]";
    Add(line);
  }
  void Row(const TableRow& row) override {
    static constexpr const wchar_t* kStyles[] = {L"", L"bloco", L"soma", L"total"};
    std::wstring line = kStyles[static_cast<std::size_t>(row.style)];
    for (const Cell& cell : row.cells) line += L"| " + cell.text + L" ";
    for (const Fact& detail : row.details) line += L"· " + detail.caption + L": " + detail.text + L" ";
    Add(line);
  }
  void CloseTable() override { Add(L"fim da tabela"); }
  void Chart(std::wstring_view caption, const std::vector<Bar>&) override { Add(L"gráfico: " + std::wstring(caption)); }
  void Note(const Fact& note) override { Add(L"nota: " + note.caption + L": " + note.text); }
  void Signatures(const std::vector<std::wstring>& captions) override {
    std::wstring line = L"assinaturas:";
    for (const std::wstring& caption : captions) line += L" [" + caption + L"]";
    Add(line);
  }
  void NextCopy() override { Add(L"corte"); }
  void End() override { Add(L"fim"); }

  const std::vector<std::wstring>& Lines() const { return lines_; }

 private:
  void Add(std::wstring line) { lines_.push_back(std::move(line)); }

  std::vector<std::wstring> lines_;
};

}  // namespace kodra::console::pages
