#include "console/reports/words.h"

#include <algorithm>

#include "values/utf8.h"

namespace kodra::console::guide {

std::string_view TypeWord(ValueType type) {
  switch (type) {
    case ValueType::kText:
      return "texto";
    case ValueType::kNumber:
      return "número";
    case ValueType::kDate:
      return "data";
    case ValueType::kMoment:
      return "data e hora";
    case ValueType::kFlag:
      return "sim ou não";
  }
  return {};
}

std::string_view RuleWords(frame::PropertyRule rule) {
  switch (rule) {
    case frame::PropertyRule::kText:
      return "texto";
    case frame::PropertyRule::kInitial:
      return "texto, só a primeira letra, em maiúscula";
    case frame::PropertyRule::kTrimmed:
      return "texto, sem espaços nas pontas";
    case frame::PropertyRule::kDate:
      return "data";
    case frame::PropertyRule::kFlag:
      return "sim ou não";
  }
  return {};
}

std::string EffectWords(const reports::ReportMethod& method, const frame::Property& property) {
  const std::string name = values::ToUtf8(property.name);
  const auto parameters = About(method).parameters;
  const auto found = std::ranges::find(parameters, name, &Parameter::name);
  if (found == parameters.end()) return {};
  return std::string(found->effect) + (found->ChangesSql() ? "" : " (não muda o SQL)");
}

std::string SampleArguments(const Report& report) {
  std::string arguments;
  for (const Parameter& parameter : report.parameters) {
    const char* const quote = parameter.sample.find(' ') == std::string_view::npos ? "" : "\"";
    arguments.append(" --").append(parameter.name).append(" ").append(quote).append(parameter.sample).append(quote);
  }
  return arguments;
}

std::string MeaningWords(const Column& column) {
  std::string words(column.meaning);
  if (column.kinds.empty()) return words;
  if (column.kinds == "*") return words + " (com outro TipoRpt)";
  words += " (com TipoRpt ";
  for (const char& kind : column.kinds) words.append(&kind == column.kinds.data() ? "" : " ou ").append(1, kind);
  return words + ")";
}

std::string Continued(std::string_view sentence) {
  std::string text(sentence);
  const bool isWord = text.size() > 1 && text[1] >= 'a' && text[1] <= 'z';
  if (isWord && text[0] >= 'A' && text[0] <= 'Z') text[0] = static_cast<char>(text[0] - 'A' + 'a');
  return text;
}

}  // namespace kodra::console::guide
