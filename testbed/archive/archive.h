// The whole sample archive in memory, to compare reports with the rows that they are made from.
#pragma once

#include <tuple>
#include <vector>

#include "testbed/archive/generator.h"
#include "testbed/archive/schema.h"

namespace kodra::testbed {

class Archive {
 public:
  // The rows of a table, in the order of their numbers: archive.Of<Documento>().
  template <class Record>
  const std::vector<Record>& Of() const {
    return std::get<std::vector<Record>>(rows_);
  }
  template <class Record>
  std::vector<Record>& Of() {
    return std::get<std::vector<Record>>(rows_);
  }

 private:
  template <class Records>
  struct Rows;
  template <class... Record>
  struct Rows<std::tuple<Record...>> {
    using Type = std::tuple<std::vector<Record>...>;
  };
  typename Rows<AllRecords>::Type rows_;
};

// Generates an archive; the same size produces the same rows.
Archive Generate(Size size);

}  // namespace kodra::testbed
