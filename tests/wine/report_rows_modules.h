// What the module reports must give, worked out from the archive's tables: main modules and subordinate ones apart, as
// a report over a connection string joins both and a report over a client's connection has the main ones only.
#pragma once

#include "tests/wine/report_rows.h"

namespace kodra::face {

// Rows as UNION makes them: none twice.
inline Rows Union(Rows main, const Rows& subordinates) {
  main.rows.insert(main.rows.end(), subordinates.rows.begin(), subordinates.rows.end());
  std::sort(main.rows.begin(), main.rows.end());
  main.rows.erase(std::unique(main.rows.begin(), main.rows.end()), main.rows.end());
  return main;
}

class Modules : protected ArchiveClient {
 public:
  using ArchiveClient::ArchiveClient;
  using Filter = std::function<bool(const Row& module)>;

  static bool Any(const Row&) { return true; }

  // The 7 characters of a subordinate module.
  static std::wstring Code(const Row& subordinate) {
    const std::wstring number = *subordinate[L"NUM_SEQ"];
    return *subordinate[L"NUM_CAIXA"] + (number.size() < 2 ? L"0" : L"") + number;
  }

  Rows OpeningLabels(const std::set<Cell>& modules, int times) const {
    Rows labels{{L"DESC_CAIXA", L"NUM_CAIXA", L"TIPO_GUARDA", L"ANOS_VENCIMENTO"}, {}};
    for (const Row& c : All(L"CAIXA"))
      if (modules.contains(c[L"NUM_CAIXA"])) labels.rows.insert(labels.rows.end(), times, c.Pick(labels.columns));
    return labels;
  }
  Rows OpeningLabelsOfSubordinates(const std::set<std::wstring>& codes, int times) const {
    Rows labels{{L"DESC_CAIXA", L"NUM_CAIXA", L"TIPO_GUARDA", L"ANOS_VENCIMENTO"}, {}};
    for (const Row& s : All(L"CAIXA_SUBORDINADA"))
      if (codes.contains(Code(s)))
        labels.rows.insert(labels.rows.end(), times,
                           {Parent(s)[L"DESC_CAIXA"], Code(s), s[L"TIPO_GUARDA"], s[L"ANOS_VENCIMENTO"]});
    return labels;
  }

  Rows ClosingLabels(const std::set<Cell>& modules) const {
    Rows labels{kClosingLabels, {}};
    for (const Row& c : All(L"CAIXA"))
      if (modules.contains(c[L"NUM_CAIXA"]))
        labels.rows.push_back({c[L"DESC_CAIXA"], c[L"NUM_CAIXA"], c[L"DOC_INICIAL"], c[L"DOC_FINAL"],
                               c[L"DATA_VENCIMENTO"], c[L"TIPO_GUARDA"], Company()});
    return labels;
  }
  Rows ClosingLabelsOfSubordinates(const std::wstring& module) const {
    Rows labels{kClosingLabels, {}};
    for (const Row& s : TableOf(L"CAIXA_SUBORDINADA").Where(L"NUM_CAIXA", module))
      labels.rows.push_back({Parent(s)[L"DESC_CAIXA"], Code(s), s[L"DOC_INICIAL"], s[L"DOC_FINAL"],
                             s[L"DATA_VENCIMENTO"], s[L"TIPO_GUARDA"], Company()});
    return labels;
  }

  Rows Documents(const std::wstring& module) const {
    Rows documents{{L"COD_DOCTO"}, {}};
    for (const Row& d : TableOf(L"DOCUMENTO").Where(L"NUM_CAIXA", module)) documents.rows.push_back({d[L"COD_DOCTO"]});
    return documents;
  }
  // With the totals of documents and pages; a document whose front or back nobody counted adds no page.
  Rows DocumentsForDiscard(const std::wstring& module) const {
    Rows rows{{L"COD_DOCTO", L"TOTAL_DOCS", L"TOTAL_PAGINAS"}, {}};
    const auto documents = TableOf(L"DOCUMENTO").Where(L"NUM_CAIXA", module);
    int pages = 0;
    bool counted = false;
    for (const Row& d : documents) {
      if (!d[L"FRENTE"] || !d[L"VERSO"]) continue;
      counted = true;
      pages += std::stoi(*d[L"FRENTE"]) + std::stoi(*d[L"VERSO"]);
    }
    for (const Row& d : documents)
      rows.rows.push_back(
          {d[L"COD_DOCTO"], std::to_wstring(documents.size()), counted ? Cell(std::to_wstring(pages)) : Cell()});
    return rows;
  }

  Rows Discarded(const Filter& filter) const {
    Rows rows{kDiscarded, {}};
    for (const Row& c : All(L"CAIXA"))
      if (c[L"TIPO_GUARDA"] == L"E" && filter(c)) rows.rows.push_back(c.Pick(kDiscarded));
    return rows;
  }
  // The filter is of the parent.
  Rows DiscardedSubordinates(const Filter& filter) const {
    Rows rows{kDiscarded, {}};
    for (const Row& s : All(L"CAIXA_SUBORDINADA"))
      if (s[L"TIPO_GUARDA"] == L"E" && filter(Parent(s)))
        rows.rows.push_back({Code(s), Parent(s)[L"DESC_CAIXA"], s[L"DOC_INICIAL"], s[L"DOC_FINAL"],
                             s[L"DATA_VENCIMENTO"], s[L"DATA_FECHAMENTO"], s[L"TIPO_GUARDA"]});
    return rows;
  }

