#include "console/command_line/system_reason.h"

#include <array>

namespace kodra::console {
namespace {

struct Reason {
  std::errc error;
  std::wstring_view text;
};

#ifdef _WIN32
constexpr std::wstring_view kDenied = L"não há permissão, ou outro programa está com o arquivo aberto";
#else
constexpr std::wstring_view kDenied = L"não há permissão";
#endif

constexpr auto kReasons = std::to_array<Reason>({
    {std::errc::no_such_file_or_directory, L"a pasta não existe"},
    {std::errc::not_a_directory, L"o caminho passa por um arquivo que não é pasta"},
    {std::errc::permission_denied, kDenied},
    {std::errc::operation_not_permitted, kDenied},
    {std::errc::read_only_file_system, L"o disco é só de leitura"},
    {std::errc::no_space_on_device, L"o disco está cheio"},
    {std::errc::file_too_large, L"o arquivo é grande demais para o disco"},
    {std::errc::io_error, L"o disco deu erro"},
    {std::errc::is_a_directory, L"é uma pasta"},
    {std::errc::filename_too_long, L"o nome é longo demais"},
    {std::errc::file_exists, L"já existe um arquivo com esse nome"},
    {std::errc::device_or_resource_busy, L"o arquivo está em uso"},
    {std::errc::too_many_files_open, L"há arquivos demais abertos"},
    {std::errc::bad_file_descriptor, L"a saída está fechada"},
    {std::errc::broken_pipe, L"quem lia a saída já terminou"},
});

}  // namespace

std::wstring SystemReason(std::error_code error) {
  for (const Reason& reason : kReasons)
    if (error == reason.error) return std::wstring(reason.text);
  return L"erro " + std::to_wstring(error.value()) + L" do sistema";
}

}  // namespace kodra::console
