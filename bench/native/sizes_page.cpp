// The tables and the drawing of docs/performance.md about the growth of an archive: reads the lines of
// kodra-bench-sizes, prints one table for each database, and writes an SVG with one panel for each.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "bench/native/log_panel.h"

namespace {

using namespace kodra::bench;

struct Figure {
  std::string text;               // as it is printed
  std::optional<double> seconds;  // none for a report that failed or was ended
  long rows = 0;
};

// The figures of a report by the number of documents.
using Figures = std::map<long, Figure>;
struct Database {
  std::string name;
  std::vector<std::string> reports;  // in their order
  std::map<std::string, Figures> figures;
};

Figure ToFigure(const std::string& text, long rows) {
  Figure figure{text, {}, rows};
  char* end = nullptr;
  const double seconds = std::strtod(text.c_str(), &end);
  if (*end != '\0') return figure;
  std::ostringstream printed;
  printed << std::fixed << std::setprecision(seconds < 10 ? 3 : 1) << seconds << " s";
  return {printed.str(), seconds, rows};
}

std::vector<Database> Read(const std::string& path) {
  std::ifstream file(path);
  std::vector<Database> databases;
  for (std::string line; std::getline(file, line);) {
    std::istringstream fields(line);
    std::string name, documents, report, rows, time;
    for (std::string* field : {&name, &documents, &report, &rows, &time}) std::getline(fields, *field, '\t');
    auto database = std::ranges::find(databases, name, &Database::name);
    if (database == databases.end()) database = databases.insert(databases.end(), {name, {}, {}});
    if (!database->figures.contains(report)) database->reports.push_back(report);
    database->figures[report][std::stol(documents)] = ToFigure(time, std::stol(rows));
  }
  return databases;
}

// Shorter times say nothing about growth.
constexpr double kNoticed = 0.02;

bool IsNoticed(const Figure& figure) { return !figure.seconds || *figure.seconds >= kNoticed; }
bool IsNoticed(const Figures& figures) {
  return std::ranges::any_of(figures, [](const auto& entry) { return IsNoticed(entry.second); });
}

enum class Growth { kNone, kLess, kLinear, kMore };

// How the time grows with the documents, between the two largest archives with a figure.
Growth GrowthOf(const Figures& figures) {
  std::vector<SizeAndSeconds> points;
  for (const auto& [documents, figure] : figures)
    if (figure.seconds) points.push_back({static_cast<double>(documents), *figure.seconds});
  if (points.size() < 2 || points.back().seconds < kNoticed) return Growth::kNone;
  const SizeAndSeconds last = points[points.size() - 1];
  const SizeAndSeconds before = points[points.size() - 2];
  const double exponent = std::log(last.seconds / before.seconds) / std::log(last.size / before.size);
  return exponent < 0.7 ? Growth::kLess : exponent > 1.3 ? Growth::kMore : Growth::kLinear;
}

const char* Word(Growth growth) {
  switch (growth) {
    case Growth::kNone:
      return "–";
    case Growth::kLess:
      return "less than linear";
    case Growth::kLinear:
      return "linear";
    case Growth::kMore:
      return "more than linear";
  }
  return "";
}

const char* StyleClass(Growth growth) {
  return growth == Growth::kMore ? "more" : growth == Growth::kLinear ? "linear" : "less";
}

std::vector<long> Sizes(const Database& database) {
  std::vector<long> sizes;
  for (const auto& [documents, figure] : database.figures.begin()->second) sizes.push_back(documents);
  return sizes;
}

std::string Grouped(long number) {
  std::string text = std::to_string(number);
  for (std::size_t at = text.size(); at > 3; text.insert(at, ",")) at -= 3;
  return text;
}

// The reports whose time is noticed; the others in one line.
void Print(const Database& database) {
  const std::vector<long> sizes = Sizes(database);
  std::cout << "\n" << database.name << "\n\n| report | rows of the last |";
  for (const long size : sizes) std::cout << " " << Grouped(size) << " |";
  std::cout << " growth |\n| --- |";
  for (std::size_t column = 0; column < sizes.size() + 2; ++column) std::cout << " --- |";
  std::cout << "\n";
  std::size_t others = 0;
  for (const std::string& report : database.reports) {
    const Figures& figures = database.figures.at(report);
    if (!IsNoticed(figures)) {
      ++others;
      continue;
    }
    const Figure& last = figures.rbegin()->second;
    std::cout << "| " << report << " | " << (last.seconds ? Grouped(last.rows) : "–") << " |";
    for (const auto& [documents, figure] : figures) std::cout << " " << figure.text << " |";
    std::cout << " " << Word(GrowthOf(figures)) << " |\n";
  }
  std::cout << "\nThe other " << others << " reports take less than " << kNoticed << " s at every size.\n";
}

Decades Times(const std::vector<Database>& databases) {
  double least = 1;
  double most = 1;
  for (const Database& database : databases)
    for (const auto& [report, figures] : database.figures)
      for (const auto& [documents, figure] : figures) {
        least = std::min(least, figure.seconds.value_or(least));
        most = std::max(most, figure.seconds.value_or(most));
      }
  return Around(least, most);
}

void Draw(const std::vector<Database>& databases, std::ostream& out) {
  BeginDrawing(out, databases.size(),
               "path{stroke-width:1.5}.less{stroke:#aaa}.linear{stroke:#36c}.more{stroke:#c33}"
               "circle.less{fill:#aaa}circle.linear{fill:#36c}circle.more{fill:#c33}");
  const Decades times = Times(databases);
  double x = 0;
  for (const Database& database : databases) {
    const std::vector<long> sizes = Sizes(database);
    LogPanel panel(out, x, Around(static_cast<double>(sizes.front()), static_cast<double>(sizes.back())), times);
    panel.Axes("documents in " + database.name);
    for (const auto& [report, figures] : database.figures) {
      std::vector<SizeAndSeconds> points;
      for (const auto& [documents, figure] : figures)
        if (figure.seconds) points.push_back({static_cast<double>(documents), *figure.seconds});
      panel.Line(StyleClass(GrowthOf(figures)), points);
    }
    x += kPanelWidth;
  }
  EndDrawing(out,
             "one line per report; blue: linear in the documents; red: more than linear; grey: less, or not noticed");
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Escreve as tabelas e o desenho de como o tempo de cada relatório cresce com o acervo."};
  std::string measured;
  std::string drawing;
  app.add_option("medidas", measured, "As linhas de kodra-bench-sizes")->required();
  app.add_option("desenho", drawing, "Arquivo SVG a gravar")->required();
  CLI11_PARSE(app, argc, argv);
  const std::vector<Database> databases = Read(measured);
  if (databases.empty()) {
    std::cerr << "kodra-bench-sizes-page: " << measured << " não tem medidas\n";
    return 1;
  }
  for (const Database& database : databases) Print(database);
  std::ofstream out(drawing);
  Draw(databases, out);
  return out.flush() ? 0 : 1;
}
