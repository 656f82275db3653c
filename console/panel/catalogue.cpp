#include "console/panel/catalogue.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "console/command_line/databases.h"
#include "console/command_line/report_name.h"
#include "console/formats/labels/label_arguments.h"
#include "console/papers/papers.h"
#include "console/reports/guide.h"
#include "console/reports/words.h"
#include "console/run/label_print.h"
#include "frame/parameter_object.h"
#include "frame/version.h"
#include "values/utf8.h"

namespace kodra::console::panel {
namespace {

using Json = nlohmann::ordered_json;

const char* TypeOf(frame::PropertyRule rule) {
  if (rule == frame::PropertyRule::kDate) return "date";
  return rule == frame::PropertyRule::kFlag ? "flag" : "text";
}

// The parameters that the report reads, in the order of the guide.
Json ParametersOf(const guide::Report& report, const reports::ReportMethod& method) {
  Json parameters = Json::array();
  const auto properties = frame::ParameterClassNamed(method.parameterClass).properties;
  for (const guide::Parameter& parameter : report.parameters) {
    const auto property = std::ranges::find_if(
        properties, [&](const frame::Property& candidate) { return values::ToUtf8(candidate.name) == parameter.name; });
    Json choices = Json::array();
    for (const guide::Choice& choice : parameter.choices)
      choices.push_back({{"value", choice.value}, {"meaning", choice.meaning}});
    parameters.push_back({{"name", parameter.name},
                          {"type", TypeOf(property->rule)},
                          {"rule", guide::RuleWords(property->rule)},
                          {"label", parameter.label},
                          {"effect", parameter.effect},
                          {"sample", parameter.sample},
                          {"initial", values::ToUtf8(property->initial)},
                          {"choices", choices}});
  }
  return parameters;
}

const reports::ReportMethod& MethodOf(const guide::Report& report) {
  return *reports::FindReportMethod(values::FromUtf8(report.className), values::FromUtf8(report.method));
}

Json ObjectOf(const guide::Report& report) {
  const reports::ReportMethod& method = MethodOf(report);
  Json columns = Json::array();
  for (const guide::Column& column : report.columns)
    columns.push_back({{"name", column.name}, {"meaning", guide::MeaningWords(column)}});
  Json oddities = Json::array();
  for (const guide::Oddity& oddity : report.oddities) oddities.push_back(oddity.text);
  return {{"name", NameOf(method)},
          {"purpose", report.purpose},
          {"parameters", ParametersOf(report, method)},
          {"columns", columns},
          {"oddities", oddities}};
}

// In millimetres.
Json SizeOf(const pages::Size& size) {
  constexpr double kMillimetre = 1000;
  return Json::array({size.width / kMillimetre, size.height / kMillimetre});
}

// The choices that the user has for labels.
Json Labels() {
  Json kinds = Json::array(), stocks = Json::array(), codes = Json::array();
  for (const NamedLabelKind& kind : LabelKinds())
    kinds.push_back({{"name", kind.name},
                     {"title", values::ToUtf8(kind.title)},
                     {"isOfModules", kind.kind != LabelKind::kContainers}});
  for (const labels::Stock& stock : labels::BuiltInStocks())
    stocks.push_back({{"name", stock.name},
                      {"description", Described(stock)},
                      {"page", SizeOf(stock.page)},
                      {"columns", stock.columns},
                      {"rows", stock.rows},
                      {"label", SizeOf(stock.label)},
                      {"margin", SizeOf(stock.margin)},
                      {"gap", SizeOf(stock.gap)}});
  for (const labels::NamedCode& code : labels::Codes()) codes.push_back({{"name", code.name}, {"title", code.title}});
  return {{"kinds", kinds}, {"stocks", stocks}, {"codes", codes}, {"mostCopies", labels::kMostCopies}};
}

// The papers with the parameters of their reports.
Json Papers() {
  Json papers = Json::array();
  for (const papers::Paper& paper : papers::Papers()) {
    const guide::Report& report = *guide::Find(paper.className, paper.method);
    papers.push_back({{"name", paper.name},
                      {"purpose", paper.purpose},
                      {"subject", values::ToUtf8(paper.subject)},
                      {"parameters", ParametersOf(report, MethodOf(report))}});
  }
  return papers;
}

std::string MakeCatalogue() {
  Json databases = Json::array();
  for (const Database& database : Databases())
    databases.push_back({{"name", database.name}, {"title", database.title}});
  Json families = Json::array();
  for (const guide::Family& family : guide::Families()) {
    Json reports = Json::array();
    for (const guide::Report& report : family.reports) reports.push_back(ObjectOf(report));
    families.push_back({{"title", family.title}, {"reports", reports}});
  }
  return Json{{"version", KODRA_VERSION_TEXT},
              {"databases", databases},
              {"families", families},
              {"labels", Labels()},
              {"papers", Papers()}}
      .dump();
}

}  // namespace

const std::string& CatalogueJson() {
  // Making it takes longer than the rest of the first page.
  static const std::string catalogue = MakeCatalogue();
  return catalogue;
}

}  // namespace kodra::console::panel
