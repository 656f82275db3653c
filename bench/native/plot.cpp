// Draws how the cost grows: reads crescimento.tsv and writes an SVG with one panel per axis, both scales logarithmic,
// the component over the bare side.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "bench/native/log_panel.h"

namespace {

using namespace kodra::bench;

struct Point {
  double size;
  double component;
  double bare;
};

using Axes = std::map<std::string, std::vector<Point>>;

Axes Read(const std::string& path) {
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  Axes axes;
  std::string axis;
  for (Point point{}; file >> axis >> point.size >> point.component >> point.bare;) axes[axis].push_back(point);
  return axes;
}

Decades Times(const std::vector<Point>& points) {
  double least = points.front().bare;
  double most = least;
  for (const Point& point : points) {
    least = std::min({least, point.bare, point.component});
    most = std::max({most, point.bare, point.component});
  }
  return Around(least, most);
}

std::vector<SizeAndSeconds> Side(const std::vector<Point>& points, double Point::*side) {
  std::vector<SizeAndSeconds> line;
  for (const Point& point : points) line.push_back({point.size, point.*side});
  return line;
}

void Draw(const Axes& axes, std::ostream& out) {
  BeginDrawing(out, axes.size(),
               "path.bare{stroke:#999;stroke-width:4}path.component{stroke:#c33;stroke-width:1.5}"
               "circle.bare{fill:#999}circle.component{fill:#c33}");
  const std::map<std::string, std::string> titles = {
      {"linhas", "rows of RelatorioSintetico"},
      {"colunas", "columns of 20,000 rows"},
      {"chamadas", "calls of RelatorioDeptos"},
  };
  double x = 0;
  for (const auto& [axis, points] : axes) {
    LogPanel panel(out, x, Around(points.front().size, points.back().size), Times(points));
    panel.Axes(titles.at(axis));
    panel.Line("bare", Side(points, &Point::bare));
    panel.Line("component", Side(points, &Point::component));
    x += kPanelWidth;
  }
  EndDrawing(out, "red: through the component; grey: the same without it");
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Desenha como o custo cresce com linhas, colunas e chamadas."};
  std::string measured;
  std::string drawing;
  app.add_option("medidas", measured, "crescimento.tsv")->required();
  app.add_option("desenho", drawing, "arquivo SVG a gravar")->required();
  CLI11_PARSE(app, argc, argv);
  const Axes axes = Read(measured);
  if (axes.empty()) {
    std::cerr << "kodra-bench-plot: " << measured << " não tem medidas\n";
    return 1;
  }
  std::ofstream out(drawing);
  Draw(axes, out);
  return out.flush() ? 0 : 1;
}
