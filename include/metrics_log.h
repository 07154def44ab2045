// The metrics log: what happened in the program, when, at which level, how long it took, with named properties, in an
// XML file that the crash reporter collects.
//
//   TBTEvent saved(ABT_INFO, L"InvoiceSaved");
//   saved[L"Rows"] = 12;
//   saved[L"Customer"] = customer.Name;
//   saved.Save();                                    // its duration ends here
//   ...
//   if (const auto log = TBTLogFile::GetLogFile()) log->Close();   // while the program ends
//
// The form of the file stands in docs/formats.md. Nothing here raises: what could not be written is told by the
// result. Names and texts may hold anything; what XML cannot, the file has as U+FFFD.
//
// No lock: events come from one thread at a time.
#ifndef QEL_METRICS_LOG_H
#define QEL_METRICS_LOG_H

#include <chrono>
#include <concepts>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <variant>

#include "duration.h"
#include "platform_types.h"
#include "qel_cstring.h"
#include "qel_export.h"

enum ABT_LOGLEVEL : std::int32_t { ABT_NONE, ABT_ERROR, ABT_WARNING, ABT_IMPORTANT, ABT_INFO, ABT_VERBOSE };

// What a property holds. The numbers are the order of the kinds.
enum TBTValueKind : std::int32_t { BTV_STRING, BTV_INT, BTV_DOUBLE, BTV_INT64 };

class QEL_API TBTEventValue {
 public:
  // An empty string.
  TBTEventValue();

  // Null is an empty string.
  TBTEventValue& operator=(const wchar_t* text);
  TBTEventValue& operator=(std::wstring text);
  TBTEventValue& operator=(const CString& text);
  TBTEventValue& operator=(int number);
  TBTEventValue& operator=(double number);
  TBTEventValue& operator=(std::int64_t number);
  // A bool is an int, 0 or 1; every other integer has 64 bits. One beyond them becomes the largest.
  template <std::integral T>
  TBTEventValue& operator=(T number) {
    if constexpr (std::same_as<T, bool>) return *this = static_cast<int>(number);
    constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
    const bool tooLarge = number > T{} && static_cast<std::uint64_t>(number) > std::uint64_t{kMost};
    return *this = tooLarge ? kMost : static_cast<std::int64_t>(number);
  }
  // Its milliseconds so far, in 64 bits.
  TBTEventValue& operator=(const TDurationCounter& counter);

  TBTValueKind GetKind() const noexcept { return static_cast<TBTValueKind>(m_Value.index()); }
  // When it was last assigned, or else made.
  std::chrono::system_clock::time_point GetTime() const noexcept { return m_Time; }

  // A string as WriteEscaped writes it; a number in decimal, a double with six significant digits ("1.23457e+06"),
  // whatever the stream's locale and format.
  void ToStream(std::wostream& out) const;

 private:
  friend class TMetricsText;

  std::variant<std::wstring, int, double, std::int64_t> m_Value;
  std::chrono::system_clock::time_point m_Time;
};

// The lines that the file is made of.
class QEL_API TBTLogBase {
 public:
  // "1:Error"; "9:Unknown" for what is no level.
  static const wchar_t* GetLevelName(ABT_LOGLEVEL level);
  // "200427-1343480500" for 27 April 2020, 13:43:48.500. Null is the current UTC time.
  static std::wstring GetTimeStamp(const SYSTEMTIME* time);
  // Writes the five characters of markup as "&quot;" "&amp;" "&apos;" "&lt;" "&gt;", all others as they are.
  static void WriteEscaped(std::wostream& out, const std::wstring& text);
  // `text` with an underscore for every character that is no letter or digit: "Time Taken (ms)" becomes
  // "Time_Taken__ms_". Letters and digits are those of Unicode's first plane that names of XML elements may have.
  // Null gives an empty text.
  static std::wstring FixTagName(const wchar_t* text);

  // Two blanks for each level of depth; none when it is below 0.
  static std::wstring spaces();
  // A line: spaces(), then the text, or "<name>value</name>" with the value escaped, then a line feed, also when the
  // text ends in one. Null texts are empty.
  static std::wstring Tag(const std::wstring& text);
  static std::wstring Tag(const wchar_t* name, const wchar_t* value);
  static std::wstring Tag(const wchar_t* name, const TBTEventValue& value);

  // How deep the next line stands, for the whole process.
  static std::int32_t m_TagLevel;
};

class QEL_API TBTEvent : public TBTLogBase {
 public:
  // Its time is now, and its duration counts from here.
  TBTEvent(ABT_LOGLEVEL level, const std::wstring& name);
  virtual ~TBTEvent();
  TBTEvent(const TBTEvent&) = default;
  TBTEvent& operator=(const TBTEvent&) = default;

