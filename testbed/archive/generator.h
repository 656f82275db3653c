// Generates the rows of the sample archive independently of each other: a row depends only on the size of the archive,
// its table and its number.
//
//   const Generator generator({.documents = 1000000});
//   for (std::int64_t i = 0; i < generator.Count<Documento>(); ++i) Write(generator.Row<Documento>(i));
//
// So an archive of any size is streamed in constant memory, and the same size produces the same rows on every machine.
// Besides ordinary rows every table contains the kinds that reports treat differently (a deleted operator, a series
// without an owner, a document not yet indexed, ...); from 64 documents on, all of them exist. The row number decides
// the kind, as described at the row functions. A Generator is immutable and may be shared by threads.
#pragma once

#include <cstdint>
#include <string>

#include "testbed/archive/records.h"

namespace kodra::testbed {

struct Size {
  std::int64_t documents = 1000;  // 0 or more; the sizes of the other tables depend on it
};

class Generator {
 public:
  explicit Generator(Size size);

  template <class Record>
  std::int64_t Count() const;
  // REQUIRES: 0 <= row < Count<Record>().
  template <class Record>
  Record Row(std::int64_t row) const;

 private:
  // Documents fill modules and media in the order of their numbers; row 0 of CAIXA is the module 'AA000'.
  std::int64_t ModuleOfDocument(std::int64_t document) const { return 1 + document / documentsPerModule_; }
  std::int64_t CdOfDocument(std::int64_t document) const { return document / documentsPerCd_; }
  MaybeText DocumentCode(std::int64_t document) const;  // null past the last document
  // The day on which a document is stored: the documents spread evenly over the archive's twelve years.
  Day StorageDay(std::int64_t document) const;
  std::int64_t Operators() const { return operators_; }

  std::int64_t documents_;
  std::int64_t sites_;  // every series exists once per site
  std::int64_t operators_;
  std::int64_t documentsPerModule_, modules_, containers_;
  std::int64_t documentsPerCd_, cds_;
};

// The codes of rows by their number.
Text SeriesCode(std::int64_t row);
Text SubgroupCode(std::int64_t row);
Text GroupCode(std::int64_t row);
Text OperatorCode(std::int64_t row);
Text DepartmentCode(std::int64_t row);
Text DepositoryCode(std::int64_t row);
Text ModuleCode(std::int64_t row);  // 'AA000', 'AA001', ... 'ZZ999'
Text ContainerCode(std::int64_t row);
Text CdCode(std::int64_t row);

inline constexpr std::int64_t kDepositories = 6;
inline constexpr std::int64_t kOperatorGroups = 5;

// Texts made of the vocabulary.
Text Padded(std::int64_t number, int digits);
Text PersonName(std::int64_t row);          // "João D'Ávila"
Text AsLogin(std::wstring_view name);       // "joao.davila" for "João D'Ávila"
Text BrazilianDate(Day day);                // "31/05/2024"
Day AddYears(Day day, std::int64_t years);  // 29 February becomes 28 February in a year without it

}  // namespace kodra::testbed
