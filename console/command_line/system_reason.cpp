#include "console/command_line/system_reason.h"

#include <array>

namespace kodra::console {
namespace {

struct Reason {
  std::errc error;
  std::wstring_view text;
};

#ifdef _WIN32
constexpr std::wstring_view kDenied =
    L"não há permissão, ou outro programa está com o arquivo aberto; feche-o, ou escolha outra pasta";
#else
constexpr std::wstring_view kDenied = L"não há permissão; peça-a a quem administra a máquina, ou use outra pasta";
#endif

constexpr auto kReasons = std::to_array<Reason>({
    {std::errc::no_such_file_or_directory, L"a pasta não existe; crie-a, ou confira o caminho"},
    {std::errc::not_a_directory, L"o caminho passa por um arquivo como se fosse uma pasta; confira-o"},
    {std::errc::permission_denied, kDenied},
    {std::errc::operation_not_permitted, kDenied},
    {std::errc::read_only_file_system, L"o disco é só de leitura; escolha outro"},
    {std::errc::no_space_on_device, L"o disco está cheio; libere espaço ou use outro"},
    {std::errc::file_too_large, L"o arquivo é grande demais para o disco; escolha outro"},
    {std::errc::io_error, L"o disco deu erro; avise quem cuida da máquina"},
    {std::errc::is_a_directory, L"é uma pasta; informe um arquivo"},
    {std::errc::filename_too_long, L"o nome é longo demais; escolha um mais curto"},
    {std::errc::file_exists, L"já existe um arquivo com esse nome; escolha outro"},
    {std::errc::device_or_resource_busy, L"o arquivo está em uso; feche o programa que o usa"},
    {std::errc::too_many_files_open, L"há arquivos demais abertos; feche outros programas"},
    {std::errc::bad_file_descriptor, L"a saída está fechada; redirecione-a para um arquivo"},
    {std::errc::broken_pipe, L"quem lia a saída já terminou"},
});

}  // namespace

std::wstring SystemReason(std::error_code error) {
  for (const Reason& reason : kReasons)
    if (error == reason.error) return std::wstring(reason.text);
  return L"o sistema deu o erro " + std::to_wstring(error.value()) + L"; mostre-o a quem cuida da máquina";
}

}  // namespace kodra::console
