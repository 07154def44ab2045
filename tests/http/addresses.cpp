#include "http/addresses.h"

#include <cstdlib>
#include <fstream>
#include <iostream>

std::string ServerAddress(const std::string& name) {
  const char* path = std::getenv("QEL_HTTP_ADDRESSES");
  std::ifstream file(path == nullptr ? "" : path);
  for (std::string line; std::getline(file, line);)
    if (line.starts_with(name + "=")) return line.substr(name.size() + 1);
  std::cerr << "no server \"" << name << "\": QEL_HTTP_ADDRESSES must name the file that servers.py wrote\n";
  std::abort();
}

std::wstring ServerUrl(const std::string& name, const std::string& path) {
  const std::string url = ServerAddress(name) + path;
  return std::wstring(url.begin(), url.end());
}
