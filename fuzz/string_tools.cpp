// Text tools: what they change is checked by undoing it or by a slow and obvious second way.
#include "string_tools.h"

#include <string>

#include "fuzz.h"

using namespace Qel::Sys::Text;

namespace {

std::wstring ReplacedAll(std::wstring text, const std::wstring& from, const std::wstring& to) {
  for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

// Passes over pairs until one finds none.
std::wstring WithoutPairs(std::wstring text, wchar_t ch) {
  for (std::size_t at = text.find({ch, ch}); at != text.npos; at = text.find({ch, ch})) text.erase(at, 1);
  return text;
}

void CheckFilter(const std::wstring& text) {
  CString filtered(text);
  FilterText(filtered);
  CString again(filtered);
  FUZZ_ASSERT(FilterText(again) == filtered);
  FUZZ_ASSERT(filtered.Find(L'\t') < 0 && filtered.Find(L"  ") < 0);
  CString trimmed(text);
  trimmed.Trim();
  const auto letters = [](const CString& t) {
    return ReplacedAll(ReplacedAll(t.GetString(), L"\t", L""), L" ", L"");
  };
  FUZZ_ASSERT(letters(filtered) == letters(trimmed));
}

void CheckFileName(const std::wstring& text) {
  CString name(text);
  FixFileName(name);
  if (name.IsEmpty()) return;
  FUZZ_ASSERT(name.Find(L'\\') != 0 || name[1] == L'\\');
  FUZZ_ASSERT(std::wstring_view(L"\" '\\").find(name[name.GetLength() - 1]) == std::wstring_view::npos);
  FUZZ_ASSERT(name.GetLength() <= static_cast<int>(text.size()) + 1);
}

void CheckEscapes(const std::wstring& text) {
  FUZZ_ASSERT(ReplacedAll(EscapeSQLQuote(text.c_str()).GetString(), L"''", L"'") == text);
  std::wstring web = FixStringForWeb(text.c_str()).GetString();
  FUZZ_ASSERT(web.find_first_of(L"<>\"'") == web.npos);
  const wchar_t* const entities[][2] = {
      {L"&quot;", L"\""}, {L"&apos;", L"'"}, {L"&lt;", L"<"}, {L"&gt;", L">"}, {L"&amp;", L"&"}};
  for (const auto& entity : entities) web = ReplacedAll(web, entity[0], entity[1]);
  FUZZ_ASSERT(web == text);
}

void CheckIncCode(const std::wstring& text) {
  const std::wstring next = IncCode(text.c_str()).GetString();
  const auto digits = [](const std::wstring& code) {
    return code.substr(code.find_last_not_of(L"0123456789") + 1);
  };
  const std::wstring before = digits(text);
  const std::wstring after = digits(next);
  FUZZ_ASSERT(after.size() >= before.size());
  FUZZ_ASSERT(text.substr(0, text.size() - before.size()) == next.substr(0, next.size() - after.size()));
  if (before.size() < 18) FUZZ_ASSERT(std::stoull(after) == (before.empty() ? 0 : std::stoull(before)) + 1);
}

}  // namespace

// The first byte chooses the character whose runs collapse.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::wstring text = Units(data + 1, size - 1).c_str();
  CheckFilter(text);
  CheckFileName(text);
  CheckEscapes(text);
  CheckIncCode(text);

  const wchar_t ch = text.empty() ? L',' : text[*data % text.size()];
  std::wstring collapsed = text;
  RemoveDup(collapsed.data(), ch);
  FUZZ_ASSERT(collapsed.c_str() == WithoutPairs(text, ch));
  FUZZ_ASSERT(StringIsArabic(text) == (!text.empty() && StringIsArabic(boost::wstring_ref(&text[0], 1))));
  return 0;
}
