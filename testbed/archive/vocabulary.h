// The words of the sample archive: Brazilian places and people, an enterprise's papers.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kodra::testbed {

struct City {
  std::wstring_view name, uf, cepPrefix;  // the first five digits of its postal codes
};
std::span<const City> Cities();

std::span<const std::wstring_view> FirstNames();
std::span<const std::wstring_view> Surnames();
std::span<const std::wstring_view> Streets();
std::span<const std::wstring_view> Companies();
std::span<const std::wstring_view> Departments();

// The kind of a series' index key, which decides the values in the documents.
enum class KeyKind { kAbsent, kBlank, kNumber, kPerson, kCompany, kDate, kCity, kMoney };

struct KeyEntry {  // kAbsent has a null caption, kBlank an empty one
  KeyKind kind = KeyKind::kAbsent;
  std::wstring_view caption, mask;
};

struct GroupEntry {
  std::wstring_view name, notes;
};
struct SubgroupEntry {
  int group;  // -1: none
  std::wstring_view name, notes;
};
struct SeriesEntry {
  int subgroup;
  std::wstring_view name;
  int retentionYears;
  std::array<KeyEntry, 5> keys;
};
std::span<const GroupEntry> Groups();
std::span<const SubgroupEntry> Subgroups();
std::span<const SeriesEntry> SeriesOfOneSite();

}  // namespace kodra::testbed
