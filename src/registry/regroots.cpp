#include "regkey.h"

TRegKey& TRegKey::GetClassesRoot() {
  static TRegKey s_Key(HKEY_CLASSES_ROOT, true, L"HKEY_CLASSES_ROOT");
  return s_Key;
}

TRegKey& TRegKey::GetCurrentUser() {
  static TRegKey s_Key(HKEY_CURRENT_USER, true, L"HKEY_CURRENT_USER");
  return s_Key;
}

TRegKey& TRegKey::GetLocalMachine() {
  static TRegKey s_Key(HKEY_LOCAL_MACHINE, true, L"HKEY_LOCAL_MACHINE");
  return s_Key;
}

TRegKey& TRegKey::GetUsers() {
  static TRegKey s_Key(HKEY_USERS, true, L"HKEY_USERS");
  return s_Key;
}

TRegKey& TRegKey::GetPerformanceData() {
  static TRegKey s_Key(HKEY_PERFORMANCE_DATA, true, L"HKEY_PERFORMANCE_DATA");
  return s_Key;
}

TRegKey& TRegKey::GetCurrentConfig() {
  static TRegKey s_Key(HKEY_CURRENT_CONFIG, true, L"HKEY_CURRENT_CONFIG");
  return s_Key;
}

TRegKey& TRegKey::GetDynData() {
  static TRegKey s_Key(HKEY_DYN_DATA, true, L"HKEY_DYN_DATA");
  return s_Key;
}

TRegKey& TRegKey::GetClassesRootClsid() {
  static TRegKey s_Key(GetClassesRoot(), L"CLSID", KEY_ALL_ACCESS, OpenOnly);
  return s_Key;
}
