#include "program_options.h"

#include "format.h"

int TProgramOptions::CheckOption(int option) const {
  return m_Options.find(option) ? 1 : 0;
}

int TProgramOptions::SetOption(int option, int enable) {
  if (!enable) return m_Options.remove(option) > 0 ? 1 : 0;
  if (CheckOption(option)) return 1;
  m_Options.append(option);
  return 0;
}

void TProgramOptions::init() {
  m_Options.flush();
  for (const int option :
       {4924, 32521, 4900, 4905, 4903, 4904, 4911, 4914, 4916, 4923, 4999, 4921, 4975, 1735, 4990})
    m_Options.append(option);
  Qel::Sys::Settings::SysFormat.Option7 = 6;
}

TProgramOptions& GetProgramOptions() {
  static TProgramOptions s_Options;
  return s_Options;
}
