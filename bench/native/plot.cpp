// Draws how the cost grows: reads crescimento.tsv and writes an SVG with one panel per axis, both scales logarithmic,
// the component over the bare side.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr double kLastLabel = 16;  // the width that the last number needs beyond its panel
constexpr double kPanel = 300;     // the width of a panel with its margins
constexpr double kHeight = 300;    // of the whole drawing
constexpr double kLeft = 58;
constexpr double kRight = 12;
constexpr double kTop = 34;
constexpr double kBottom = 44;

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

// A range in powers of ten. It maps a value in the range to a number from 0 to 1.
struct Decades {
  double first;
  double last;
  double operator()(double value) const { return (std::log10(value) - first) / (last - first); }
};

Decades Around(double least, double most) {
  const double first = std::floor(std::log10(least) + 1e-9);
  return {first, std::max(first + 1, std::ceil(std::log10(most) - 1e-9))};
}

std::string Power(int exponent, bool seconds) {
  const double value = std::pow(10, exponent);
  char text[32];
  if (!seconds)
    std::snprintf(text, sizeof text, "%.0f", value);
  else if (exponent < -3)
    std::snprintf(text, sizeof text, "%g µs", value * 1e6);
  else if (exponent < 0)
    std::snprintf(text, sizeof text, "%g ms", value * 1e3);
  else
    std::snprintf(text, sizeof text, "%g s", value);
  return text;
}

class Panel {
 public:
  Panel(std::ostream& out, double x, const std::vector<Point>& points)
      : out_(out), x_(x), points_(points), sizes_(Around(points.front().size, points.back().size)), times_(Times()) {}

  void Draw(const std::string& title) {
    out_ << "<text class=\"title\" x=\"" << x_ + kLeft << "\" y=\"20\">" << title << "</text>\n";
    for (int power = static_cast<int>(sizes_.first); power <= sizes_.last; ++power) {
      const double x = X(std::pow(10, power));
      out_ << "<path class=\"grid\" d=\"M" << x << ' ' << kTop << 'V' << kHeight - kBottom << "\"/><text x=\"" << x
           << "\" y=\"" << kHeight - kBottom + 16 << "\" text-anchor=\"middle\">" << Power(power, false) << "</text>\n";
    }
    for (int power = static_cast<int>(times_.first); power <= times_.last; ++power) {
      const double y = Y(std::pow(10, power));
      out_ << "<path class=\"grid\" d=\"M" << x_ + kLeft << ' ' << y << 'H' << x_ + kPanel - kRight << "\"/><text x=\""
           << x_ + kLeft - 6 << "\" y=\"" << y + 4 << "\" text-anchor=\"end\">" << Power(power, true) << "</text>\n";
    }
    Line("bare", &Point::bare);
    Line("component", &Point::component);
  }

 private:
  Decades Times() const {
    double least = points_.front().bare;
    double most = least;
    for (const Point& point : points_) {
      least = std::min({least, point.bare, point.component});
      most = std::max({most, point.bare, point.component});
    }
    return Around(least, most);
  }
  double X(double size) const { return x_ + kLeft + sizes_(size) * (kPanel - kLeft - kRight); }
  double Y(double seconds) const { return kHeight - kBottom - times_(seconds) * (kHeight - kTop - kBottom); }

  void Line(const char* name, double Point::*side) {
    out_ << "<path class=\"" << name << "\" d=\"";
    for (std::size_t i = 0; i < points_.size(); ++i)
      out_ << (i == 0 ? 'M' : 'L') << X(points_[i].size) << ' ' << Y(points_[i].*side);
    out_ << "\"/>\n";
    for (const Point& point : points_)
      out_ << "<circle class=\"" << name << "\" cx=\"" << X(point.size) << "\" cy=\"" << Y(point.*side)
           << "\" r=\"3\"/>\n";
  }

  std::ostream& out_;
  double x_;
  const std::vector<Point>& points_;
  Decades sizes_;
  Decades times_;
};

void Draw(const Axes& axes, std::ostream& out) {
  const double width = kPanel * static_cast<double>(axes.size()) + kLastLabel;
  out << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << width << ' ' << kHeight << "\" width=\"" << width
      << "\" height=\"" << kHeight << "\">\n"
      << "<style>text{font:11px sans-serif;fill:#333}.title{font-weight:bold;font-size:12px}.grid{stroke:#ddd}"
         "path{fill:none}path.bare{stroke:#999;stroke-width:4}path.component{stroke:#c33;stroke-width:1.5}"
         "circle.bare{fill:#999}circle.component{fill:#c33}</style>\n"
      << "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n";
  out.precision(5);
  double x = 0;
  const std::map<std::string, std::string> titles = {
      {"linhas", "rows of RelatorioSintetico"},
      {"colunas", "columns of 20,000 rows"},
      {"chamadas", "calls of RelatorioDeptos"},
  };
  for (const auto& [axis, points] : axes) {
    Panel(out, x, points).Draw(titles.at(axis));
    x += kPanel;
  }
  out << "<text x=\"" << kLeft << "\" y=\"" << kHeight - 8
      << "\">red: through the component; grey: the same without it</text>\n</svg>\n";
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