  Rows Due(const Filter& filter) const {
    Rows rows{kDue, {}};
    for (const Row& c : All(L"CAIXA"))
      if (IsDue(c) && c[L"NUM_CAIXA"] != L"AA000" && filter(c))
        rows.rows.push_back({Department(c), c[L"NUM_CAIXA"], c[L"DESC_CAIXA"], c[L"DOC_INICIAL"], c[L"DOC_FINAL"],
                             c[L"DATA_VENCIMENTO"], c[L"DATA_FECHAMENTO"], c[L"TIPO_GUARDA"], c[L"ANOS_VENCIMENTO"],
                             FrontPages(c), DocumentCount(c)});
    return rows;
  }
  // Department, pages and documents are the parent's.
  Rows DueSubordinates(const Filter& filter) const {
    Rows rows{kDue, {}};
    for (const Row& s : All(L"CAIXA_SUBORDINADA")) {
      const Row c = Parent(s);
      if (IsDue(s) && filter(c))
        rows.rows.push_back({Department(c), Code(s), c[L"DESC_CAIXA"], s[L"DOC_INICIAL"], s[L"DOC_FINAL"],
                             s[L"DATA_VENCIMENTO"], s[L"DATA_FECHAMENTO"], s[L"TIPO_GUARDA"], s[L"ANOS_VENCIMENTO"],
                             FrontPages(c), DocumentCount(c)});
    }
    return rows;
  }

  Rows Unindexed(const Filter& filter) const {
    Rows rows{{L"NUM_CAIXA", L"DESC_CAIXA", L"NaoIndexados"}, {}};
    for (const Row& c : All(L"CAIXA")) {
      if (c[L"NUM_CAIXA"] == L"AA000" || !filter(c)) continue;
      const auto documents = TableOf(L"DOCUMENTO").Where(L"NUM_CAIXA", c[L"NUM_CAIXA"]);
      const auto count =
          std::count_if(documents.begin(), documents.end(), [](const Row& d) { return !d[L"COD_ASSUNTO"]; });
      if (count != 0) rows.rows.push_back({c[L"NUM_CAIXA"], c[L"DESC_CAIXA"], std::to_wstring(count)});
    }
    return rows;
  }

  Rows Listed(const Filter& filter) const {
    Rows rows{kListed, {}};
    for (const Row& c : All(L"CAIXA")) {
      if (c[L"NUM_CAIXA"] == L"AA000" || !filter(c)) continue;
      const auto container = Find(L"CONTAINER", L"NUM_CONTAINER", c[L"CONTAINER"]);
      rows.rows.push_back({c[L"NUM_CAIXA"], c[L"DESC_CAIXA"], c[L"DOC_INICIAL"], c[L"DOC_FINAL"], c[L"DATA_VENCIMENTO"],
                           c[L"DATA_FECHAMENTO"], c[L"COORD_X"], c[L"COORD_Y"], c[L"COORD_Z"],
                           container ? (*container)[L"DESC_CONTAINER"] : Cell(), c[L"TIPO_GUARDA"]});
    }
    return rows;
  }
  Rows ListedSubordinates(const std::function<bool(const Row& subordinate, const Row& parent)>& filter) const {
    Rows rows{kListed, {}};
    for (const Row& s : All(L"CAIXA_SUBORDINADA")) {
      const Row c = Parent(s);
      if (filter(s, c))
        rows.rows.push_back({Code(s), c[L"DESC_CAIXA"], s[L"DOC_INICIAL"], s[L"DOC_FINAL"], s[L"DATA_VENCIMENTO"],
                             s[L"DATA_FECHAMENTO"], L"", L"", L"", L"", s[L"TIPO_GUARDA"]});
    }
    return rows;
  }

  // The header of a module; a row at most.
  Rows Header(const std::wstring& module) const {
    Rows rows{kHeader, {}};
    for (const Row& c : TableOf(L"CAIXA").Where(L"NUM_CAIXA", module)) {
      const auto container = Find(L"CONTAINER", L"NUM_CONTAINER", c[L"CONTAINER"]);
      Cells cells;
      for (const wchar_t* column : {L"NUM_CAIXA", L"DESC_CAIXA", L"OBS_CAIXA", L"DOC_INICIAL", L"DOC_FINAL"})
        cells.push_back(OrEmpty(c[column]));
      cells.push_back(c[L"DATA_VENCIMENTO"]);
      cells.push_back(c[L"DATA_FECHAMENTO"]);
      for (const wchar_t* column : {L"COORD_X", L"COORD_Y", L"COORD_Z"}) cells.push_back(OrEmpty(c[column]));
      cells.push_back(container ? OrEmpty((*container)[L"DESC_CONTAINER"]) : L"");
      AppendDepository(cells, c);
      rows.rows.push_back(cells);
    }
    return rows;
  }
  // The dates and the depository are the parent's.
  Rows HeaderOfSubordinate(const std::wstring& code) const {
    Rows rows{kHeader, {}};
    for (const Row& s : All(L"CAIXA_SUBORDINADA")) {
      if (Code(s) != code) continue;
      const Row c = Parent(s);
      Cells cells = {code,
                     OrEmpty(c[L"DESC_CAIXA"]),
                     L"",
                     OrEmpty(s[L"DOC_INICIAL"]),
                     OrEmpty(s[L"DOC_FINAL"]),
                     c[L"DATA_VENCIMENTO"],
                     c[L"DATA_FECHAMENTO"],
                     L"",
                     L"",
                     L"",
                     L""};
      AppendDepository(cells, c);
      rows.rows.push_back(cells);
    }
    return rows;
  }

