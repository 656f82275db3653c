#include "console/panel/panel.h"

#include "console/panel/page_files.h"

namespace kodra::console::panel {
namespace {

Answer AnswerTo(const Request& request, Api& api) {
  const PageFile* const file = request.method == "GET" ? FindPageFile(request.path) : nullptr;
  if (file == nullptr) return api.Handle(request);
  return {.type = std::string(file->type), .body = std::string(file->bytes)};
}

}  // namespace

Panel::Panel(const PanelOptions& options)
    : api_(Connections(options.connection, options.profile), options.limit),
      server_({.refusal = [this](const Request& request) { return access_.Refusal(request); },
               .answer = [this](const Request& request) { return AnswerTo(request, api_); },
               .headers = SecurityHeaders()},
              {}),
      access_(server_.Bind(options.port)) {
  server_.Start();
}

Panel::~Panel() {
  api_.CancelAll();
  server_.Stop();
}

}  // namespace kodra::console::panel
