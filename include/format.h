// The process-wide settings of presentation: the order of dates, rounding, decimals, separators, the Hijri
// switch and the language of texts. Every conversion of the library reads the one exported instance; a host
// changes them all by writing to it at start-up:
//
//   SysFormat.DateFmt = Format::DF_YYYYMMDD;
//   SysFormat.UseHijri = true;
//
// Nested is the small calculator behind number fields, where a user may type "12*3+4".
//
// SysFormat has no lock: write it while the host starts, only read it afterwards.
#ifndef QEL_FORMAT_H
#define QEL_FORMAT_H

#include <string_view>

#include "platform_types.h"
#include "qel_cstring.h"
#include "qel_export.h"

namespace Qel::Sys::Settings {

// A plain record, whose fields and their order are ABI. Copied, never moved from: what a host took its settings
// from still holds them.
struct QEL_API Format {
  // The order in which dates are written and read. The two long forms are padded with zeros.
  enum DATE_FORMAT : int { DF_DMY = 0, DF_DDMMYYYY = 1, DF_YMD = 2, DF_YYYYMMDD = 3 };

  // The step to which RoundVal rounds; the name is the step. Hosts store the numbers.
  enum ROUND_PREC : int {
    RP_NONE = 0,
    RP_0_01 = 1,
    RP_0_05 = 2,
    RP_0_1 = 3,
    RP_0_5 = 4,
    RP_1 = 5,
    RP_5 = 6,
    RP_10 = 7,
    RP_50 = 8,
    RP_100 = 9,
    RP_0_25 = 10,
    RP_2_5 = 11,
    RP_25 = 12,
    RP_250 = 13,
    RP_500 = 14,
    RP_0_001 = 15,
    RP_0_005 = 16,
    RP_0_025 = 17,
  };

  // Where RoundVal takes a value that lies half-way between two steps: away from zero, towards plus infinity,
  // or to the even one of the two.
  enum ROUND_TYPE : int { RT_HALF_AWAY = 0, RT_HALF_UP = 1, RT_HALF_EVEN = 2 };

  class NumericEvaluator;

  // All fields at their defaults. Costs nothing at load time.
  constexpr Format() noexcept {}
  Format(const Format&) = default;
  Format& operator=(const Format&) = default;
  ~Format() = default;

  // Sets every field back to its default.
  // Kept: DateFmt, RoundType and Option7 keep what they hold, because hosts call this after choosing those.
  void Init();

  DATE_FORMAT DateFmt = DF_DMY;
  unsigned Option2 = 0;            // free for hosts
  ROUND_PREC RoundPrec = RP_NONE;  // of RoundVal(v): set it first, since RP_NONE gives 0.0
  ROUND_TYPE RoundType = RT_HALF_AWAY;
  unsigned ZeroAsText = 0;  // exactly 1: amounts equal to 0.0 are written as ZeroText
  wchar_t ZeroText[20] = L"--";
  unsigned Option7 = 0;  // TProgramOptions::init sets it to 6
  unsigned Option8 = 6;  // free for hosts
  unsigned PercentDecimals = 2;
  unsigned QuantityDecimals = 2;
  unsigned CurrencyDecimals = 5;
  CString Text1;                  // free for hosts
  CString Text2;                  // free for hosts
  bool GroupDigits = true;        // whether written numbers group their integer digits by three
  wchar_t ThousandSep[5] = L",";  // only its first character counts; empty is none
  bool UseHijri = false;          // whether dates are read and written as Hijri
  bool AltGMonthNames = false;    // whether Gregorian months take the second set of names
  LANGID ResLangId = 0x2801;      // the language asked for first: Arabic (Syria); 1033 is the fall-back
};

// The four operators over unsigned decimal literals ("12", "1.5", ".5", "5."), "*" and "/" binding tighter;
// no blanks, brackets, exponents or other characters. Digits are ASCII. Pure, reentrant, allocates nothing.
//
// Kept: missing operands count, because users have learnt it so: an empty term and the empty factor behind an
// operator are 0, the one before a leading "*" or "/" is 1. So "-5" is -5, "5+" is 5, "5*" is 0, "*5" is 5 and
// "2*-3" is -3.
// Kept: factors are worked from the right ("8/4/2" is 1 / 2 / 4 * 8) and every digit adds its value times a
// running power of ten ("0.3" is 0.30000000000000004), because stored amounts were computed so.
class QEL_API Format::NumericEvaluator {
 public:
  enum class Refusal { None, EmptyText, ForeignCharacter, SecondPoint, DivisionByZero };

  // What came of a text. When refused, `position` is the index of the character that is foreign, of the
  // second point, or of the divisor that is zero (which may be the length: "5/"); else -1.
  struct Evaluation {
    double value = 0;
    Refusal refusal = Refusal::None;
    int position = -1;
  };

  // The value of `text`; when refused, what was summed up so far.
  static Evaluation Evaluate(std::wstring_view text) noexcept;

  // True, and the value (always that of plain double arithmetic) in `result`, when all of `text` is an
  // expression. False when it is null or empty or has a foreign character, `result` untouched; false too at a
  // second point or a division by zero, `result` then being of no use.
  static bool EvaluateExpression(const wchar_t* text, long double& result) noexcept;

 private:
  // The steps; each leaves in `where` the character at which it refuses.
  static Refusal VerifyExpression(std::wstring_view text, const wchar_t*& where) noexcept;
  static Refusal EvaluateTerm(std::wstring_view term, double& result, const wchar_t*& where) noexcept;
  static Refusal StrToFloat(std::wstring_view literal, double& result, const wchar_t*& where) noexcept;
};

// The instance that the whole library reads.
extern QEL_API Format SysFormat;

}  // namespace Qel::Sys::Settings

#endif  // QEL_FORMAT_H
