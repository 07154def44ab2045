#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <iostream>

#include "platform.h"
// After the standard headers, whose names its macros would spoil.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// After windows.h, whose names it needs.
#include <shellapi.h>

namespace Cli {

namespace {

std::string ToUtf8(std::wstring_view wide) {
  const int units = static_cast<int>(wide.size());
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, text.data(), bytes, nullptr, nullptr);
  return text;
}

std::wstring ToWide(std::string_view text) {
  const int bytes = static_cast<int>(text.size());
  const int units = MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(units), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, wide.data(), units);
  return wide;
}

bool IsConsole(HANDLE handle) {
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != 0;
}

bool Write(DWORD which, std::FILE* stream, std::string_view text) {
  const HANDLE handle = GetStdHandle(which);
  if (!IsConsole(handle))
    return std::fwrite(text.data(), 1, text.size(), stream) == text.size() && std::fflush(stream) == 0;
  const std::wstring wide = ToWide(text);
  DWORD written = 0;
  return WriteConsoleW(handle, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr) &&
         written == wide.size();
}

// A console hands out what was typed up to Enter, in pieces when it is long. Ctrl+Z at the start ends the
// input.
bool ReadConsoleLine(HANDLE console, std::string& line) {
  constexpr wchar_t kEndOfInput = 26;
  std::wstring wide;
  wchar_t piece[256];
  DWORD count = 0;
  while (ReadConsoleW(console, piece, 256, &count, nullptr) && count > 0) {
    wide.append(piece, count);
    if (wide.ends_with(L'\n')) break;
  }
  if (wide.empty() || wide.front() == kEndOfInput) return false;
  line = ToUtf8(wide);
  if (line.ends_with('\n')) line.pop_back();
  return true;
}

}  // namespace

std::vector<std::string> Arguments(int, char**) {
  // Bytes pass unchanged, so that a pipe carries the same on every system.
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  int count = 0;
  // The narrow arguments have lost what the code page lacks.
  wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; wide && i < count; ++i) arguments.push_back(ToUtf8(wide[i]));
  LocalFree(static_cast<void*>(wide));
  return arguments;
}

std::string UserLanguage() {
  return PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_ARABIC ? "ar" : "en";
}

std::string LocaleName() {
  wchar_t name[LOCALE_NAME_MAX_LENGTH] = L"";
  GetUserDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH);
  return ToUtf8(name);
}

unsigned NarrowCodePage() {
  return GetACP();
}

bool WriteOutput(std::string_view text) {
  return Write(STD_OUTPUT_HANDLE, stdout, text);
}
bool WriteMessage(std::string_view text) {
  return Write(STD_ERROR_HANDLE, stderr, text);
}

bool OutputPaints() {
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  return GetConsoleMode(output, &mode) && SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

bool MessagesAreSeen() {
  return IsConsole(GetStdHandle(STD_ERROR_HANDLE));
}

bool ReadInputLine(std::string& line) {
  const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
  const bool read =
      IsConsole(input) ? ReadConsoleLine(input, line) : static_cast<bool>(std::getline(std::cin, line));
  if (read && line.ends_with('\r')) line.pop_back();
  return read;
}

}  // namespace Cli
