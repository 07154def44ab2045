// A short formatted text for a rich-edit control, as the panes of information and of errors show it: headers, titles,
// normal and error lines, bold and underlined runs, paragraphs that run right to left. Colours and font are those of
// the application's theme (theme.h). It reads as RTF anywhere.
//
//   TRichText pane;
//   pane.SetParaRTL(true);
//   pane.AddMainHdrText(L"كشف حساب");
//   pane.Add2Text(L"الرصيد", L"1,250");
//   pane.GetString()                     // {\rtf1\fbidis ... }
//
// Texts are plain: what means something in RTF is escaped; null counts as empty. A colour is 0xRRGGBB, red first; its
// low 32 bits count, and where all of them are ones it is the theme's normal colour. A size is in half points, 0
// being 16. All of it, with the lookup of colours, takes time in proportion to the text. Values; one may be used from
// one thread at a time, reading included.
#ifndef QEL_RICHTEXT_H
#define QEL_RICHTEXT_H

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "qel_cstring.h"
#include "qel_export.h"
#include "xlist.h"

class TRichText {
 public:
  // Empty, in the font that the theme has now.
  QEL_API TRichText();

  // Adds a run. All that add text return true, always.
  // Kept: switching underline in a run that is not bold writes its end, whichever way it is switched, and in a bold run
  // its start, because the panes of the applications are laid out so. SetUnderLine in front of the run switches
  // either way.
  QEL_API bool AddString(const wchar_t* text, unsigned long colour, unsigned long size, bool bold,
                         bool underline);

  // Runs in the theme's colours, none underlined.
  QEL_API bool AddTitle(const wchar_t* text);        // bold, and ": "
  QEL_API bool AddMainHdrText(const wchar_t* text);  // bold, large; a line
  QEL_API bool AddSubHdrText(const wchar_t* text);   // bold, larger; a line
  QEL_API bool AddNormalText(const wchar_t* text);   // a line
  QEL_API bool AddErrorText(const wchar_t* text);    // a line
  QEL_API bool AddText(const wchar_t* text, bool bold);
  // A title and its text, as one line.
  QEL_API bool Add2Text(const wchar_t* title, const wchar_t* text);
  // Ends `count` lines; none when it is 0 or less.
  QEL_API bool NewLine(int count);

  // Switch from here on. Bold and underline last until the next run says otherwise, the direction until it is switched
  // back.
  QEL_API bool SetBold(bool on);
  QEL_API bool SetUnderLine(bool on);
  QEL_API bool SetParaRTL(bool on);

  // The document, complete; more may be added afterwards.
  QEL_API CString GetString() const;

  // The text as RTF has it: lines of at most 71 units, "\par" and a line feed between them; "\tab" for tabs; characters
  // of code page 1256 as its bytes, others by number; other control characters are left out. ASCII alone.
  QEL_API static CString ParseRichText(const wchar_t* text);
  // The lines of the text, at least one. They end at CR LF, LF or CR; one longer than `width` units is broken at the
  // last blank at or before that place, the blank being taken out, or right there when there is none, but never
  // within a surrogate pair. A width of 0 or less breaks no line.
  QEL_API static std::vector<CString> SplitLines(const wchar_t* text, long width);

 protected:
  // Writes a control word, of ASCII, when `on` differs from `state`, which becomes `on`: the one or the other.
  QEL_API bool AddPara(bool on, bool& state, const wchar_t* onWord, const wchar_t* offWord);

 private:
  // The number of a colour in the table, which it enters when it is new.
  long ColourNumber(std::uint32_t colour);
  void AddNumber(const char* word, long number);

  std::string m_Body;  // both ASCII
  std::string m_Header;
  std::uint32_t m_Colour = 0xFFFFFFFF;  // of the last run; no run has this one
  std::int32_t m_Size = 0;
  bool m_Bold = false;
  bool m_UnderLine = false;
  bool m_ParaRTL = false;
  Qel::XList<unsigned long> m_Colours;
  std::unordered_map<std::uint32_t, long> m_Numbers;  // of m_Colours, from 1 on
  bool m_WordOpen = false;                            // the body ends in a word of AddPara
};

#endif  // QEL_RICHTEXT_H