 private:
  inline static const Names kClosingLabels = {L"DESC_CAIXA",      L"NUM_CAIXA",   L"DOC_INICIAL", L"DOC_FINAL",
                                              L"DATA_VENCIMENTO", L"TIPO_GUARDA", L"Nome_Empresa"};
  inline static const Names kDiscarded = {L"NUM_CAIXA",       L"DESC_CAIXA",      L"DOC_INICIAL", L"DOC_FINAL",
                                          L"DATA_VENCIMENTO", L"DATA_FECHAMENTO", L"TIPO_GUARDA"};
  inline static const Names kDue = {L"DESCR_DEPTO",     L"NUM_CAIXA",       L"DESC_CAIXA",      L"DOC_INICIAL",
                                    L"DOC_FINAL",       L"DATA_VENCIMENTO", L"DATA_FECHAMENTO", L"TIPO_GUARDA",
                                    L"ANOS_VENCIMENTO", L"NUM_PAGINAS",     L"NUM_DOCS"};
  inline static const Names kListed = {L"NUM_CAIXA",       L"DESC_CAIXA",      L"DOC_INICIAL", L"DOC_FINAL",
                                       L"DATA_VENCIMENTO", L"DATA_FECHAMENTO", L"FILEIRA",     L"ESTANTE",
                                       L"PRATELEIRA",      L"CONTAINER",       L"TIPO_GUARDA"};
  inline static const Names kHeader = {
      L"NUM_CAIXA",       L"DESC_CAIXA", L"OBS_CAIXA", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO",
      L"DATA_FECHAMENTO", L"FILEIRA",    L"ESTANTE",   L"PRATELEIRA",  L"CONTAINER", L"DEPOSITO",
      L"ENDERECO",        L"CIDADE",     L"ESTADO",    L"TELEFONE",    L"CONTATO"};

  Row Parent(const Row& subordinate) const { return RowOf(L"CAIXA", L"NUM_CAIXA", subordinate[L"NUM_CAIXA"]); }
  Cell Department(const Row& module) const {
    const auto department = Find(L"DEPTO", L"COD_DEPTO", module[L"COD_DEPTO"]);
    return department ? (*department)[L"DESCR_DEPTO"] : Cell();
  }
  Cell DocumentCount(const Row& module) const {
    return std::to_wstring(TableOf(L"DOCUMENTO").Where(L"NUM_CAIXA", module[L"NUM_CAIXA"]).size());
  }
  Cell FrontPages(const Row& module) const {
    std::optional<int> pages;
    for (const Row& d : TableOf(L"DOCUMENTO").Where(L"NUM_CAIXA", module[L"NUM_CAIXA"]))
      if (d[L"FRENTE"]) pages = pages.value_or(0) + std::stoi(*d[L"FRENTE"]);
    return pages ? Cell(std::to_wstring(*pages)) : Cell();
  }
  // By the database's own clock.
  std::wstring Today() const {
    const auto rows = Create(L"ADODB.Recordset");
    const bool sqlite = Connection() == ArchiveConnection();
    Got(Call(rows, L"Open",
             {sqlite ? L"SELECT date('now') AS HOJE" : L"SELECT CURDATE() AS HOJE", Connection(), 0, 1, 1}));
    return ReadAll(rows).rows.at(0).at(0)->substr(0, 10) + L" 00:00:00";
  }
  bool IsDue(const Row& module) const {
    static const std::wstring today = Today();
    if (module[L"TIPO_GUARDA"] == L"T") return module[L"DATA_VENCIMENTO"] && *module[L"DATA_VENCIMENTO"] <= today;
    return module[L"TIPO_GUARDA"] == L"D" && module[L"DATA_FECHAMENTO"];
  }
  void AppendDepository(Cells& cells, const Row& module) const {
    const auto depository = Find(L"DEPOSITO", L"COD_DEPOSITO", module[L"COD_DEPOSITO"]);
    for (const wchar_t* column : {L"NOME", L"ENDERECO", L"CIDADE", L"ESTADO", L"TELEFONE", L"CONTATO"})
      cells.push_back(depository ? OrEmpty((*depository)[column]) : L"");
  }
};

}  // namespace kodra::face
