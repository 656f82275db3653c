// What is printed, block by block in the order of the page. One implementation writes HTML that flows in a browser, the
// other lays out A4 pages.
//
//   printout.Begin(L"Departamentos", false);
//   printout.Head({.title = L"Departamentos"});
//   printout.OpenTable({{L"Departamento"}});
//   printout.Row({.cells = {{L"Jurídico"}}});
//   printout.CloseTable();
//   printout.End();
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "console/formats/pages/picture.h"

namespace kodra::console::pages {

// Who issues the printout, above the title of its first page.
struct Letterhead {
  std::wstring organisation = {};
  std::shared_ptr<const Picture> logo = {};
  std::wstring issued = {};  // when, in the foot of each page; empty prints nothing
};

// A text after its caption: "Operador: Ana".
struct Fact {
  std::wstring caption, text;
  bool operator==(const Fact&) const = default;
};

struct PageHead {
  std::wstring title;
  std::vector<std::wstring> lines = {};
  std::vector<Fact> facts = {};
};

struct TableColumn {
  std::wstring caption;
  bool isNumber = false;
};

struct Cell {
  std::wstring text;
  bool isNumber = false;  // at the right of its column
  bool isWhole = false;   // on one line
};

enum class RowStyle {
  kPlain,
  kBlock,  // a heading of the rows below it, on the same page as the first of them
  kSum,
  kTotal,
};

struct TableRow {
  std::vector<Cell> cells;         // one for each column, or a single one across all columns
  std::vector<Fact> details = {};  // below the cells
  RowStyle style = RowStyle::kPlain;
};

struct Bar {
  std::wstring name;
  double value;
};

class Printout {
 public:
  virtual ~Printout() = default;

  // Called first, once. The title is the file's and, with the time of issue, in the foot of each page.
  virtual void Begin(std::wstring_view title, bool landscape) = 0;

  // The letterhead, the title and what is said below it.
  virtual void Head(const PageHead& heading) = 0;
  virtual void Paragraph(std::wstring_view text) = 0;

  // The captions are repeated on every page, unless all of them are empty.
  virtual void OpenTable(const std::vector<TableColumn>& columns) = 0;
  virtual void Row(const TableRow& row) = 0;
  virtual void CloseTable() = 0;

  // A horizontal bar for each name, each as long as its value is in proportion to the largest.
  virtual void Chart(std::wstring_view caption, const std::vector<Bar>& bars) = 0;
  // What a reader must know, in small letters: a legend of codes, a caution.
  virtual void Note(const Fact& note) = 0;
  // Lines to sign on, side by side.
  virtual void Signatures(const std::vector<std::wstring>& captions) = 0;
  // Ends a copy of a paper. The next one follows on the same page, below a line to cut, if both fit there; otherwise
  // on a new page.
  virtual void NextCopy() = 0;

  // Called last, once.
  virtual void End() = 0;
};

}  // namespace kodra::console::pages
