// The databases that the tests of rows run on.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace kodra::rows {

enum class Engine { kSqlite, kMariaDb };

inline std::string NameOf(Engine engine) { return engine == Engine::kSqlite ? "OnSqlite" : "OnMariaDb"; }
inline void PrintTo(Engine engine, std::ostream* out) { *out << NameOf(engine); }

// For INSTANTIATE_TEST_SUITE_P: both databases, and the name of a test on each.
inline auto BothEngines() { return testing::Values(Engine::kSqlite, Engine::kMariaDb); }
inline std::string EngineName(const testing::TestParamInfo<Engine>& info) { return NameOf(info.param); }

}  // namespace kodra::rows
