// The options of a command that writes rows: the format, and the file or the standard output.
//
//   OutputOptions output;
//   output.AddTo(command);                                // before the command line is read
//   const Format format = output.ChosenFormat();          // in the command
//   const FormatOptions formatOptions = output.ForFormats();
#pragma once

#include <cstdint>
#include <string>

#include "console/formats/formats.h"

namespace CLI {
class App;
}

namespace kodra::console {

class OutputOptions {
 public:
  // REQUIRES: the command outlives the object.
  void AddTo(CLI::App& command);

  // The format that was asked for, or else that of the ending of the file's name. Raises UsageError for an unknown
  // format, for one that needs a file if none is named, and for an option that has no effect on the format.
  Format ChosenFormat() const;
  // The columns to write, and what csv, json and xlsx are told; the options of html have their default values. Raises
  // UsageError for a separator that csv cannot have.
  FormatOptions ForFormats() const;
  // The number of rows to write at most. Raises UsageError for a number below 1.
  std::uint64_t MostRows() const;
  // The file to write; empty for the standard output.
  std::wstring Target() const;

 private:
  bool IsGiven(const std::string& name) const;
  void CheckApplies(Format format) const;
  CsvOptions ForCsv() const;
  std::vector<std::string> ColumnNames() const;

  const CLI::App* command_ = nullptr;
  std::string format_;
  std::string target_;
  std::string separator_ = ",";
  bool byteOrderMark_ = false;
  bool forExcel_ = false;
  bool jsonLines_ = false;
  bool captions_ = false;
  std::string columns_;
  std::int64_t mostRows_ = 0;
};

}  // namespace kodra::console
