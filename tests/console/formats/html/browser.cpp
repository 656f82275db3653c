#include "tests/console/formats/html/browser.h"

#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace kodra::tests {
namespace {

// Prints the values between these lines, as JSON in plain ASCII, and nothing else that a page could hold.
constexpr const char* kHarness = R"(
<script>
const evaluate = ({});
window.onload = () => {{
  const values = [...document.querySelectorAll('iframe')].map(frame => evaluate(frame.contentDocument));
  const text = JSON.stringify(values).replace(/[^ -~]|[<>&]/g, c => '\\u' + c.charCodeAt(0).toString(16).padStart(4, '0'));
  document.body.textContent = 'BEGIN-VALUES' + text + 'END-VALUES';
}};
</script>
)";

std::string AttributeText(const std::string& page) {
  std::string text;
  for (const char c : page) {
    if (c == '&')
      text += "&amp;";
    else if (c == '"')
      text += "&quot;";
    else
      text += c;
  }
  return text;
}

std::vector<std::string> LinesOf(const std::string& text, char end) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line, end);) lines.push_back(line);
  return lines;
}

std::string FieldOf(const std::string& info, const std::string& name) {
  for (const std::string& line : LinesOf(info, '\n')) {
    if (line.starts_with(name)) return line.substr(line.find_first_not_of(' ', name.size()));
  }
  return {};
}

}  // namespace

std::filesystem::path Browser::Write(const std::string& name, const std::string& text) const {
  std::ofstream(folder_ / name, std::ios::binary) << text;
  return folder_ / name;
}

std::string Browser::Run(const std::string& command) const {
  FILE* pipe = popen((command + " 2>>" + (folder_ / "errors.log").string()).c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("cannot run " + command);
  std::string output;
  std::array<char, 65536> buffer{};
  while (const std::size_t read = fread(buffer.data(), 1, buffer.size(), pipe)) output.append(buffer.data(), read);
  if (pclose(pipe) != 0) {
    std::ifstream errors(folder_ / "errors.log");
    throw std::runtime_error(command + " failed:\n" + std::string(std::istreambuf_iterator<char>(errors), {}));
  }
  return output;
}

std::string Browser::RunChromium(const std::string& arguments) const {
  // Without a sandbox, as root has none; without the requests that a browser makes of its own accord.
  return Run(
      "timeout 120 chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run "
      "--disable-background-networking --disable-component-update --disable-sync --disable-dev-shm-usage "
      "--user-data-dir=" +
      (folder_ / "profile").string() + " " + arguments);
}

nlohmann::json Browser::Evaluate(const std::vector<std::string>& pages, const std::string& function) {
  std::string harness = "<!DOCTYPE html><meta charset=\"utf-8\"><body>";
  for (const std::string& page : pages)
    harness += "<iframe style=\"width:300mm;height:400mm\" srcdoc=\"" + AttributeText(page) + "\"></iframe>";
  const auto file = Write("harness.html", harness + fmt::format(fmt::runtime(kHarness), function));
  const std::string shown = RunChromium("--dump-dom file://" + file.string());
  const auto begin = shown.find("BEGIN-VALUES") + 12;
  const auto end = shown.find("END-VALUES");
  if (end == shown.npos || begin > end)
    throw std::runtime_error("the browser gave no values:\n" + shown.substr(0, 2000));
  return nlohmann::json::parse(shown.substr(begin, end - begin));
}

Browser::Print Browser::PrintToPdf(const std::string& page, bool scan) {
  const auto html = Write("page.html", page);
  const auto pdf = folder_ / "page.pdf";
  RunChromium("--no-pdf-header-footer --print-to-pdf=" + pdf.string() + " file://" + html.string());
  const std::string info = Run("pdfinfo " + pdf.string());
  Print print = {std::stoi(FieldOf(info, "Pages:")),
                 FieldOf(info, "Page size:"),
                 LinesOf(Run("pdftotext -layout " + pdf.string() + " -"), '\f'),
                 {}};
  if (scan) {
    Run("pdftoppm -r 200 -gray -png " + pdf.string() + " " + (folder_ / "sheet").string());
    print.barcodes = LinesOf(
        Run("zbarimg --quiet --raw -Sdisable -Scode128.enable --nodbus " + folder_.Path().string() + "/sheet*.png"),
        '\n');
  }
  return print;
}

}  // namespace kodra::tests
