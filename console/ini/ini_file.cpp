#include "console/ini/ini_file.h"

#include <fmt/format.h>
#include <sstream>

#include "console/command_line/text_lines.h"
#include "console/command_line/usage_error.h"
#include "values/utf8.h"

// Texts stay UTF-8, and Debian's header then contains all of the library.
#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>

namespace kodra::console {
namespace {

constexpr const char* kBlanks = " \t\r";

// The library passes over a line that it does not understand, and what was meant would silently not apply.
bool IsUnderstood(const std::string& line) {
  const std::size_t begin = line.find_first_not_of(kBlanks);
  if (begin == line.npos || line[begin] == ';' || line[begin] == '#') return true;
  if (line[begin] == '[')
    return line.find(']') != line.npos && line.find_first_not_of(" \t", begin + 1) != line.find(']');
  return line[begin] != '=' && line.find('=') != line.npos;
}

void CheckLines(const std::string& text, const std::string& name) {
  const bool isUtf8 = values::ToUtf8(values::FromUtf8(text)) == text && text.find('\0') == text.npos;
  if (!isUtf8) throw UsageError(fmt::format("\"{}\" não é um texto em UTF-8: grave-o de novo nessa codificação", name));
  std::istringstream lines{std::string(WithoutByteOrderMark(text))};
  int number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    if (!IsUnderstood(line))
      throw UsageError(fmt::format(
          "\"{}\", linha {}: deve ser uma seção, como [nome], uma linha com chave = valor, ou um comentário com ; ou #",
          name, number));
  }
}

}  // namespace

struct IniFile::Library {
  // UTF-8, and a key may be repeated.
  CSimpleIniA ini{true, true};
};

IniFile::IniFile(const std::string& text, const std::string& name) : library_(std::make_unique<Library>()) {
  CheckLines(text, name);
  if (library_->ini.LoadData(text) < 0) throw std::bad_alloc();
}

IniFile::~IniFile() = default;

std::vector<IniSection> IniFile::Sections() const {
  const CSimpleIniA& ini = library_->ini;
  const auto inOrder = [](CSimpleIniA::TNamesDepend names) {
    names.sort(CSimpleIniA::Entry::LoadOrder());
    return names;
  };
  CSimpleIniA::TNamesDepend sections;
  ini.GetAllSections(sections);
  std::vector<IniSection> all;
  for (const CSimpleIniA::Entry& section : inOrder(sections)) {
    IniSection& read = all.emplace_back();
    read.name = section.pItem;
    CSimpleIniA::TNamesDepend keys;
    ini.GetAllKeys(section.pItem, keys);
    for (const CSimpleIniA::Entry& key : inOrder(keys)) {
      CSimpleIniA::TNamesDepend values;
      ini.GetAllValues(section.pItem, key.pItem, values);
      for (const CSimpleIniA::Entry& value : inOrder(values)) read.entries.push_back({key.pItem, value.pItem});
    }
  }
  return all;
}

void IniFile::Set(const std::string& section, const std::string& key, const std::string& value) {
  if (library_->ini.SetValue(section.c_str(), key.c_str(), value.c_str()) < 0) throw std::bad_alloc();
}

void IniFile::Remove(const std::string& section) { library_->ini.Delete(section.c_str(), nullptr, true); }

std::string IniFile::Text() const {
  std::string text;
  if (library_->ini.Save(text) < 0) throw std::bad_alloc();
  return text;
}

}  // namespace kodra::console