  // The property of this name, made when there is none. The name goes through FixTagName, an underscore comes before
  // one that is then empty or begins with a digit, and one of more than 16,000 characters, which readers of XML do not
  // take, is cut. The reference is good as long as the event.
  TBTEventValue& operator[](const std::wstring& key);

  ABT_LOGLEVEL GetLogLevel() const noexcept { return m_Level; }
  void SetLogLevel(ABT_LOGLEVEL level) noexcept { m_Level = level; }

  // Called by the log when it takes the event: sets the duration, in whole milliseconds. One that overrides it to add
  // properties calls this too.
  virtual void BeforeAdd();
  // Hands a copy to the process's log, once: later calls do nothing and return false. Returns as AddEvent; false too
  // when the log is gone.
  bool Save();

  // The event's lines at the current depth.
  void ToStream(std::wostream& out) const;

 protected:
  // Sets the event's time to now, and counts its duration from here.
  void StartTimer();

 private:
  friend class TMetricsText;

  ABT_LOGLEVEL m_Level;
  std::wstring m_Name;
  SYSTEMTIME m_StartTime{};
  TDurationCounter m_Timer;
  std::int64_t m_Duration = 0;
  std::map<std::wstring, TBTEventValue> m_Properties;
  bool m_Saved = false;
};

// The system has a macro of this name, which would rename the function in programs that include windows.h.
#pragma push_macro("GetTempFileName")
#undef GetTempFileName

class QEL_API TBTLogFile : public TBTLogBase {
 public:
  // Moves the files of earlier runs to the sub-folder "Pending", which keeps the newest 100 of all programs; files
  // that other processes still write stay. Then creates the file in BT_GetMetricsFilePath(), which is made for this
  // user alone where it is missing, and writes its head. When that cannot be, everything else returns false. The
  // argument is not used.
  // Kept: sets the level to ABT_VERBOSE, because the reporter wants whole sessions; one that was set before is lost.
  explicit TBTLogFile(const std::wstring& name);
  // Writes the events that wait, and closes the file as it is: without Close it has no closing lines.
  ~TBTLogFile();
  TBTLogFile(const TBTLogFile&) = delete;
  TBTLogFile& operator=(const TBTLogFile&) = delete;

  // The process's log, created by the first call. Once it is destroyed, at the end of the process, null, and
  // "Error: GetLogFile() called after destructor" goes to the debugger or, on Linux, to the error stream.
  static std::shared_ptr<TBTLogFile> GetLogFile();

  // Events above this level are dropped, in the whole process. Call it after the first GetLogFile().
  static void SetLogLevel(ABT_LOGLEVEL level);
  static ABT_LOGLEVEL GetLevel();

  // Where a log created now would be: the folder, the running program's name, the time to the millisecond.
  static std::wstring GetTempFileName();
  // What calls to it turn into where that macro is in force.
  static std::wstring GetTempFileNameW() { return GetTempFileName(); }
  static std::wstring GetTempFileNameA() { return GetTempFileName(); }

  // Takes a copy of the event. All that wait are written when more than 10 whole seconds have passed since events were
  // last written, when more than 10 wait, or when this one's level is 2 or more. False when the event is above the
  // level, when there is no file, or when events could not be written; those are then lost, and the file stays as it
  // was before them.
  // Kept: errors (level 1) wait for others, because errors come in bursts and each write takes its time.
  bool AddEvent(TBTEvent& event);
  // Ends the document with the event "SessionEnd", which no level drops, and closes the file. False when not all of it
  // could be written. A second call does nothing and returns false.
  // Kept: its property is spelled "SessionDutaion_s", because the reporter's tables have that name.
  bool Close();

  // Empty when no file could be created.
  const std::wstring& GetFilePath() const noexcept { return m_Path; }

 protected:
  static void MovePrevMetricsFiles();
  void WriteFileHeader();
  // False when not all of it could be written: the file is then as it was before, or closed when even that fails.
  bool Write(const std::wstring& text);
  // The events that wait; none do afterwards, written or not.
  bool WriteEventsToFile();

  static ABT_LOGLEVEL m_LogLevel;
  TDurationCounter m_LastWrite;

 private:
  void CreateNewFile();
  void CloseFile();
  void Append(TBTEvent& event);
  bool WriteBytes(std::string_view bytes);

  HANDLE m_File;
  std::string m_Waiting;  // events as the file will have them
  int m_WaitingCount = 0;
  std::wstring m_Path;
  std::int64_t m_Size = 0;  // of the file, whole lines
  TDurationCounter m_Created;
};

#pragma pop_macro("GetTempFileName")

#endif  // QEL_METRICS_LOG_H
