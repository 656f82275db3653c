// Statistics, grouped and totalled from the rows of a report as the front end's layouts do it.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "console/formats/pages/printout.h"
#include "console/formats/row_reader.h"
#include "console/reports/guide.h"

namespace kodra::console::pages {

// A line of a statistic: a group's name and its sums, one for each measure.
struct StatisticsLine {
  std::wstring name;
  std::vector<double> sums;
};

// The lines under one heading, with their sums.
struct StatisticsBlock {
  std::wstring name;  // empty if the statistic has only one level
  std::vector<StatisticsLine> lines;
  std::vector<double> sums;
};

struct Statistics {
  std::wstring title, subtitle;
  std::vector<Fact> facts;
  std::wstring groupCaption;           // of the lines' names: "Dia"
  std::vector<std::wstring> measures;  // "Documentos", "Páginas"
  std::vector<StatisticsBlock> blocks;
  std::vector<double> sums;
};

// A bar for the last measure of every line, which is the subject of the statistic. Many days are added up by month, or
// by year.
struct StatisticsChart {
  std::wstring caption;
  std::vector<Bar> bars;
};
StatisticsChart ChartOf(const Statistics& statistics);

// Gathers a report's rows. Memory grows with the groups, not with the rows.
class StatisticsGatherer {
 public:
  // REQUIRES: the report of that heading is a statistic.
  StatisticsGatherer(const Heading& heading, std::span<const Column> columns);

  void Add(const RowReader& row);
  Statistics Result() const;

 private:
  // A place in the order of lines: the days by date, texts by alphabet, without regard to letter case and accents.
  struct Key {
    std::string order;
    std::wstring name;
    bool operator<(const Key& other) const { return order != other.order ? order < other.order : name < other.name; }
  };
  static Key KeyOf(const RowReader& row, const guide::Column* column);
  std::vector<double> MeasuresOf(const RowReader& row) const;
  // Takes title, subtitle and facts from the first row.
  void TakeHeading(const RowReader& first);

  const guide::Report& report_;
  // Null if the report has no such column.
  const guide::Column* block_;
  const guide::Column* line_;
  const guide::Column* total_;
  std::vector<const guide::Column*> counts_;
  bool hasVerso_, hasFrente_;
  Statistics heading_;
  bool first_ = true;
  std::map<Key, std::map<Key, std::vector<double>>> groups_;
};

}  // namespace kodra::console::pages
