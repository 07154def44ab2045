// A small application: two modules and a program that brings them together. host FOLDER [URL]
//
// It writes its panes and its metrics into FOLDER and posts the report of an error to URL.
#include <iostream>

#include "host_modules.h"

using namespace Qel::Sys;

namespace {

// The application's entries: the suite's settings, of the current user.
class THostReg : public IAppReg {
 public:
  int ReadInt(const wchar_t* section, const wchar_t* entry, int defaultValue) override {
    return TQelReg().ReadInteger(section, entry, defaultValue);
  }
  bool WriteInt(const wchar_t* section, const wchar_t* entry, int value) override {
    return TQelReg().WriteInteger(section, entry, value);
  }
  CString ReadText(const wchar_t* section, const wchar_t* entry, const wchar_t* defaultValue) override {
    return GetString(section, entry, defaultValue);
  }
  bool WriteText(const wchar_t* section, const wchar_t* entry, const wchar_t* value) override {
    return pxWriteProfileString(section, entry, value) != 0;
  }
  bool ReadData(const wchar_t* section, const wchar_t* entry, void* data, int size) override {
    return pxReadProfileStruct(section, entry, data, size) != 0;
  }
  bool WriteData(const wchar_t* section, const wchar_t* entry, const void* data, int size) override {
    return pxWriteProfileStruct(section, entry, data, size) != 0;
  }
};

class THostSettings : public IAppSettings {
 public:
  THostSettings() { m_AppReg = std::make_shared<THostReg>(); }
};

// The one object that all modules reach.
class THostContext : public IAppContext {
 public:
  explicit THostContext(const std::string& folder) {
    m_ProgramInfo.ProgramName = L"host";
    m_AppSettings = std::make_shared<THostSettings>();
    m_EntryServices = MakeEntries();
    m_AppUX = MakePane(folder);
  }
  void InitContext() override {
    const std::shared_ptr<IAppReg> settings = GetAppSettings()->GetAppReg();
    const int starts = settings->ReadInt(L"Host", L"Starts", 0) + 1;
    settings->WriteInt(L"Host", L"Starts", starts);
    std::cout << "Start " << starts << '\n';
  }
};

std::wstring g_Folder;

void Post(const wchar_t* url, const CString& report) {
  TBTEvent posted(ABT_INFO, L"ReportPosted");
  HttpClient client(L"QelHost");
  const HttpResponse answer = client.Post(url, report);
  std::cout << "Report posted: " << answer.status << '\n';
  posted[L"Status"] = answer.status;
  posted.Save();
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc < 2) {
    std::cerr << "host FOLDER [URL]\n";
    return 2;
  }
  Settings::SysFormat.UseHijri = true;
  Settings::SysFormat.ResLangId = 1033;
  g_Folder = Qel::FromUtf8(argv[1]).View();
  SetBugTrapHooks({.GetMetricsFilePath = [] { return g_Folder; }});
  CreateAppContext<THostContext>(argv[1])->InitContext();

  GetEntryServices()->OpenEntry(17);

  CString report;
  Qel::Report([] { GetEntryServices()->OpenEntry(0); }, [&](const CString& text) { report = text; });
  GetAppUX()->OkBox(report);
  const auto showFailure = [](const CString& text) { std::cerr << Qel::ToUtf8(text); };
  const bool posted = argc < 3 || Qel::Report([&] { Post(Qel::FromUtf8(argv[2]), report); }, showFailure);

  TBTLogFile::GetLogFile()->Close();
  return posted ? 0 : 1;
}
