// One panel of a drawing in SVG: seconds over sizes, both scales logarithmic.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kodra::bench {

inline constexpr double kPanelWidth = 300;  // with its margins
inline constexpr double kPanelHeight = 300;
inline constexpr double kPanelLeft = 58;  // where the axis begins
inline constexpr double kLastLabel = 16;  // the width that the last number of a drawing needs beyond its panel

// A range in powers of ten. It maps a value in the range to a number from 0 to 1.
struct Decades {
  double first;
  double last;
  double operator()(double value) const;
};

// The least range with both values, of one power of ten at least.
Decades Around(double least, double most);

struct SizeAndSeconds {
  double size;
  double seconds;
};

class LogPanel {
 public:
  LogPanel(std::ostream& out, double x, Decades sizes, Decades seconds)
      : out_(out), x_(x), sizes_(sizes), seconds_(seconds) {}

  void Axes(const std::string& title);
  // A line with its points; the style of the drawing says how paths and circles of the class look.
  void Line(const std::string& styleClass, const std::vector<SizeAndSeconds>& points);

 private:
  double X(double size) const;
  double Y(double seconds) const;

  std::ostream& out_;
  double x_;
  Decades sizes_;
  Decades seconds_;
};

// The beginning of a drawing with panels side by side, without the styles of its lines: those are appended to `style`.
void BeginDrawing(std::ostream& out, std::size_t panels, const std::string& style);
// Its last line of text, and its end.
void EndDrawing(std::ostream& out, const std::string& caption);

}  // namespace kodra::bench
