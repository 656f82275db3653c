// The translator's public functions: each calls the function of a Translator for the database code of the current
// thread.
//
//   DefineTipoBanco(tbOracle);
//   SQLNVL(L"dp.NOME", nvTexto, L"")   returns  NVL(dp.NOME, '')
//
// Every report call sets the code of its thread; reports themselves pass the Translator of the call on.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sql/translator.h"

namespace kodra::sql {

// Sets the database code of this thread (initially 0). tbOracleAlt is stored as tbOracle, every other code unchanged.
void DefineTipoBanco(std::int32_t code) noexcept;

std::wstring SQLDateAdd(const std::wstring& interval, const std::wstring& number, const std::wstring& date);
std::wstring SQLDataAtual();
std::wstring SQLToDate(const std::wstring& text, std::int32_t layout);
std::wstring SQLToInt(const std::wstring& expr);
std::wstring SQLToChar(const std::wstring& expr, const std::wstring& format);
std::wstring SQLStrConcat(const std::vector<Value>& parts);
std::wstring SQLNVL(const std::wstring& expr, std::int32_t kind, const std::wstring& defaultValue);

}  // namespace kodra::sql
