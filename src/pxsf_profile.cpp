#include "pxsf.h"
#include "regconfig.h"

namespace {

constexpr unsigned int kTextRoom = 8000;

}  // namespace

unsigned int pxGetProfileInt(const wchar_t* section, const wchar_t* entry, int defaultValue) {
  return static_cast<unsigned int>(TQelReg().ReadInteger(section, entry, defaultValue));
}

int pxGetProfileString(const wchar_t* section, const wchar_t* entry, const wchar_t* defaultValue,
                       CString& value) {
  wchar_t text[kTextRoom];
  const int result = TQelReg().ReadString(section, entry, text, kTextRoom, defaultValue);
  value = text;
  return result;
}

Qel::Sys::TString GetString(const wchar_t* section, const wchar_t* entry, const wchar_t* defaultValue) {
  Qel::Sys::TString value;
  pxGetProfileString(section, entry, defaultValue, value);
  return value;
}

int pxWriteProfileInt(const wchar_t* section, const wchar_t* entry, int value) {
  return TQelReg().WriteInteger(section, entry, value);
}

int pxWriteProfileString(const wchar_t* section, const wchar_t* entry, const wchar_t* value) {
  TQelReg settings;
  if (value) return settings.WriteString(section, entry, value);
  return entry ? settings.EraseEntry(section, entry) : settings.EraseSection(section);
}

int pxWriteProfileStruct(const wchar_t* section, const wchar_t* entry, const void* data, int size) {
  return pxWriteProfileString(section, entry, StructToString(data, size));
}

int pxReadProfileStruct(const wchar_t* section, const wchar_t* entry, void* data, int size) {
  const Qel::Sys::TString text = GetString(section, entry, L"");
  return !text.IsEmpty() && StringToStruct(data, size, text);
}

int ReadStruct(const wchar_t* section, const wchar_t* entry, void* data, int size) {
  return pxReadProfileStruct(section, entry, data, size);
}
