#include "bench/native/log_panel.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace kodra::bench {
namespace {

constexpr double kRight = 12;
constexpr double kTop = 34;
constexpr double kBottom = 44;

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

}  // namespace

double Decades::operator()(double value) const { return (std::log10(value) - first) / (last - first); }

Decades Around(double least, double most) {
  const double first = std::floor(std::log10(least) + 1e-9);
  return {first, std::max(first + 1, std::ceil(std::log10(most) - 1e-9))};
}

double LogPanel::X(double size) const { return x_ + kPanelLeft + sizes_(size) * (kPanelWidth - kPanelLeft - kRight); }
double LogPanel::Y(double seconds) const {
  return kPanelHeight - kBottom - seconds_(seconds) * (kPanelHeight - kTop - kBottom);
}

void LogPanel::Axes(const std::string& title) {
  out_ << "<text class=\"title\" x=\"" << x_ + kPanelLeft << "\" y=\"20\">" << title << "</text>\n";
  for (int power = static_cast<int>(sizes_.first); power <= sizes_.last; ++power) {
    const double x = X(std::pow(10, power));
    out_ << "<path class=\"grid\" d=\"M" << x << ' ' << kTop << 'V' << kPanelHeight - kBottom << "\"/><text x=\"" << x
         << "\" y=\"" << kPanelHeight - kBottom + 16 << "\" text-anchor=\"middle\">" << Power(power, false)
         << "</text>\n";
  }
  for (int power = static_cast<int>(seconds_.first); power <= seconds_.last; ++power) {
    const double y = Y(std::pow(10, power));
    out_ << "<path class=\"grid\" d=\"M" << x_ + kPanelLeft << ' ' << y << 'H' << x_ + kPanelWidth - kRight
         << "\"/><text x=\"" << x_ + kPanelLeft - 6 << "\" y=\"" << y + 4 << "\" text-anchor=\"end\">"
         << Power(power, true) << "</text>\n";
  }
}

void LogPanel::Line(const std::string& styleClass, const std::vector<SizeAndSeconds>& points) {
  out_ << "<path class=\"" << styleClass << "\" d=\"";
  char command = 'M';
  for (const SizeAndSeconds& point : points) {
    out_ << command << X(point.size) << ' ' << Y(point.seconds);
    command = 'L';
  }
  out_ << "\"/>\n";
  for (const SizeAndSeconds& point : points)
    out_ << "<circle class=\"" << styleClass << "\" cx=\"" << X(point.size) << "\" cy=\"" << Y(point.seconds)
         << "\" r=\"3\"/>\n";
}

void BeginDrawing(std::ostream& out, std::size_t panels, const std::string& style) {
  const double width = kPanelWidth * static_cast<double>(panels) + kLastLabel;
  out << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << width << ' ' << kPanelHeight << "\" width=\""
      << width << "\" height=\"" << kPanelHeight << "\">\n"
      << "<style>text{font:11px sans-serif;fill:#333}.title{font-weight:bold;font-size:12px}.grid{stroke:#ddd}"
         "path{fill:none}"
      << style << "</style>\n"
      << "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n";
  out.precision(5);
}

void EndDrawing(std::ostream& out, const std::string& caption) {
  out << "<text x=\"" << kPanelLeft << "\" y=\"" << kPanelHeight - 8 << "\">" << caption << "</text>\n</svg>\n";
}

}  // namespace kodra::bench
