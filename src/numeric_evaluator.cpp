#include <algorithm>
#include <cstddef>

#include "format.h"

namespace Qel::Sys::Settings {

namespace {

// Digits, operators and the point stand together in ASCII, with only the comma between them.
constexpr bool IsOfTheLanguage(wchar_t ch) {
  return ch >= L'*' && ch <= L'9' && ch != L',';
}
constexpr bool IsTermSign(wchar_t ch) {
  return ch == L'+' || ch == L'-';
}
constexpr bool IsFactorSign(wchar_t ch) {
  return ch == L'*' || ch == L'/';
}

}  // namespace

using Evaluator = Format::NumericEvaluator;

bool Evaluator::EvaluateExpression(const wchar_t* text, long double& result) noexcept {
  if (!text) return false;
  const Evaluation evaluation = Evaluate(text);
  const bool verified =
      evaluation.refusal != Refusal::EmptyText && evaluation.refusal != Refusal::ForeignCharacter;
  if (verified) result = evaluation.value;
  return evaluation.refusal == Refusal::None;
}

Evaluator::Evaluation Evaluator::Evaluate(std::wstring_view text) noexcept {
  Evaluation evaluation;
  const wchar_t* where = nullptr;
  const auto refused = [&](Refusal refusal) {
    if (refusal == Refusal::None) return false;
    evaluation.refusal = refusal;
    if (where) evaluation.position = static_cast<int>(where - text.data());
    return true;
  };
  if (refused(VerifyExpression(text, where))) return evaluation;

  double term = 0;
  std::size_t end = text.size();  // behind the last character that is not yet part of a term
  for (std::size_t i = end; i-- > 0;) {
    if (!IsTermSign(text[i])) continue;
    if (refused(EvaluateTerm(text.substr(i + 1, end - i - 1), term, where))) return evaluation;
    evaluation.value += text[i] == L'+' ? term : -term;
    end = i;
  }
  if (IsTermSign(text[0]) || refused(EvaluateTerm(text.substr(0, end), term, where))) return evaluation;
  evaluation.value += term;
  return evaluation;
}

Evaluator::Refusal Evaluator::VerifyExpression(std::wstring_view text, const wchar_t*& where) noexcept {
  if (text.empty()) return Refusal::EmptyText;
  for (const wchar_t& ch : text) {
    if (IsOfTheLanguage(ch)) continue;
    where = &ch;
    return Refusal::ForeignCharacter;
  }
  return Refusal::None;
}

Evaluator::Refusal Evaluator::EvaluateTerm(std::wstring_view term, double& result,
                                           const wchar_t*& where) noexcept {
  result = 1.0;
  double factor = 0;
  std::size_t end = term.size();
  for (std::size_t i = end; i-- > 0;) {
    if (!IsFactorSign(term[i])) continue;
    const Refusal refusal = StrToFloat(term.substr(i + 1, end - i - 1), factor, where);
    if (refusal != Refusal::None) return refusal;
    if (term[i] == L'/' && factor == 0.0) {
      where = &term[i] + 1;
      return Refusal::DivisionByZero;
    }
    result = term[i] == L'*' ? result * factor : result / factor;
    end = i;
  }
  if (!term.empty() && IsFactorSign(term[0])) return Refusal::None;
  const Refusal refusal = StrToFloat(term.substr(0, end), factor, where);
  result *= factor;
  return refusal;
}

Evaluator::Refusal Evaluator::StrToFloat(std::wstring_view literal, double& result,
                                         const wchar_t*& where) noexcept {
  const std::size_t point = std::min(literal.find(L'.'), literal.size());
  const std::size_t second = literal.find(L'.', point + 1);
  if (second != std::wstring_view::npos) {
    where = &literal[second];
    return Refusal::SecondPoint;
  }
  double scale = 0.1;
  for (std::size_t i = 0; i < point; ++i) scale *= 10.0;
  result = 0;
  for (const wchar_t ch : literal) {
    if (ch == L'.') continue;
    result += (ch - L'0') * scale;
    scale *= 0.1;
  }
  return Refusal::None;
}

}  // namespace Qel::Sys::Settings
