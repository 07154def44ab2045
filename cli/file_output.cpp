#include "file_output.h"

#include <cstddef>
#include <system_error>

#include "output.h"

namespace Cli {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kPiece = 65536;

fs::path FreeNameBeside(const fs::path& target) {
  for (int number = 1;; ++number) {
    fs::path name = target;
    name += ".new-" + std::to_string(number);
    if (!fs::exists(fs::symlink_status(name))) return name;
  }
}

bool IsWritable(const fs::path& file) {
  return std::ofstream(file, std::ios::binary | std::ios::app).is_open();
}

}  // namespace

fs::path PathOf(const std::string& name) {
  return std::u8string(name.begin(), name.end());
}

FileOutput::~FileOutput() {
  if (m_Temporary.empty()) return;
  m_File.close();
  std::error_code ignored;
  fs::remove(m_Temporary, ignored);
}

bool FileOutput::Open(const std::string& name) {
  m_ToProgram = name.empty();
  if (m_ToProgram) return true;
  m_Target = PathOf(name);
  std::error_code error;
  if (fs::is_symlink(m_Target, error)) m_Target = fs::canonical(m_Target, error);  // the link stays
  if (error && error != std::errc::no_such_file_or_directory) return false;
  const bool isFile = fs::is_regular_file(m_Target, error);
  if (isFile && !IsWritable(m_Target)) return false;  // replacing it takes no right to it
  if (isFile || !fs::exists(m_Target, error)) m_Temporary = FreeNameBeside(m_Target);
  m_File.open(m_Temporary.empty() ? m_Target : m_Temporary, std::ios::binary | std::ios::trunc);
  // Before there is anything in it: the text is for those who might read it before.
  if (isFile && m_File) fs::permissions(m_Temporary, fs::status(m_Target, error).permissions(), error);
  return m_File.is_open();
}

bool FileOutput::Put(std::string_view bytes) {
  m_Piece += bytes;
  if (m_Piece.size() >= kPiece) Flush();
  return m_ToProgram || m_File.good();
}

void FileOutput::Flush() {
  if (m_ToProgram)
    Print(m_Piece);
  else
    m_File.write(m_Piece.data(), static_cast<std::streamsize>(m_Piece.size()));
  m_Piece.clear();
}

bool FileOutput::Finish() {
  Flush();
  if (m_ToProgram) return true;  // what is lost there is told at the end
  m_File.close();
  return m_File.good() && (m_Temporary.empty() || Replace());
}

bool FileOutput::Replace() {
  std::error_code error;
  fs::rename(m_Temporary, m_Target, error);
  if (!error) m_Temporary.clear();
  return !error;
}

}  // namespace Cli
