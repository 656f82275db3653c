// The options of a command that writes rows: the format, and the file or the standard output.
//
//   OutputOptions output;
//   output.AddTo(command);                                // before the command line is read
//   const Format format = output.ChosenFormat();          // in the command
//   const FormatOptions formatOptions = output.ForFormats();
#pragma once

#include <string>

#include "console/formats/formats.h"

namespace CLI {
class App;
}

namespace kodra::console {

class OutputOptions {
 public:
  void AddTo(CLI::App& command);

  // Raises UsageError for an unknown format, and for one that needs a file if none is named.
  Format ChosenFormat() const;
  // What csv, json and xlsx are told; the options of html have their default values. Raises UsageError for a separator
  // that csv cannot have.
  FormatOptions ForFormats() const;
  // The file to write; empty for the standard output.
  std::wstring Target() const;

 private:
  std::string format_ = "tabela";
  std::string target_;
  std::string separator_ = ",";
  bool byteOrderMark_ = false;
  bool jsonLines_ = false;
  bool captions_ = false;
};

}  // namespace kodra::console
