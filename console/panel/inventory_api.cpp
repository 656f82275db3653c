#include "console/panel/inventory_api.h"

#include "console/command_line/usage_error.h"
#include "console/inventory/inventory.h"
#include "console/inventory/scanned_codes.h"
#include "console/panel/file_formats.h"
#include "console/panel/page_writer.h"
#include "console/panel/request_json.h"

namespace kodra::console::panel {
namespace {

using inventory::Inventory;

std::vector<std::wstring> CodesIn(const std::string& list, const std::string& name) {
  return list.empty() ? std::vector<std::wstring>() : inventory::ScannedCodes(list, name);
}

Inventory InventoryOf(const Json& json) {
  const bool documents = TextOf(json, "of") == "documents";
  const std::vector<std::wstring> places = CodesIn(TextOf(json, "places"), "a lista de lugares");
  if (places.empty()) throw UsageError(documents ? "falta o módulo conferido" : "falta o contêiner conferido");
  return {documents ? Inventory::Of::kDocuments : Inventory::Of::kModules, places,
          CodesIn(TextOr(json, "codes", ""), "o que foi lido")};
}

}  // namespace

Answer CompareInventory(const Request& request, const std::wstring& connection, Runs& runs) {
  const Json json = BodyOf(request);
  Inventory inventory = InventoryOf(json);
  const FileFormat* const format = json.contains("format") ? &FileFormatNamed(TextOf(json, "format")) : nullptr;
  const std::string whyOver =
      runs.DoUnlessStopped(TextOf(json, "run"), request.isGone, [&](Machine& machine, const Run& run) {
        inventory.Compare(machine.Around(), connection, [&] { return !run.IsOver(); });
      });
  if (!whyOver.empty()) return Refused(409, whyOver);
  if (format != nullptr) {
    const auto file = std::make_shared<TemporaryFile>();
    inventory.Write(*NewWriter(format->format, OptionsOf(*format), *file, file->PathText()));
    return FileAnswer(file, *format, "conferencia");
  }
  TextOutput lines;
  if (!inventory.Warning().empty()) lines.Write(AnswerText(Json{{"warning", inventory.Warning()}}) + "\n");
  PageWriter writer(lines, [](std::uint64_t) { return std::vector<std::string>(); });
  inventory.Write(writer);
  return {.type = "application/x-ndjson", .body = lines.Text()};
}

}  // namespace kodra::console::panel
