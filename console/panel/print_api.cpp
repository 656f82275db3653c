#include "console/panel/print_api.h"

#include "console/formats/labels/label_arguments.h"
#include "console/formats/pages/base64.h"
#include "console/formats/pages/letterhead_options.h"
#include "console/panel/request_json.h"
#include "console/papers/paper_print.h"
#include "console/run/label_print.h"
#include "console/run/report_task.h"
#include "values/utf8.h"

namespace kodra::console::panel {
namespace {

using values::FromUtf8;

LabelOrder LabelOrderOf(const Json& json) {
  const labels::LabelChoices usual;
  LabelOrder order = {
      .kind = TextOf(json, "kind"),
      .codes = CodesInList(TextOr(json, "list", "")),
      .range = {FromUtf8(TextOr(json, "first", "")), FromUtf8(TextOr(json, "last", "")),
                FromUtf8(TextOr(json, "department", ""))},
      .withPlace = FlagOf(json, "withPlace"),
      .organisation = FromUtf8(TextOr(json, "organisation", "")),
      .print = labels::PrintOptionsOf({.stock = TextOr(json, "stock", usual.stock),
                                       .ownStock = TextOr(json, "ownStock", ""),
                                       .firstLabel = NumberOr(json, "firstLabel", usual.firstLabel),
                                       .copies = NumberOr(json, "copies", usual.copies),
                                       .shift = TextOr(json, "shift", ""),
                                       .outline = FlagOf(json, "outline"),
                                       .code = TextOr(json, "code", usual.code)}),
  };
  order.print.logo = LogoOf(json);
  return order;
}

papers::PaperPrint PaperPrintOf(const Json& json) {
  const std::vector<std::pair<std::string, std::string>> given = GivenIn(json);
  std::vector<std::pair<std::wstring, std::wstring>> wide;
  wide.reserve(given.size());
  for (const auto& [name, value] : given) wide.emplace_back(FromUtf8(name), FromUtf8(value));
  return {papers::PaperNamed(TextOf(json, "paper")), wide,
          [given](const reports::ReportMethod& method) { return ReportTask(method, given).Parameters(); }};
}

// What was printed, or why nothing was. Without a page there is no file.
Answer Printed(const std::string& pdf, const LabelOutcome& outcome) {
  const Json json = {{"pdf", pdf.empty() ? Json() : Json(pages::Base64(pdf))},
                     {"warnings", outcome.warnings},
                     {"problems", outcome.problems}};
  return {.type = kJson, .body = AnswerText(json)};
}

}  // namespace

Answer PrintLabels(const Request& request, const std::wstring& connection, Runs& runs) {
  const Json json = BodyOf(request);
  const LabelPrint print(LabelOrderOf(json));
  TextOutput pdf;
  LabelOutcome outcome;
  const std::string whyOver =
      runs.DoUnlessStopped(TextOf(json, "run"), request.isGone, [&](Machine& machine, const Run& run) {
        outcome = print.Write(machine.Around(), connection, pdf, [&] { return !run.IsOver(); });
      });
  return whyOver.empty() ? Printed(pdf.Text(), outcome) : Refused(409, whyOver);
}

Answer PrintPaper(const Request& request, const std::wstring& connection, Runs& runs) {
  const Json json = BodyOf(request);
  const papers::PaperPrint print = PaperPrintOf(json);
  pages::Letterhead letterhead = pages::LetterheadOptions().Get();
  letterhead.organisation = FromUtf8(TextOr(json, "organisation", ""));
  letterhead.logo = LogoOf(json);
  TextOutput pdf;
  const std::string whyOver =
      runs.DoUnlessStopped(TextOf(json, "run"), request.isGone, [&](Machine& machine, const Run&) {
        print.Write(machine.Around(), connection, letterhead, pages::PageFormat::kPdf, pdf);
      });
  return whyOver.empty() ? Printed(pdf.Text(), {}) : Refused(409, whyOver);
}

}  // namespace kodra::console::panel
