// Prints labels of an archive: which ones, of which modules or containers, and how.
//
//   const LabelPrint print({.kind = "abertura", .codes = {L"AA001"}});
//   const LabelOutcome outcome = print.Write(surroundings, connection, output, [] { return true; });
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "console/formats/labels/label_writer.h"
#include "console/run/archive_labels.h"

namespace kodra::console {

struct NamedLabelKind {
  std::string_view name;  // "abertura"
  LabelKind kind;
  const wchar_t* title;  // "Etiquetas de abertura"
};
// All kinds of labels, in the order of the help.
std::span<const NamedLabelKind> LabelKinds();

struct LabelOrder {
  std::string kind;  // the name, in any letter case
  // The labels come in the order of these codes, followed by the codes of the range, if any of its members is given.
  std::vector<std::wstring> codes = {};
  CodeRange range = {};
  bool withPlace = false;
  std::wstring organisation = {};  // empty for the one in the database
  labels::PrintOptions print = {};
  pages::PageFormat format = pages::PageFormat::kPdf;
};

struct LabelOutcome {
  bool hasLabels = false;
  // Sentences for the user, in Brazilian Portuguese: what is odd about the labels, and what is missing of those that
  // were asked for.
  std::vector<std::string> warnings = {};
  std::vector<std::string> problems = {};
};

class LabelPrint {
 public:
  // Raises UsageError for an order that cannot be printed.
  explicit LabelPrint(LabelOrder order);

  // Reads the labels and writes their pages, unless there is no label or `goesOn` returns false. Raises what the
  // reports raise, ConnectionError, and UsageError for a label that has no room for its code; nothing is written then.
  LabelOutcome Write(platform::Surroundings& surroundings, const std::wstring& connection, Output& output,
                     const std::function<bool()>& goesOn) const;

 private:
  std::vector<std::string> TakeLabelsOf(const std::vector<std::wstring>& codes, ArchiveLabels& archive,
                                        std::vector<labels::Label>& all) const;

  LabelOrder order_;
  const NamedLabelKind& kind_;
};

// The codes of a list, one on each line; blanks and empty lines do not count.
std::vector<std::wstring> CodesInList(std::string_view list);

}  // namespace kodra::console
