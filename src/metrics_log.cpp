#include <utility>

#include "bugtrap.h"
#include "metrics_pending.h"
#include "metrics_text.h"
#include "platform/platform.h"
#include "program_file.h"
#include "string_tools.h"

#undef GetTempFileName

namespace {

// Kept: the same on every system, like the version 1.6, because the reporter's tables know the product so.
constexpr wchar_t kSystem[] = L"Win32-x86";
constexpr int kMostWaiting = 10;
constexpr std::int64_t kMostSeconds = 10;

std::wstring UserName() {
  wchar_t name[257] = L"";
  DWORD size = 257;
  return GetUserNameW(name, &size) ? name : L"";
}

// Set by the end of the process's log, which the runtime destroys among other statics.
bool s_LogIsGone = false;

struct ProcessLog {
  ~ProcessLog() { s_LogIsGone = true; }
  const std::shared_ptr<TBTLogFile> log = std::make_shared<TBTLogFile>(L"");
};

}  // namespace

ABT_LOGLEVEL TBTLogFile::m_LogLevel = ABT_VERBOSE;

TBTLogFile::TBTLogFile(const std::wstring&) : m_File(INVALID_HANDLE_VALUE) {
  MovePrevMetricsFiles();
  CreateNewFile();
  m_LogLevel = ABT_VERBOSE;
  WriteFileHeader();
}

TBTLogFile::~TBTLogFile() {
  WriteEventsToFile();
  CloseFile();
}

std::shared_ptr<TBTLogFile> TBTLogFile::GetLogFile() {
  if (s_LogIsGone) {
    OutputDebugStringW(L"Error: GetLogFile() called after destructor\n");
    return nullptr;
  }
  static const ProcessLog s_Log;
  return s_Log.log;
}

void TBTLogFile::SetLogLevel(ABT_LOGLEVEL level) {
  m_LogLevel = level;
}

ABT_LOGLEVEL TBTLogFile::GetLevel() {
  return m_LogLevel;
}

std::wstring TBTLogFile::GetTempFileName() {
  const std::wstring name = ProgramName() + L"_" + GetTimeStamp(nullptr) + L"_log.xml";
  wchar_t path[260];
  return PathCombineW(path, BT_GetMetricsFilePath().c_str(), name.c_str()) ? path : L"";
}

void TBTLogFile::MovePrevMetricsFiles() {
  MoveToPending(BT_GetMetricsFilePath(), ProgramName());
}

// A name that is taken, or held by a process that is just moving it, is another in the next millisecond.
void TBTLogFile::CreateNewFile() {
  constexpr DWORD kInUse = 32, kThere = 80;
  const std::wstring folder = BT_GetMetricsFilePath();
  if (folder.empty() || !MakePrivateFolder(folder.c_str())) return;
  std::wstring tried;
  for (const TDurationCounter trying; trying.ElapsedSeconds() < 1;) {
    std::wstring path = GetTempFileName();
    if (path.empty()) return;
    if (path == tried) continue;
    m_File = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                         FILE_ATTRIBUTE_NORMAL, nullptr);
    if (m_File != INVALID_HANDLE_VALUE) m_Path = path;
    if (m_File != INVALID_HANDLE_VALUE || (GetLastError() != kInUse && GetLastError() != kThere)) return;
    tried = std::move(path);
  }
}

void TBTLogFile::WriteFileHeader() {
  m_TagLevel = 0;
  std::wstring head = Tag(L"<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
  head += Tag(L"<!--\n This report was automatically generated\n by QelBugTrap for " + std::wstring(kSystem) +
              L" on " + GetTimeStamp(nullptr) + L"\n -->\n");
  head += Tag(L"<metrics version=\"1.6\">");
  ++m_TagLevel;
  head += Tag(L"<info>");
  ++m_TagLevel;
  const auto entry = [&head](const wchar_t* name, const std::wstring& value) {
    head += Tag(name, value.c_str());
  };
  entry(L"platform", kSystem);
  entry(L"application", BT_GetAppName());
  entry(L"appName", ProgramFileName());
  entry(L"version", BT_GetAppVersion());
  entry(L"build", BT_GetAppBuild());
  entry(L"config", BT_GetAppConfig());
  entry(L"appId", BT_GetAppId());
  entry(L"computer", std::wstring(Qel::Sys::Text::GetCurComputerName().View()));
  entry(L"user", UserName());
  entry(L"logLevel", GetLevelName(m_LogLevel));
  entry(L"session", BT_GetAppSession());
  --m_TagLevel;
  head += Tag(L"</info>");
  head += Tag(L"<events>");
  ++m_TagLevel;
  if (Write(head) || m_Path.empty()) return;
  // Without its head nothing of the file could ever be read.
  CloseFile();
  DeleteFileW(m_Path.c_str());
  m_Path.clear();
}

bool TBTLogFile::AddEvent(TBTEvent& event) {
  if (event.GetLogLevel() > m_LogLevel || m_File == INVALID_HANDLE_VALUE) return false;
  Append(event);
  const bool now = event.GetLogLevel() >= ABT_WARNING || m_WaitingCount > kMostWaiting ||
                   m_LastWrite.ElapsedSeconds() > kMostSeconds;
  return !now || WriteEventsToFile();
}

// Rendered at once, so that no copy of the event is needed.
void TBTLogFile::Append(TBTEvent& event) {
  event.BeforeAdd();
  FileOutput out(m_Waiting);
  TMetricsText::PutEvent(out, m_TagLevel, event);
  ++m_WaitingCount;
}

bool TBTLogFile::Close() {
  if (m_File == INVALID_HANDLE_VALUE) return false;
  TBTEvent end(ABT_INFO, L"SessionEnd");
  end[L"SessionId"] = BT_GetAppSession();
  end[L"SessionDutaion_s"] = m_Created.ElapsedSeconds();
  Append(end);
  bool written = WriteEventsToFile();
  --m_TagLevel;
  std::wstring last = Tag(L"</events>");
  --m_TagLevel;
  last += Tag(L"</metrics>");
  written = Write(last) && written;
  CloseFile();
  return written;
}

bool TBTLogFile::Write(const std::wstring& text) {
  return WriteBytes(utf16_to_utf8(text));
}

bool TBTLogFile::WriteEventsToFile() {
  const bool written = m_Waiting.empty() || WriteBytes(m_Waiting);
  m_Waiting.clear();
  m_WaitingCount = 0;
  m_LastWrite.Start();
  return written;
}

bool TBTLogFile::WriteBytes(std::string_view bytes) {
  if (m_File == INVALID_HANDLE_VALUE || !std::in_range<DWORD>(bytes.size())) return false;
  const auto size = static_cast<DWORD>(bytes.size());
  DWORD written = 0;
  // cppcheck-suppress danglingTemporaryLifetime ; the caller's text lives until this returns
  if (WriteFile(m_File, bytes.data(), size, &written, nullptr) && written == size) {
    m_Size += size;
    return true;
  }
  // Half an event would spoil all that follow.
  LARGE_INTEGER end;
  end.QuadPart = m_Size;
  if (!SetFilePointerEx(m_File, end, nullptr, 0) || !SetEndOfFile(m_File)) CloseFile();
  return false;
}

void TBTLogFile::CloseFile() {
  if (m_File != INVALID_HANDLE_VALUE) CloseHandle(m_File);
  m_File = INVALID_HANDLE_VALUE;
}
