// The library's wide string value. Text is UTF-16: one unit an element on every platform.
//
//   CString name = L"  Qelmar ";
//   name.Trim();                       // "Qelmar"
//   name.Left(3) + L"!"                // "Qel!"
//
// Lengths and positions are `int`, zero-based, in units. A value may be used from one thread at a time.
#ifndef QEL_QEL_CSTRING_H
#define QEL_QEL_CSTRING_H

#include <compare>
#include <string>
#include <string_view>

#include "qel_export.h"

class QEL_API CString {
 public:
  // An empty text. Costs nothing at load time: a static one is constant-initialised.
  constexpr CString() noexcept {}
  // A copy. Null gives an empty text.
  CString(const wchar_t* text);
  // The first `length` units. Null, or a length of 0 or less, gives an empty text.
  CString(const wchar_t* text, int length);
  // Narrow text in the calling thread's code page. Null gives an empty text. Raises as
  // GetCStringFromStdString.
  explicit CString(const char* narrow);
  // `repeat` copies of `ch`; none when `repeat` is 0 or less.
  explicit CString(wchar_t ch, int repeat = 1);
  CString(std::wstring text) noexcept;
  explicit CString(std::wstring_view text);

  int GetLength() const noexcept { return static_cast<int>(m_Text.size()); }
  bool IsEmpty() const noexcept { return m_Text.empty(); }
  void Empty() noexcept { m_Text.clear(); }

  // The terminated text, valid until the next change.
  const wchar_t* GetString() const noexcept { return m_Text.c_str(); }
  operator const wchar_t*() const noexcept { return m_Text.c_str(); }
  std::wstring_view View() const noexcept { return m_Text; }

  // The unit at `index`, 0 <= index <= GetLength(); the one behind the last is NUL. Raises TXAssertion
  // "index >= 0 && index <= GetLength()" outside that range; SetAt needs an existing unit.
  wchar_t GetAt(int index) const;
  wchar_t operator[](int index) const { return GetAt(index); }
  void SetAt(int index, wchar_t ch);

  CString& operator+=(const CString& text);
  CString& operator+=(const wchar_t* text);
  CString& operator+=(wchar_t ch);
  // Makes the text `count` units longer, for the caller to write them at once: they are where the result points to
  // until the next change. For readers that decode into place.
  wchar_t* Extend(int count);

  // By unit value, and the same without regard to case (the order of pxCompStrI). Null compares as empty.
  int Compare(const wchar_t* other) const noexcept;
  int CompareNoCase(const wchar_t* other) const;

  // Cut white space (Unicode White_Space, fixed whatever the locale), or every unit found in `set`.
  CString& Trim();
  CString& TrimLeft();
  CString& TrimRight();
  CString& TrimLeft(const wchar_t* set);
  CString& TrimRight(const wchar_t* set);

  // Replaces every occurrence, left to right, without looking at replaced text again. Returns how many.
  // An empty `from` replaces nothing.
  int Replace(const wchar_t* from, const wchar_t* to);
  int Replace(wchar_t from, wchar_t to);

  // The position of the first occurrence at or after `start`, or -1.
  int Find(const wchar_t* text, int start = 0) const noexcept;
  int Find(wchar_t ch, int start = 0) const noexcept;

  // Parts of the text. Counts and positions are clipped to what is there.
  CString Left(int count) const;
  CString Right(int count) const;
  CString Mid(int first) const;
  CString Mid(int first, int count) const;

  // The next run of units not in `separators`, from `start` on; `start` moves behind it and its separator,
  // and becomes -1 with an empty result when there is none left.
  CString Tokenize(const wchar_t* separators, int& start) const;

  friend bool operator==(const CString& a, const CString& b) noexcept { return a.m_Text == b.m_Text; }
  friend bool operator==(const CString& a, const wchar_t* b) noexcept { return a.Compare(b) == 0; }
  friend std::strong_ordering operator<=>(const CString& a, const CString& b) noexcept {
    return a.m_Text.compare(b.m_Text) <=> 0;
  }
  friend std::strong_ordering operator<=>(const CString& a, const wchar_t* b) noexcept {
    return a.Compare(b) <=> 0;
  }
  friend CString operator+(CString a, const CString& b) { return a += b; }
  friend CString operator+(CString a, const wchar_t* b) { return a += b; }
  friend CString operator+(const wchar_t* a, const CString& b) { return CString(a) += b; }
  friend CString operator+(CString a, wchar_t b) { return a += b; }

 private:
  std::wstring m_Text;
};

#endif  // QEL_QEL_CSTRING_H
