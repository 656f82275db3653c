// The known inputs of the fuzz targets, without the fuzzing engine: the seeds in corpus/, and in found/ those that once
// broke a property. There is one folder per target.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <set>
#include <string>
#include <vector>

// The entry of each target, which the build names after its file.
extern "C" {
int fuzz_connection_string(const std::uint8_t* data, std::size_t size);
int fuzz_date_recogniser(const std::uint8_t* data, std::size_t size);
int fuzz_ini_file(const std::uint8_t* data, std::size_t size);
int fuzz_number_reader(const std::uint8_t* data, std::size_t size);
int fuzz_odbc_connection_string(const std::uint8_t* data, std::size_t size);
int fuzz_select_builder(const std::uint8_t* data, std::size_t size);
int fuzz_tradutor_sql(const std::uint8_t* data, std::size_t size);
}

namespace kodra::fuzz {
namespace {

struct Target {
  const char* name;
  int (*run)(const std::uint8_t* data, std::size_t size);
};

std::ostream& operator<<(std::ostream& out, const Target& target) { return out << target.name; }

constexpr Target kTargets[] = {
    {"connection_string", fuzz_connection_string},
    {"date_recogniser", fuzz_date_recogniser},
    {"ini_file", fuzz_ini_file},
    {"select_builder", fuzz_select_builder},
    {"number_reader", fuzz_number_reader},
    {"odbc_connection_string", fuzz_odbc_connection_string},
    {"tradutor_sql", fuzz_tradutor_sql},
};

// The tests run in the folder tests/.
const std::filesystem::path kFolders[] = {"fuzz/corpus", "fuzz/found"};

std::vector<std::filesystem::path> InputsOf(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> inputs;
  if (std::filesystem::exists(folder)) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) inputs.push_back(entry.path());
  }
  std::sort(inputs.begin(), inputs.end());
  return inputs;
}

std::vector<std::uint8_t> BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class FuzzReplay : public testing::TestWithParam<Target> {};

TEST_P(FuzzReplay, HoldsForEveryKnownInput) {
  std::size_t replayed = 0;
  for (const auto& folder : kFolders) {
    for (const auto& path : InputsOf(folder / GetParam().name)) {
      const std::vector<std::uint8_t> bytes = BytesOf(path);
      EXPECT_NO_THROW(GetParam().run(bytes.data(), bytes.size())) << path;
      ++replayed;
    }
  }
  EXPECT_GT(replayed, 0U);
}

TEST_P(FuzzReplay, HoldsForTheEmptyInput) { EXPECT_NO_THROW(GetParam().run(nullptr, 0)); }

INSTANTIATE_TEST_SUITE_P(Targets, FuzzReplay, testing::ValuesIn(kTargets),
                         [](const auto& target) { return std::string(target.param.name); });

TEST(FuzzInputs, AreInFoldersOfTargetsThatExist) {
  std::set<std::string> known;
  for (const Target& target : kTargets) known.insert(target.name);
  for (const auto& folder : kFolders) {
    for (const auto& path : InputsOf(folder)) EXPECT_TRUE(known.contains(path.filename().string())) << path;
  }
}

}  // namespace
}  // namespace kodra::fuzz
